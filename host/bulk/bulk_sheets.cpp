#include "host/bulk/bulk_sheets.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace kelvane::host {

using entries::CellUse;
using entries::TableColumn;
using entries::TableShape;
using platform::ColumnUse;
using platform::TableFileColumn;
using platform::TableFileSheet;

namespace {

constexpr int kWideColumn = 30;
constexpr int kUsualColumn = 16;
constexpr int kNarrowColumn = 12;

ColumnUse UseOf(const TableColumn& column) {
    switch (column.use) {
        case CellUse::Code:
            return ColumnUse::Code;
        case CellUse::Date:
            return ColumnUse::Date;
        case CellUse::Number:
            // Prices and quantities are shown with the decimals that they have.
            return column.column == entries::kLinePriceColumn ||
                           column.column == entries::kLineQuantityColumn
                       ? ColumnUse::Number
                       : ColumnUse::Amount;
        case CellUse::Text:
        case CellUse::Label:
            break;
    }
    return ColumnUse::Text;
}

int WidthOf(ColumnUse use, const TableColumn& column) {
    const bool isName = column.use == CellUse::Text && column.titles.front().ends_with("名称");
    if (isName || column.titles.front() == "摘要") return kWideColumn;
    return use == ColumnUse::Date ? kNarrowColumn : kUsualColumn;
}

// A column that an operator has no business with.
bool IsHidden(const TableShape& shape, int column) {
    return shape.firstMark == entries::kDateColumn &&
           (column == entries::kIdentityColumn || column == entries::kCheckColumn);
}

template <typename Offer>
TableFileSheet SheetOf(const TableShape& shape, const entries::AccountTitles& titles, int last,
                       const Offer& offer) {
    TableFileSheet sheet;
    sheet.name = shape.sheet;
    for (const TableColumn& column : WrittenColumns(shape, last)) {
        TableFileColumn written = FileColumnOf(shape, column, TitleOf(column, titles));
        written.choices = offer(column.column);
        sheet.columns.push_back(std::move(written));
    }
    return sheet;
}

}  // namespace

std::string TitleOf(const TableColumn& column, const entries::AccountTitles& titles) {
    const bool named = column.column == entries::kItemNameColumn && column.titles.size() > 1;
    return named ? titles.itemName : column.titles.front();
}

TableFileColumn FileColumnOf(const TableShape& shape, const TableColumn& column,
                             std::string title) {
    const ColumnUse use = UseOf(column);
    return {.title = std::move(title),
            .use = use,
            .width = WidthOf(use, column),
            .hidden = IsHidden(shape, column.column),
            .choices = {}};
}

std::vector<TableColumn> WrittenColumns(const TableShape& shape, int last) {
    std::vector<TableColumn> columns = shape.columns;
    std::erase_if(columns, [last](const TableColumn& column) { return column.column > last; });
    std::ranges::sort(columns, {}, &TableColumn::column);
    return columns;
}

TableFileSheet EntrySheet(const entries::AccountTitles& titles,
                          const entries::AccountChoices& choices, int last) {
    return SheetOf(entries::EntryTableShape(titles.itemName, titles.keywords, true), titles, last,
                   [&](int column) { return entries::ForEntryColumn(choices, column); });
}

TableFileSheet LineSheet(const entries::AccountChoices& choices) {
    return SheetOf(entries::LineTableShape(), {}, entries::kLineAmountColumn,
                   [&](int column) { return entries::ForLineColumn(choices, column); });
}

}  // namespace kelvane::host
