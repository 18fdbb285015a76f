// The cells of rows that are to be imported: where their texts lie, and how amounts are shown.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <type_traits>

#include "entries/bulk/bulk_entry.h"

namespace kelvane::ui {

// Grouped like the list's amounts, unless some of it would be lost.
std::string ShownAmount(const std::string& text);
// What was typed as an amount, without grouping; as it is when it is none.
std::string PlainAmount(std::string_view text);

// A text of a `Row`, which may be constant.
template <typename Row>
using CellText = std::conditional_t<std::is_const_v<Row>, const std::string, std::string>;

// Where the text of a column lies; null for one that is not shown.
template <typename Entry>
requires std::is_same_v<std::remove_const_t<Entry>, entries::BulkEntry> CellText<Entry>
*CellOf(Entry& entry, int column) {
    if (column == entries::kRowNumberColumn) return &entry.rowNumber;
    if (column == entries::kOperationColumn) return &entry.operation;
    const bool isOwn = column >= entries::kDateColumn && column <= entries::kAmountColumn;
    return isOwn ? &entry.texts.cells[static_cast<std::size_t>(column)] : nullptr;
}

template <typename Line>
requires std::is_same_v<std::remove_const_t<Line>, entries::BulkLine> CellText<Line>
*CellOf(Line& line, int column) {
    switch (column) {
        case entries::kLineRowNumberColumn:
            return &line.rowNumber;
        case entries::kLineCodeColumn:
            return &line.texts.code;
        case entries::kLineNameColumn:
            return &line.texts.name;
        case entries::kLinePriceColumn:
            return &line.texts.price;
        case entries::kLineQuantityColumn:
            return &line.texts.quantity;
        case entries::kLineAmountColumn:
            return &line.texts.amount;
        default:
            return nullptr;
    }
}

}  // namespace kelvane::ui
