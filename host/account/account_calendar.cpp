#include "host/account/account_calendar.h"

#include <algorithm>

#include "platform/host.h"
#include "platform/statement_text.h"

namespace kelvane::host {

namespace {

using platform::DateTime;

constexpr int kMonths = 12;

}  // namespace

AccountCalendar AccountCalendar::Load(platform::Connection& connection) {
    const auto rows = connection.OpenRecordSet(platform::StatementText(
        "select iYear,iPeriod,dStart,dEnd from Host_Period order by iYear,iPeriod"));
    std::vector<Period> periods;
    for (; !rows->EndOfFile(); rows->MoveNext()) {
        periods.push_back({static_cast<int>(rows->Field(0).ToInteger()),
                           static_cast<int>(rows->Field(1).ToInteger()),
                           rows->Field(2).ToDateTime(), rows->Field(3).ToDateTime()});
    }
    return AccountCalendar(std::move(periods));
}

DateTime AccountCalendar::YearStart(int year) const {
    const auto first = std::ranges::find(mPeriods, year, &Period::year);
    if (first == mPeriods.end()) {
        throw platform::HostError("帐套中没有 " + std::to_string(year) + " 年度的会计期间");
    }
    return first->start;
}

const Period& AccountCalendar::PeriodOf(const DateTime& date) const {
    const long day = date.DayNumber();
    const auto period = std::ranges::find_if(mPeriods, [day](const Period& candidate) {
        return candidate.start.DayNumber() <= day && day <= candidate.end.DayNumber();
    });
    if (period == mPeriods.end()) {
        throw platform::HostError("帐套中没有包括 " + date.DateText() + " 的会计期间");
    }
    return *period;
}

std::vector<Period> MonthlyPeriods(int year) {
    std::vector<Period> periods;
    for (int month = 1; month <= kMonths; ++month) {
        const DateTime next = DateTime::FromSerial(year, month + 1, 1);
        periods.push_back({year, month, DateTime::FromSerial(year, month, 1), next.AddDays(-1)});
    }
    return periods;
}

}  // namespace kelvane::host
