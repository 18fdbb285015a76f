// The surroundings that the component asks: unit, operator, account, settings, and the host's own
// way to the account database.
#pragma once

#include <memory>
#include <string>

#include "host/account/account_calendar.h"
#include "platform/database.h"
#include "platform/host.h"

namespace kelvane::host {

struct Surroundings {
    std::shared_ptr<platform::Connection> connection;  // open
    AccountCalendar calendar;
    std::string unitName;
    std::string operatorName;
    int year = 0;
    std::string hostPath;
};

// A setting of module `module` in the account: the host's own when it has one, else the module's;
// empty text when neither is there. Throws platform::DatabaseError.
std::string ReadSetting(platform::Connection& connection, std::string_view module,
                        std::string_view name);

class AccountEnvironment : public platform::HostEnvironment {
public:
    explicit AccountEnvironment(Surroundings surroundings);

    // From now on this environment answers with `observer`, which stands in front of its data
    // access and outlives it.
    void SetDataAccess(platform::HostDataAccess& observer) { mDataAccess = &observer; }

    platform::HostUnit& Unit() override { return mUnit; }
    platform::HostOperator& Operator() override { return mOperator; }
    platform::HostAccount& Account() override { return mAccount; }
    platform::HostDataAccess& DataAccess() override { return *mDataAccess; }
    std::string ModuleSetting(std::string_view module, std::string_view name) override;
    std::string HostPath() const override { return mHostPath; }

private:
    struct NamedUnit : platform::HostUnit {
        std::string Name() const override { return name; }
        std::string name;
    };
    struct NamedOperator : platform::HostOperator {
        std::string Name() const override { return name; }
        std::string name;
    };
    struct CalendarAccount : platform::HostAccount {
        int Year() const override { return year; }
        platform::DateTime YearStart(int of) const override { return calendar.YearStart(of); }
        int PeriodOf(const platform::DateTime& date) const override {
            return calendar.PeriodOf(date).number;
        }
        platform::DateTime PeriodStart(const platform::DateTime& date) const override {
            return calendar.PeriodOf(date).start;
        }
        AccountCalendar calendar;
        int year = 0;
    };
    NamedUnit mUnit;
    NamedOperator mOperator;
    CalendarAccount mAccount;
    std::shared_ptr<platform::Connection> mConnection;
    platform::ConnectionDataAccess mConnectedAccess;
    platform::HostDataAccess* mDataAccess = &mConnectedAccess;
    std::string mHostPath;
};

}  // namespace kelvane::host
