#include "data/date_text.h"

#include <cstdint>
#include <stdexcept>

#include "data/text_conversion.h"

namespace kelvane::data {

using platform::DateTime;

namespace {

struct DateParts {
    std::string_view year;
    std::string_view month;
    std::string_view day;
};

std::optional<DateParts> Split(std::string_view text) {
    for (const char separator : {'-', '.', '/'}) {
        const auto first = text.find(separator);
        if (first == std::string_view::npos) continue;
        const auto second = text.find(separator, first + 1);
        if (second == std::string_view::npos) return std::nullopt;
        return DateParts{text.substr(0, first), text.substr(first + 1, second - first - 1),
                         text.substr(second + 1)};
    }
    return std::nullopt;
}

std::int16_t LeadingShort(std::string_view text) {
    return ShortInteger(RoundHalfEven(LeadingNumber(text)));
}

std::optional<DateTime> ReadDate(const DateParts& parts) {
    DateTime date;
    try {
        date.year = LeadingShort(parts.year);
        date.month = LeadingShort(parts.month);
        date.day = LeadingShort(parts.day);
    } catch (const std::range_error&) {
        return std::nullopt;
    }
    if (!IsNumericText(parts.year)) return std::nullopt;
    if (date.year >= 0 && date.year < 100) date.year += date.year >= 30 ? 1900 : 2000;
    if (!date.IsValid()) return std::nullopt;
    return date;
}

std::optional<DateTime> ReadDateText(std::string_view text) {
    const auto parts = Split(text);
    return parts ? ReadDate(*parts) : std::nullopt;
}

}  // namespace

bool CheckDateText(std::string& text) {
    const auto date = ReadDateText(text);
    if (date) text = date->DateText('.');
    return date.has_value();
}

DateTime DateTextToDate(const std::string& text) {
    return ReadDateText(text).value_or(kNullDate);
}

std::string DateToText(const std::optional<DateTime>& date) {
    return date ? date->DateText('.') : std::string();
}

std::string DateTextOrEmpty(std::string& text) {
    text = DateToText(DateTextToDate(text));
    return text == kNullDateText ? std::string() : text;
}

}  // namespace kelvane::data
