// What a host hands the component: its login and its environment, here those of one operator of one
// account file; and how it looks at the list. The other samples use them, too.
#pragma once

#include <kelvane/kelvane.h>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

class Login : public kelvane::platform::HostLogin {
public:
    explicit Login(std::string account) : mAccount(std::move(account)) {}
    std::string ConnectionString() const override { return "Data Source=" + mAccount; }
    std::string UserId() const override { return "demo"; }
    bool IsExemptFromCenterAuth() const override { return true; }
    int Year() const override { return 2004; }

private:
    std::string mAccount;
};

// The host's surroundings: names for the printed headers, a calendar whose periods are the months,
// and a connection of its own for the component's reference reads.
class Environment : public kelvane::platform::HostEnvironment,
                    private kelvane::platform::HostUnit,
                    private kelvane::platform::HostOperator,
                    private kelvane::platform::HostAccount {
public:
    explicit Environment(std::shared_ptr<kelvane::platform::Connection> connection)
        : mDataAccess(std::move(connection)) {}

    kelvane::platform::HostUnit& Unit() override { return *this; }
    kelvane::platform::HostOperator& Operator() override { return *this; }
    kelvane::platform::HostAccount& Account() override { return *this; }
    kelvane::platform::HostDataAccess& DataAccess() override { return mDataAccess; }
    std::string ModuleSetting(std::string_view, std::string_view) override { return "2004-07-01"; }
    std::string HostPath() const override { return "."; }

private:
    std::string Name() const override { return "示例单位"; }
    int Year() const override { return 2004; }
    kelvane::platform::DateTime YearStart(int year) const override { return {year, 1, 1}; }
    int PeriodOf(const kelvane::platform::DateTime& date) const override { return date.month; }
    kelvane::platform::DateTime PeriodStart(
        const kelvane::platform::DateTime& date) const override {
        return {date.year, date.month, 1};
    }

    kelvane::platform::ConnectionDataAccess mDataAccess;
};

// What the entry list shows. Each control hands itself over as what it is; this one asks the list
// alone.
class EntryCounter : public kelvane::controls::ControlVisitor {
public:
    int entries = 0;
    void Visit(kelvane::controls::Grid& grid) override { entries = grid.Rows() - grid.FixedRows(); }
};
