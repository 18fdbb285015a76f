#include "adapters/tables/date_format.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/ascii.h"
#include "platform/decimal.h"

namespace kelvane::tables {

using platform::DateTime;
using platform::Decimal;

namespace {

struct NumberRange {
    int first;
    int last;
};

// The formats of China, Japan and Korea lie among them.
constexpr std::array kDateFormats{NumberRange{14, 22}, NumberRange{27, 36}, NumberRange{45, 47},
                                  NumberRange{50, 58}};

constexpr DateTime kNoDate{0, 0, 0, 0, 0, 0, 0};

// Takes what stands for itself off the front of `code`: quoted texts, escaped characters, what is
// in brackets. Answers whether it did; a length of time in brackets ("[h]") stays.
bool DropLiteral(std::string_view& code) {
    const auto drop = [&code](std::size_t count) {
        code.remove_prefix(std::min(count, code.size()));
        return true;
    };
    const auto behind = [&code](char end) {
        const std::size_t found = code.find(end, 1);
        return found == std::string_view::npos ? found : found + 1;
    };
    switch (code.front()) {
        case '"':
            return drop(behind('"'));
        case '\\':
        case '_':
        case '*':
            return drop(2);
        case '[': {
            const std::string_view inside = code.substr(1, code.find(']') - 1);
            const bool isTime =
                !inside.empty() && inside.find_first_not_of("hHmMsS") == inside.npos;
            return !isTime && drop(behind(']'));
        }
        default:
            return false;
    }
}

}  // namespace

bool IsBuiltInDateFormat(int number) {
    return std::any_of(kDateFormats.begin(), kDateFormats.end(),
                       [number](const NumberRange& range) {
                           return number >= range.first && number <= range.last;
                       });
}

bool IsDateFormat(std::string_view code) {
    constexpr std::string_view kGeneral = "general";
    constexpr std::string_view kDateLetters = "ymdhsgb";
    while (!code.empty()) {
        if (DropLiteral(code)) continue;
        if (platform::EqualIgnoringCase(code.substr(0, kGeneral.size()), kGeneral)) {
            code.remove_prefix(kGeneral.size());
            continue;
        }
        const char letter = platform::LowerAscii(code.front());
        if (kDateLetters.find(letter) != std::string_view::npos) return true;
        // A year of an era; with a sign behind it an exponent.
        const char next = code.size() > 1 ? code[1] : '\0';
        if (letter == 'e' && next != '+' && next != '-') return true;
        // A day of the week.
        if (platform::EqualIgnoringCase(code.substr(0, 3), "aaa")) return true;
        code.remove_prefix(1);
    }
    return false;
}

DateTime DateOfNumber(std::string_view number, DateSystem system) {
    constexpr std::int64_t kSecondsPerDay = 86'400;
    constexpr std::int64_t kLastDay = 2'958'465;  // 9999-12-31, counted from 1900
    constexpr std::int64_t kNoDay = 60;
    const auto read = Decimal::FromText(number);
    // Digits enough for every second of every day.
    const auto scaled = read ? read->Scaled(9, platform::Rounding::HalfToEven) : std::nullopt;
    if (!scaled || *scaled < 0) return kNoDate;
    constexpr std::int64_t kScale = 1'000'000'000;
    std::int64_t day = *scaled / kScale;
    std::int64_t second = ((*scaled % kScale) * kSecondsPerDay + kScale / 2) / kScale;
    if (second == kSecondsPerDay) {
        second = 0;
        ++day;
    }
    const bool from1900 = system == DateSystem::From1900;
    if (from1900 && (day == 0 || day == kNoDay)) return kNoDate;
    const DateTime origin =
        from1900 ? DateTime{1899, 12, day < kNoDay ? 31 : 30} : DateTime{1904, 1, 1};
    if (day > kLastDay) return kNoDate;
    DateTime date = DateTime::FromDayNumber(origin.DayNumber() + static_cast<long>(day));
    if (!date.IsValid()) return kNoDate;
    date.hour = static_cast<int>(second / 3600);
    date.minute = static_cast<int>(second / 60 % 60);
    date.second = static_cast<int>(second % 60);
    return date;
}

}  // namespace kelvane::tables
