#include "entries/bulk/cell_text.h"

#include <algorithm>
#include <cstddef>

#include "data/text_conversion.h"
#include "platform/decimal.h"
#include "platform/full_width.h"
#include "platform/utf8.h"

namespace kelvane::entries {

using platform::CellKind;
using platform::Decimal;
using platform::TableCell;

namespace {

// A spreadsheet's numbers keep no more.
constexpr std::size_t kExactDigits = 15;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool IsDigits(std::string_view text) {
    return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

// Wide characters in their plain form, without the blanks at both ends.
std::string PlainText(std::string_view text) {
    constexpr char32_t kHardBlank = 0xA0;
    std::string plain;
    while (!text.empty()) {
        const char32_t character = platform::PlainForm(platform::TakeCharacter(text).value);
        platform::AppendCharacter(plain, character == kHardBlank ? U' ' : character);
    }
    return data::Trim(plain);
}

// The digits of a number without an exponent; the number itself when it is too long to be anything.
std::string NumberText(const std::string& number) {
    constexpr std::size_t kLongest = 64;
    const auto read = Decimal::FromText(number);
    std::string text = read ? read->Text() : number;
    return text.size() > kLongest ? number : text;
}

// A code that is digits or a decimal number, as a number.
std::optional<std::string> CodeAsNumber(const std::string& code) {
    const bool plain =
        std::all_of(code.begin(), code.end(), [](char c) { return IsDigit(c) || c == '.'; });
    const auto number = plain ? Decimal::FromText(code) : std::nullopt;
    return number ? std::optional(number->Text()) : std::nullopt;
}

bool IsSameNumber(std::string_view number, std::string_view code) {
    if (number.size() <= kExactDigits || !IsDigits(number)) return number == code;
    return number.size() == code.size() &&
           number.substr(0, kExactDigits) == code.substr(0, kExactDigits);
}

// "1.23457E+11", as a spreadsheet writes a long code into a text; or its digits with the last ones
// lost.
bool IsSpoiledCode(std::string_view text, bool typed) {
    const std::size_t exponent = text.find_first_of("eE");
    if (exponent != std::string_view::npos) {
        const std::string_view power = text.substr(exponent + 1);
        const bool hasSign = power.starts_with('+') || power.starts_with('-');
        return hasSign && IsDigits(power.substr(1)) &&
               Decimal::FromText(text.substr(0, exponent)).has_value();
    }
    return !typed && text.size() > kExactDigits && IsDigits(text) &&
           text.find_first_not_of('0', kExactDigits) == std::string_view::npos;
}

// Appends digits, perhaps in groups of three; false when `whole` is anything else.
bool AppendWhole(std::string_view whole, std::string& digits) {
    constexpr std::size_t kGroup = 3;
    const bool grouped = whole.find(',') != std::string_view::npos;
    if (!grouped) {
        digits += whole;
        return whole.empty() || IsDigits(whole);
    }
    for (bool first = true;; first = false) {
        const std::string_view group = whole.substr(0, whole.find(','));
        const bool fits = first ? group.size() <= kGroup : group.size() == kGroup;
        if (!fits || !IsDigits(group)) return false;
        digits += group;
        if (group.size() == whole.size()) return true;
        whole.remove_prefix(group.size() + 1);
    }
}

Finding NumberForCode(const TableCell& cell, int column, const CodeProposal& propose) {
    const std::string number = NumberText(cell.text);
    const auto code = propose ? propose(column, number) : std::nullopt;
    return code ? Found(Rule::CellCodeProposed, *code) : Found(Rule::CellCodeNumber, number);
}

std::variant<std::string, Finding> DateCell(const TableCell& cell) {
    if (cell.kind == CellKind::Text) return PlainText(cell.text);
    const platform::DateTime& date = cell.date;
    const bool isDay = cell.kind == CellKind::Date && date.IsValid() &&
                       date == platform::DateTime{date.year, date.month, date.day};
    if (isDay) return date.DateText('-');
    const bool isTime = cell.kind == CellKind::Date && date.IsValid();
    return Found(Rule::CellDate, isTime ? date.FullText().substr(0, 19) : cell.text);
}

std::variant<std::string, Finding> NumberCell(const TableCell& cell, Rule noNumber) {
    if (cell.kind == CellKind::Number) return NumberText(cell.text);
    // Of one blank alone the windows make zero.
    if (cell.text == " ") return cell.text;
    auto amount = cell.kind == CellKind::Text ? AmountText(cell.text) : std::nullopt;
    if (!amount) return Found(noNumber);
    return *std::move(amount);
}

}  // namespace

std::optional<std::string> OnlyCodeOf(std::string_view number, std::span<const std::string> codes) {
    const auto read = Decimal::FromText(number);
    if (!read) return std::nullopt;
    const std::string sought = read->Text();
    const std::string* found = nullptr;
    for (const std::string& code : codes) {
        const auto asNumber = CodeAsNumber(code);
        if (!asNumber || !IsSameNumber(sought, *asNumber)) continue;
        if (found != nullptr) return std::nullopt;
        found = &code;
    }
    return found == nullptr ? std::nullopt : std::optional(*found);
}

std::optional<std::string> AmountText(std::string_view text) {
    const std::string plain = PlainText(text);
    std::string_view rest = plain;
    std::string amount;
    const auto takeSign = [&] {
        if (!amount.empty() || !(rest.starts_with('-') || rest.starts_with('+'))) return;
        amount = rest.substr(0, 1);
        rest.remove_prefix(1);
    };
    takeSign();
    for (const std::string_view currency : {"¥", "￥"}) {
        if (rest.starts_with(currency)) {
            rest.remove_prefix(currency.size());
            takeSign();
            break;
        }
    }
    const std::size_t point = std::min(rest.find('.'), rest.size());
    const std::string_view whole = rest.substr(0, point);
    const std::string_view decimals = rest.substr(std::min(point + 1, rest.size()));
    if (!decimals.empty() && !IsDigits(decimals)) return std::nullopt;
    if (whole.empty() && decimals.empty()) return std::nullopt;
    if (!AppendWhole(whole, amount)) return std::nullopt;
    if (!decimals.empty()) amount.append(".").append(decimals);
    return amount;
}

std::variant<std::string, Finding> TextOfCell(const TableCell& cell, const TableColumn& column,
                                              Rule noNumber, bool typed,
                                              const CodeProposal& propose) {
    if (cell.kind == CellKind::Blank) return std::string();
    if (cell.kind == CellKind::Error) return Found(Rule::CellError, cell.text);
    if (cell.kind == CellKind::NoResult) return Found(Rule::CellFormula);
    if (column.use == CellUse::Date) return DateCell(cell);
    if (column.use == CellUse::Number) return NumberCell(cell, noNumber);
    const bool isText = cell.kind == CellKind::Text;
    if (column.use == CellUse::Code) {
        if (!isText) return NumberForCode(cell, column.column, propose);
        if (IsSpoiledCode(data::Trim(cell.text), typed)) {
            return Found(Rule::CellCodeSpoiled, data::Trim(cell.text));
        }
    }
    if (cell.kind == CellKind::Date && cell.date.IsValid()) return cell.date.DateText('-');
    return isText ? cell.text : NumberText(cell.text);
}

}  // namespace kelvane::entries
