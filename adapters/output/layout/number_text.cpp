#include "adapters/output/layout/number_text.h"

#include <algorithm>

namespace kelvane::output {

using platform::ColumnAlignment;
using platform::ColumnKind;

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

bool AllDigits(std::string_view text) {
    return std::all_of(text.begin(), text.end(), IsDigit);
}

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The digits of "1,234"; nothing when the commas do not stand before groups of three.
std::optional<std::string> WholePart(std::string_view text) {
    std::string digits(text.substr(0, text.find(',')));
    if (!AllDigits(digits)) return std::nullopt;
    text.remove_prefix(digits.size());
    if (!text.empty() && (digits.empty() || digits.size() > 3)) return std::nullopt;
    while (!text.empty()) {
        const std::string_view group = text.substr(1, text.find(',', 1) - 1);
        if (group.size() != 3 || !AllDigits(group)) return std::nullopt;
        digits += group;
        text.remove_prefix(1 + group.size());
    }
    return digits;
}

}  // namespace

std::optional<NumberText> ReadNumber(std::string_view text) {
    text = Trimmed(text);
    const bool negative = text.starts_with('-');
    if (negative) text.remove_prefix(1);
    const std::size_t point = std::min(text.find('.'), text.size());
    const std::string_view fraction = text.substr(std::min(text.size(), point + 1));
    const auto whole = WholePart(text.substr(0, point));
    if (!whole || !AllDigits(fraction) || (whole->empty() && fraction.empty())) return std::nullopt;
    if (whole->size() > 1 && whole->front() == '0') return std::nullopt;

    NumberText number;
    number.decimals = static_cast<int>(fraction.size());
    number.digits = (negative ? "-" : "") + (whole->empty() ? "0" : *whole);
    if (!fraction.empty()) number.digits += "." + std::string(fraction);
    const std::string all = *whole + std::string(fraction);
    const std::size_t first = all.find_first_not_of('0');
    number.significant = first == std::string::npos ? 0 : static_cast<int>(all.size() - first);
    return number;
}

std::optional<NumberText> CellNumber(const platform::ColumnText& column, std::string_view cell) {
    const bool mayBe =
        column.kind == ColumnKind::Number ||
        (column.kind == ColumnKind::Text && column.alignment == ColumnAlignment::Right);
    return mayBe ? ReadNumber(cell) : std::nullopt;
}

std::optional<platform::DateTime> CellDate(const platform::ColumnText& column,
                                           std::string_view cell) {
    platform::DateTime date;
    if (column.kind != ColumnKind::Date || !platform::DateTime::Parse(Trimmed(cell), date)) {
        return std::nullopt;
    }
    return date;
}

}  // namespace kelvane::output
