// DateTime: a date of the proleptic Gregorian calendar with a time of day, as the account database
// stores it. A plain value; it knows no time zone.
#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace kelvane::platform {

struct DateTime {
    int year = 1900;
    int month = 1;
    int day = 1;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): a false alarm on defaulted comparisons.
    friend constexpr auto operator<=>(const DateTime&, const DateTime&) = default;

    // True when the fields name a day that exists, year 1 to 9999.
    bool IsValid() const;

    // Day count since 1970-01-01 of the date part; negative before it.
    long DayNumber() const;
    // The midnight that is `dayNumber` days after 1970-01-01.
    static DateTime FromDayNumber(long dayNumber);

    // Date-serial arithmetic: a month or day out of range rolls over (2023, 2, 30 is 2023-03-02).
    static DateTime FromSerial(int year, int month, int day);

    // This date moved by `days`, the time of day kept.
    DateTime AddDays(long days) const;

    // "yyyy-mm-dd" with `separator` between the fields; four-digit year.
    std::string DateText(char separator = '-') const;
    // "yyyy-mm-dd hh:mm:ss.mmm".
    std::string FullText() const;

    // Reads "yyyy-mm-dd", "yyyy/m/d", "yyyy.m.d" or "yyyymmdd", optionally followed by a blank or
    // "T" and "hh:mm[:ss[.mmm]]". Returns false, and leaves `result` alone, for anything else or
    // for a day that does not exist.
    static bool Parse(std::string_view text, DateTime& result);
};

}  // namespace kelvane::platform
