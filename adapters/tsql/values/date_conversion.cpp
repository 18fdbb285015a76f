#include "adapters/tsql/values/date_conversion.h"

#include <cstdio>

#include "adapters/tsql/language/errors.h"
#include "platform/date_time.h"

namespace kelvane::tsql {

namespace {

using platform::DateTime;

constexpr int kFirstYear = 1753;

// Whether a text that is no date has the form of one: with other digits it would be.
bool HasDateForm(std::string_view text) {
    std::string form(text);
    for (char& c : form) {
        if (c >= '0' && c <= '9') c = '1';
    }
    DateTime ignored;
    return DateTime::Parse(form, ignored);
}

void RoundToTicks(DateTime& date) {
    // Thousandths that 1/300 s, 2/300 s and 3/300 s come to, by the last digit of the time.
    constexpr int kRounded[] = {0, 0, 3, 3, 3, 7, 7, 7, 7, 10};
    const int digit = date.millisecond % 10;
    date.millisecond += kRounded[digit] - digit;
    if (date.millisecond < 1000) return;
    date.millisecond = 0;
    if (++date.second < 60) return;
    date.second = 0;
    if (++date.minute < 60) return;
    date.minute = 0;
    if (++date.hour < 24) return;
    date.hour = 0;
    date = date.AddDays(1);
}

}  // namespace

std::string TextToDate(std::string_view text, Type from) {
    DateTime date;
    if (text.find_first_not_of(' ') == std::string_view::npos) return date.FullText();
    if (!DateTime::Parse(text, date)) {
        if (HasDateForm(text)) throw OutOfRangeDate();
        throw ConversionFailed(text, from, {Type::Kind::DateTime, 0});
    }
    RoundToTicks(date);
    if (date.year < kFirstYear || !date.IsValid()) throw OutOfRangeDate();
    return date.FullText();
}

std::string DaysToDate(std::int64_t days) {
    constexpr std::int64_t kFarthest = 4'000'000;
    const Type type{Type::Kind::DateTime, 0};
    if (days < -kFarthest || days > kFarthest) throw ArithmeticOverflow(type);
    const DateTime date = DateTime{}.AddDays(static_cast<long>(days));
    if (date.year < kFirstYear || !date.IsValid()) throw ArithmeticOverflow(type);
    return date.FullText();
}

std::string DateToText(std::string_view date, int style) {
    constexpr const char* kMonths[] = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                       "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    DateTime value;
    if (!DateTime::Parse(date, value)) {
        throw ConversionFailed(date, {Type::Kind::VarChar, 0}, {Type::Kind::DateTime, 0});
    }
    switch (style) {
        case 0:
        case 100: {
            char buffer[64];
            const int hour = value.hour % 12 == 0 ? 12 : value.hour % 12;
            std::snprintf(buffer, sizeof buffer, "%s %2d %04d %2d:%02d%s", kMonths[value.month - 1],
                          value.day, value.year, hour, value.minute, value.hour < 12 ? "AM" : "PM");
            return buffer;
        }
        case 23:
            return value.DateText();
        case 102:
            return value.DateText('.');
        case 111:
            return value.DateText('/');
        case 112: {
            char buffer[32];
            std::snprintf(buffer, sizeof buffer, "%04d%02d%02d", value.year, value.month,
                          value.day);
            return buffer;
        }
        case 120:
            return value.FullText().substr(0, 19);
        case 121:
            return value.FullText();
        default:
            throw InvalidDateStyle(style);
    }
}

}  // namespace kelvane::tsql
