// A host as a test wants it: its answers are plain members.
#pragma once

#include <string>
#include <string_view>

#include "platform/host.h"

namespace kelvane::support {

class TestLogin : public platform::HostLogin {
public:
    std::string connectionString;
    std::string userId = "demo";
    bool exempt = false;
    int year = 2004;

    std::string ConnectionString() const override { return connectionString; }
    std::string UserId() const override { return userId; }
    bool IsExemptFromCenterAuth() const override { return exempt; }
    int Year() const override { return year; }
};

// Its periods are numbered by the calendar's months and begin on `periodDay` of a month; with any
// other day than the first, the account year begins in December of the year before.
class TestEnvironment : public platform::HostEnvironment,
                        private platform::HostUnit,
                        private platform::HostOperator,
                        private platform::HostAccount {
public:
    explicit TestEnvironment(platform::HostDataAccess& dataAccess) : mDataAccess(dataAccess) {}

    int accountYear = 2004;
    int periodDay = 1;
    // The module setting "dPMStartDatePeriod" of "PM".
    std::string startPeriod;
    std::string hostPath = "host";
    bool hostPathFails = false;
    // The calendar and the unit cannot be asked.
    bool fails = false;

    platform::HostUnit& Unit() override { return *this; }
    platform::HostOperator& Operator() override { return *this; }
    platform::HostAccount& Account() override { return *this; }
    platform::HostDataAccess& DataAccess() override { return mDataAccess; }
    std::string ModuleSetting(std::string_view module, std::string_view name) override {
        return module == "PM" && name == "dPMStartDatePeriod" ? startPeriod : std::string();
    }
    std::string HostPath() const override {
        if (hostPathFails) throw platform::HostError("模拟的宿主错误");
        return hostPath;
    }

private:
    std::string Name() const override {
        Answer();
        return "测试";
    }
    int Year() const override { return accountYear; }
    platform::DateTime YearStart(int year) const override { return PeriodStart({year, 1, 1}); }
    int PeriodOf(const platform::DateTime& date) const override {
        Answer();
        return date.month;
    }
    platform::DateTime PeriodStart(const platform::DateTime& date) const override {
        Answer();
        const int month = date.day >= periodDay ? date.month : date.month - 1;
        return platform::DateTime::FromSerial(date.year, month, periodDay);
    }
    void Answer() const {
        if (fails) throw platform::HostError("模拟的宿主错误");
    }

    platform::HostDataAccess& mDataAccess;
};

}  // namespace kelvane::support
