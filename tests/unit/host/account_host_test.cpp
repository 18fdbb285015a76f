#include "host/account/account_host.h"

#include <gtest/gtest.h>

#include "host/account/account_place.h"
#include "host/creation/account_creation.h"
#include "tests/unit/host/plain_sqlite.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using host::AccountHost;
using host::LoginRequest;
using platform::DateTime;
using platform::HostError;
using platform::StatementText;

class AccountHostTest : public ::testing::Test {
protected:
    void SetUp() override { host::CreateAccountFile(mPath, {.sample = true}); }

    AccountHost LogIn(const LoginRequest& request = {}) const {
        return AccountHost(
            {host::NewConnection, host::ConnectionStringOf(mPath.string()), "/opt/kelvane"},
            request);
    }

    std::string Refusal(const LoginRequest& request) const {
        try {
            LogIn(request);
        } catch (const HostError& refused) {
            return refused.what();
        }
        return "accepted";
    }

    TemporaryFolder mFolder;
    std::filesystem::path mPath = mFolder / "账套;1";
};

constexpr DateTime Day(int year, int month, int day) {
    return {.year = year, .month = month, .day = day};
}

TEST_F(AccountHostTest, TheUsualOperatorLogsInIntoTheUsualYear) {
    auto host = LogIn();
    EXPECT_EQ(host.Login().UserId(), "demo");
    EXPECT_TRUE(host.Login().IsExemptFromCenterAuth());
    EXPECT_EQ(host.Login().Year(), 2004);
    EXPECT_EQ(host.Login().ConnectionString(), host::ConnectionStringOf(mPath.string()));
    EXPECT_EQ(host.Environment().Unit().Name(), "华远建设集团有限公司");
    EXPECT_EQ(host.Environment().Operator().Name(), "演示用户");
    EXPECT_EQ(host.Environment().Account().Year(), 2004);
    EXPECT_EQ(host.Environment().HostPath(), "/opt/kelvane");
}

TEST_F(AccountHostTest, ARequestGoesBeforeTheAccount) {
    auto host = LogIn({.user = "ZHANG", .year = 2005});
    EXPECT_EQ(host.Login().UserId(), "zhang");
    EXPECT_FALSE(host.Login().IsExemptFromCenterAuth());
    EXPECT_EQ(host.Login().Year(), 2005);
    EXPECT_EQ(host.Environment().Operator().Name(), "张会计");
    EXPECT_EQ(host.Environment().Account().Year(), 2005);
    EXPECT_TRUE(LogIn({.user = "zhang", .exempt = true}).Login().IsExemptFromCenterAuth());
    EXPECT_FALSE(LogIn({.exempt = false}).Login().IsExemptFromCenterAuth());
}

TEST_F(AccountHostTest, AnUnknownOperatorOrYearIsRefused) {
    EXPECT_EQ(Refusal({.user = "wang"}), "帐套中没有操作员 wang");
    EXPECT_EQ(Refusal({.user = "o'brien"}), "帐套中没有操作员 o'brien");
    EXPECT_EQ(Refusal({.year = 1999}), "帐套中没有 1999 年度的会计期间");
}

TEST_F(AccountHostTest, AMissingAccountIsRefused) {
    std::filesystem::remove(mPath);
    EXPECT_THROW(LogIn(), platform::DatabaseError);
    EXPECT_FALSE(std::filesystem::exists(mPath));
}

TEST_F(AccountHostTest, TheCalendarAnswers) {
    auto host = LogIn();
    auto& account = host.Environment().Account();
    EXPECT_EQ(account.YearStart(2004), Day(2004, 1, 1));
    EXPECT_EQ(account.YearStart(2006), Day(2006, 1, 1));
    EXPECT_EQ(account.PeriodOf(Day(2004, 2, 29)), 2);
    EXPECT_EQ(account.PeriodOf(Day(2004, 12, 31)), 12);
    EXPECT_EQ(account.PeriodStart(Day(2004, 7, 31)), Day(2004, 7, 1));
    DateTime evening = Day(2004, 7, 31);
    evening.hour = 23;
    EXPECT_EQ(account.PeriodOf(evening), 7);
    EXPECT_THROW(account.YearStart(2007), HostError);
    EXPECT_THROW(account.PeriodOf(Day(2007, 1, 1)), HostError);
    EXPECT_THROW(account.PeriodStart(Day(2002, 12, 31)), HostError);
}

TEST_F(AccountHostTest, ACalendarNeedsNoMonths) {
    PlainSqlite(mPath).Rows(
        "update Host_Period set dStart = '2004-06-26 00:00:00.000' where iYear = 2004 and "
        "iPeriod = 7");
    PlainSqlite(mPath).Rows(
        "update Host_Period set dEnd = '2004-06-25 00:00:00.000' where iYear = 2004 and "
        "iPeriod = 6");
    auto host = LogIn();
    EXPECT_EQ(host.Environment().Account().PeriodOf(Day(2004, 6, 26)), 7);
    EXPECT_EQ(host.Environment().Account().PeriodStart(Day(2004, 7, 1)), Day(2004, 6, 26));
}

TEST_F(AccountHostTest, ModuleSettingsComeFromTheHostFirst) {
    auto host = LogIn();
    auto& environment = host.Environment();
    EXPECT_EQ(environment.ModuleSetting("PM", "dPMStartDatePeriod"), "2004-07-01");
    EXPECT_EQ(environment.ModuleSetting("GL", "dPMStartDatePeriod"), "");
    PlainSqlite(mPath).Rows(
        "insert into Host_Setting values ('PM', 'dPMStartDatePeriod', '2005-01-01')");
    EXPECT_EQ(environment.ModuleSetting("PM", "dPMStartDatePeriod"), "2005-01-01");
}

class CountingAccess : public platform::HostDataAccess {
public:
    explicit CountingAccess(platform::HostDataAccess& inner) : mInner(inner) {}
    int count = 0;

protected:
    std::unique_ptr<platform::RecordSet> DoQuery(const std::string& statement,
                                                 int option) override {
        ++count;
        return ForwardQuery(mInner, statement, option);
    }

private:
    platform::HostDataAccess& mInner;
};

TEST_F(AccountHostTest, TheDataAccessReadsTheAccountAndCanBeObserved) {
    auto host = LogIn();
    auto& environment = host.Environment();
    const StatementText statement(
        "select cCenterName from PM_DutyCenter where cCenterCode = 'd02'");
    EXPECT_EQ(environment.DataAccess().Query(statement)->Field("CCENTERNAME").ToText(), "工程二部");
    CountingAccess observer(environment.DataAccess());
    environment.SetDataAccess(observer);
    EXPECT_EQ(environment.DataAccess().Query(statement)->RecordCount(), 1);
    EXPECT_EQ(observer.count, 1);
    EXPECT_THROW(environment.DataAccess().Query(StatementText("select * from missing")),
                 platform::DatabaseError);
}

}  // namespace
}  // namespace kelvane::host_test
