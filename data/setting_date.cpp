#include "data/setting_date.h"

#include <algorithm>
#include <array>
#include <optional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "data/text_conversion.h"
#include "platform/ascii.h"

namespace kelvane::data {

using platform::DateTime;

namespace {

std::optional<DateTime> Read(std::string_view text) {
    DateTime date;
    return DateTime::Parse(text, date) ? std::optional(date) : std::nullopt;
}

// Takes the first `mark` and what stands before it out of `text`, and returns what stood before it.
// Without a mark it returns nothing and `text` stays.
std::optional<std::string> CutAt(std::string& text, std::string_view mark) {
    const auto place = text.find(mark);
    if (place == std::string::npos) return std::nullopt;
    std::string before = text.substr(0, place);
    text.erase(0, place + mark.size());
    return before;
}

std::optional<DateTime> ReadChinese(std::string text) {
    const auto year = CutAt(text, "年");
    const auto month = CutAt(text, "月");
    if (!year || !month) return std::nullopt;
    const auto day = text.empty() ? "1" : CutAt(text, "日");
    return day ? Read(*year + "-" + *month + "-" + *day + text) : std::nullopt;
}

std::optional<DateTime> ReadMonth(std::string text) {
    for (const char separator : {'-', '/', '.'}) {
        if (std::count(text.begin(), text.end(), separator) == 1) {
            return Read(text + separator + "1");
        }
    }
    return std::nullopt;
}

// "12:05AM" as "0:05".
std::optional<std::string> TimeOfHalfDay(const std::string& text) {
    constexpr int kHalfDay = 12;
    constexpr std::size_t kMarkLength = 2;
    if (text.size() < kMarkLength) return std::nullopt;
    const std::string mark = platform::UpperAscii(text.substr(text.size() - kMarkLength));
    if (mark != "AM" && mark != "PM") return std::nullopt;
    std::string minutes = text.substr(0, text.size() - kMarkLength);
    const auto hourText = CutAt(minutes, ":");
    if (!hourText || hourText->size() > 2 || !IsNumericText(*hourText)) return std::nullopt;
    const int hour = ShortIntegerOf(*hourText);
    if (hour < 1 || hour > kHalfDay) return std::nullopt;
    return std::to_string(hour % kHalfDay + (mark == "PM" ? kHalfDay : 0)) + ":" + minutes;
}

// The form in which the database itself writes a date as a text: "Jul  1 2004 12:00AM".
std::optional<DateTime> ReadEnglish(std::string text) {
    static constexpr std::array<std::string_view, 12> kMonths{
        "Jan", "Feb", "Mar", "Apr", "May", "Jun", "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    std::istringstream words(std::move(text));
    std::string name;
    std::string day;
    std::string year;
    words >> name >> day >> year;
    const auto* month = std::find_if(
        kMonths.begin(), kMonths.end(),
        [&](std::string_view candidate) { return platform::EqualIgnoringCase(candidate, name); });
    if (month == kMonths.end()) return std::nullopt;
    const std::string date = year + "-" + std::to_string(month - kMonths.begin() + 1) + "-" + day;
    std::string time;
    if (!(words >> time)) return Read(date);
    std::string more;
    const auto clock = TimeOfHalfDay(time);
    return clock && !(words >> more) ? Read(date + " " + *clock) : std::nullopt;
}

}  // namespace

DateTime SettingDate(std::string_view setting, const platform::Value& value) try {
    if (const auto* text = value.As<std::string>()) {
        const std::string trimmed = Trim(*text);
        if (const auto date = Read(trimmed)) return *date;
        for (const auto read : {ReadChinese, ReadMonth, ReadEnglish}) {
            if (const auto date = read(trimmed)) return *date;
        }
    }
    return value.ToDateTime();
} catch (const std::invalid_argument& error) {
    throw std::invalid_argument(std::string(setting) + "：" + error.what());
}

}  // namespace kelvane::data
