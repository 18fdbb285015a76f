// A detail line of an entry without a grid or a screen: an equipment or inventory item, its price,
// its quantity and what both come to.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/money.h"
#include "platform/statement_text.h"
#include "platform/value.h"

namespace kelvane::entries {

enum class DetailKind { Equipment, Inventory };

// The element-detail flag of elements that are kept in equipment lines; any other that is not 0
// stands for inventory lines.
inline constexpr std::int16_t kEquipmentDetail = 2;

constexpr DetailKind KindOfDetail(std::int16_t flag) {
    return flag == kEquipmentDetail ? DetailKind::Equipment : DetailKind::Inventory;
}

// What of a line a finding is about.
enum class LineColumn { Code, Name, Price, Quantity, Amount };

// The texts of a line as the editor shows them, numbers with grouping commas.
struct LineTexts {
    std::string code;
    std::string name;
    std::string price;
    std::string quantity;
    std::string amount;
};

// The values of a line; the quantity as the account keeps it.
struct DetailLine {
    std::string code;
    platform::Money price;
    double quantity = 0;
    platform::Money amount;
};

// An item of the master data as a line shows it; equipment has no unit.
struct LineItem {
    std::string code;
    std::string name;
    std::string model;
    platform::Value price;
    std::optional<std::string> unit;
};

// The values of texts that passed their checks; empty numbers are 0. Throws std::invalid_argument
// and std::range_error, and their kin of platform::Money.
DetailLine LineOf(const LineTexts& texts);

// Price by quantity, both read as four-decimal amounts. Throws as MoneyOfDisplay() does.
platform::Money AmountOf(const std::string& price, const std::string& quantity);

// A price or a quantity (data::kPriceKind, data::kQuantityKind) that passed its check, as the
// editor shows it; empty text stays empty.
std::string LineNumberText(const std::string& typed, std::int16_t kind);
// Price by quantity as the editor shows it. Throws as AmountOf() does.
std::string LineAmountText(const std::string& price, const std::string& quantity);

// The sum of the lines' amounts. Throws platform::MoneyOverflow.
platform::Money TotalOf(std::span<const DetailLine> lines);

// The statements that replace an entry's lines by `lines`, with a place for the entry's identity.
platform::StatementText ReplacementOf(std::span<const DetailLine> lines);

}  // namespace kelvane::entries
