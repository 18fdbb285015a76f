#include "platform/date_time.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

#include "platform/blanks.h"

namespace kelvane::platform {

namespace {

constexpr int kMaxYear = 9999;

// Reads the fixed forms of a date and a time from the front of a text.
class DateReader {
public:
    explicit DateReader(std::string_view text) : mText(text) {}

    bool AtEnd() const { return mText.empty(); }

    bool Skip(char character) {
        if (!mText.starts_with(character)) return false;
        mText.remove_prefix(1);
        return true;
    }

    std::optional<int> Digits(std::size_t least, std::size_t most) {
        int number = 0;
        std::size_t count = 0;
        while (count < most && count < mText.size() && mText[count] >= '0' && mText[count] <= '9')
            number = number * 10 + (mText[count++] - '0');
        if (count < least) return std::nullopt;
        mText.remove_prefix(count);
        mLastCount = count;
        return number;
    }

    bool Into(int& field, std::size_t least, std::size_t most) {
        const auto number = Digits(least, most);
        if (number) field = *number;
        return number.has_value();
    }

    bool Date(DateTime& date) {
        if (!Into(date.year, 4, 4)) return false;
        for (const char separator : {'-', '/', '.'}) {
            if (Skip(separator))
                return Into(date.month, 1, 2) && Skip(separator) && Into(date.day, 1, 2);
        }
        return Into(date.month, 2, 2) && Into(date.day, 2, 2);
    }

    bool Time(DateTime& date) {
        if (!Into(date.hour, 1, 2) || !Skip(':') || !Into(date.minute, 2, 2)) return false;
        if (!Skip(':')) return true;
        if (!Into(date.second, 2, 2)) return false;
        if (!Skip('.')) return true;
        if (!Into(date.millisecond, 1, 3)) return false;
        for (; mLastCount < 3; ++mLastCount) date.millisecond *= 10;
        return true;
    }

private:
    std::string_view mText;
    std::size_t mLastCount = 0;
};

// A list has a date in every row, so this does without the formatting of the standard library.
void AppendPadded(std::string& text, int number, std::size_t width) {
    const std::string digits = std::to_string(number);
    if (digits.size() < width) text.append(width - digits.size(), '0');
    text += digits;
}

}  // namespace

bool DateTime::IsValid() const {
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    return year >= 1 && year <= kMaxYear && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
           date.ok() && hour >= 0 && hour < 24 && minute >= 0 && minute < 60 && second >= 0 &&
           second < 60 && millisecond >= 0 && millisecond < 1000;
}

long DateTime::DayNumber() const {
    const std::chrono::year_month_day date{std::chrono::year(year),
                                           std::chrono::month(static_cast<unsigned>(month)),
                                           std::chrono::day(static_cast<unsigned>(day))};
    return static_cast<long>(std::chrono::sys_days(date).time_since_epoch().count());
}

DateTime DateTime::FromDayNumber(long dayNumber) {
    const std::chrono::year_month_day date{
        std::chrono::sys_days(std::chrono::days(static_cast<int>(dayNumber)))};
    DateTime result;
    result.year = static_cast<int>(date.year());
    result.month = static_cast<int>(static_cast<unsigned>(date.month()));
    result.day = static_cast<int>(static_cast<unsigned>(date.day()));
    return result;
}

DateTime DateTime::FromSerial(int year, int month, int day) {
    int monthIndex = month - 1;
    year += monthIndex / 12;
    monthIndex %= 12;
    if (monthIndex < 0) {
        monthIndex += 12;
        --year;
    }
    DateTime first;
    first.year = year;
    first.month = monthIndex + 1;
    return FromDayNumber(first.DayNumber() + day - 1);
}

DateTime DateTime::AddDays(long days) const {
    DateTime result = FromDayNumber(DayNumber() + days);
    result.hour = hour;
    result.minute = minute;
    result.second = second;
    result.millisecond = millisecond;
    return result;
}

std::string DateTime::DateText(char separator) const {
    std::string text;
    AppendPadded(text, year, 4);
    text += separator;
    AppendPadded(text, month, 2);
    text += separator;
    AppendPadded(text, day, 2);
    return text;
}

std::string DateTime::FullText() const {
    std::string text = DateText();
    text += ' ';
    AppendPadded(text, hour, 2);
    text += ':';
    AppendPadded(text, minute, 2);
    text += ':';
    AppendPadded(text, second, 2);
    text += '.';
    AppendPadded(text, millisecond, 3);
    return text;
}

bool DateTime::Parse(std::string_view text, DateTime& result) {
    DateReader reader(WithoutOuterBlanks(text));
    DateTime date;
    if (!reader.Date(date)) return false;
    if (!reader.AtEnd()) {
        if (!reader.Skip('T') && !reader.Skip(' ')) return false;
        while (reader.Skip(' ')) continue;
        if (!reader.Time(date) || !reader.AtEnd()) return false;
    }
    if (!date.IsValid()) return false;
    result = date;
    return true;
}

}  // namespace kelvane::platform
