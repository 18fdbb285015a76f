// The account's calendar: its years and their periods.
#pragma once

#include <vector>

#include "platform/database.h"
#include "platform/date_time.h"

namespace kelvane::host {

struct Period {
    int year;
    int number;
    platform::DateTime start;
    platform::DateTime end;  // its last day
};

class AccountCalendar {
public:
    AccountCalendar() = default;
    // `periods`: by year and number.
    explicit AccountCalendar(std::vector<Period> periods) : mPeriods(std::move(periods)) {}

    // Reads the table Host_Period. Throws platform::DatabaseError.
    static AccountCalendar Load(platform::Connection& connection);

    // Each throws platform::HostError for a year or a date that no period covers.
    platform::DateTime YearStart(int year) const;
    const Period& PeriodOf(const platform::DateTime& date) const;

private:
    std::vector<Period> mPeriods;
};

// The periods of calendar year `year`: its twelve months.
std::vector<Period> MonthlyPeriods(int year);

}  // namespace kelvane::host
