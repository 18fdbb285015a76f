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

// Its account year is the calendar year.
class TestEnvironment : public platform::HostEnvironment,
                        private platform::HostUnit,
                        private platform::HostOperator,
                        private platform::HostAccount {
public:
    explicit TestEnvironment(platform::HostDataAccess& dataAccess) : mDataAccess(dataAccess) {}

    platform::HostUnit& Unit() override { return *this; }
    platform::HostOperator& Operator() override { return *this; }
    platform::HostAccount& Account() override { return *this; }
    platform::HostDataAccess& DataAccess() override { return mDataAccess; }
    std::string ModuleSetting(std::string_view, std::string_view) override { return {}; }
    std::string HostPath() const override { return "host"; }

private:
    std::string Name() const override { return "测试"; }
    int Year() const override { return 2004; }
    platform::DateTime YearStart(int year) const override { return {year, 1, 1}; }
    int PeriodOf(const platform::DateTime& date) const override { return date.month; }
    platform::DateTime PeriodStart(const platform::DateTime& date) const override {
        return {date.year, date.month, 1};
    }

    platform::HostDataAccess& mDataAccess;
};

}  // namespace kelvane::support
