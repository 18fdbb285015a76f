#include "component/period_item.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <thread>

#include "data/login_context.h"
#include "platform/connection_wrapper.h"
#include "tests/support/embedded_account.h"
#include "tests/support/login_context_reset.h"
#include "tests/support/recording_registry.h"
#include "tests/support/recording_windows.h"
#include "tests/support/test_host.h"

namespace kelvane::component {
namespace {

using namespace data;
using testing::ElementsAre;
using testing::IsEmpty;

// A connection in front of the embedded one that keeps what is asked of it, in order.
class TracedConnection : public platform::ConnectionWrapper {
public:
    explicit TracedConnection(std::vector<std::string>& trace)
        : ConnectionWrapper(sqlite::CreateConnection()), mTrace(trace) {}

    void SetConnectionString(std::string_view text) override {
        Note("string " + std::string(text));
        ConnectionWrapper::SetConnectionString(text);
    }
    void SetCursorLocation(platform::CursorLocation location) override {
        Note("cursors " + std::to_string(static_cast<int>(location)));
        ConnectionWrapper::SetCursorLocation(location);
    }
    void Open(std::string_view user, std::string_view password, int options) override {
        Note("open <" + std::string(user) + "> <" + std::string(password) + "> " +
             std::to_string(options));
        ConnectionWrapper::Open(user, password, options);
    }
    void Close() override {
        Note("close");
        ConnectionWrapper::Close();
    }

protected:
    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override {
        Note(statement);
        return ConnectionWrapper::DoOpenRecordSet(statement, options);
    }

private:
    void Note(const std::string& line) { mTrace.push_back(line); }

    std::vector<std::string>& mTrace;
};

// Keeps the forms that are shown, with what stands in gToday then.
class ShowingWindows : public support::RecordingWindows {
public:
    std::vector<std::string> shown;
    // Done while a form is shown.
    std::function<void()> meanwhile;
    void ShowModal(platform::Window& window) override {
        shown.push_back(window.Name() + " " + gToday);
        if (meanwhile) meanwhile();
    }
};

// What a call throws of one kind.
template <typename Error>
std::string RefusalOf(const std::function<void()>& call) {
    try {
        call();
    } catch (const Error& refusal) {
        return refusal.what();
    }
    return "(not refused)";
}

constexpr const char* kNumPoints =
    "select cname, cValue from PM_SettingInf  where cName like 'NumPoint%' ";

class PeriodItemTest : public testing::Test {
protected:
    PeriodItemTest() : account(Name()) {
        services.windows = &windows;
        services.registry = &registry;
        services.createConnection = [this] {
            ++connections;
            return std::make_shared<TracedConnection>(trace);
        };
        services.today = [this] { return today; };
        login.connectionString = account.ConnectionString();
        for (const platform::FixedText& statement : kSettings) {
            account.Connect()->Execute(statement);
        }
    }
    ~PeriodItemTest() override { support::ResetLoginContext(); }

    static std::string Name() {
        return std::string("PeriodItemTest_") +
               testing::UnitTest::GetInstance()->current_test_info()->name();
    }

    static inline const std::vector<platform::FixedText> kSettings{
        "insert into PM_SettingInf values('NumPoint_Num','3')",
        "insert into PM_SettingInf values('NumPoint_Price','4')"};

    support::EmbeddedAccount account;
    std::vector<std::string> trace;
    int connections = 0;
    platform::DateTime today{2004, 7, 9, 15, 30};
    ShowingWindows windows;
    support::RecordingRegistry registry;
    support::TestLogin login;
    platform::ConnectionDataAccess dataAccess{account.Connect()};
    support::TestEnvironment environment{dataAccess};
    platform::Services services;
};

TEST_F(PeriodItemTest, InitFillsTheLoginContext) {
    PeriodItem item(services);
    environment.accountYear = 2011;
    EXPECT_TRUE(item.Init(login, environment, "C:\\Kx"));
    EXPECT_EQ(gLogin, &login);
    EXPECT_EQ(gEnv, &environment);
    EXPECT_EQ(gUnitName, "测试");
    EXPECT_EQ(gOperatorName, "测试");
    EXPECT_EQ(gAccountYear, "2011");
    EXPECT_EQ(gPrintStylePath, "C:\\Kx\\printStyle\\");
    EXPECT_EQ(gColorWhite, 0xFFFFFFU);
    EXPECT_EQ(gColorLocked, 205U + 256U * 208U + 65536U * 215U);
    EXPECT_EQ(gColorPink, 247U + 256U * 237U + 65536U * 236U);
    EXPECT_EQ(gColorCream, 238U + 256U * 238U + 65536U * 214U);
    EXPECT_EQ(gNumPointQty, 3);
    EXPECT_EQ(gNumPointPrice, 4);
    EXPECT_EQ(gNumPointRate, 0);
    EXPECT_EQ(gNumPointMoney, 2);
}

TEST_F(PeriodItemTest, InitOpensTheConnectionBeforeItReadsTheSettings) {
    PeriodItem item(services);
    item.Init(login, environment, "");
    EXPECT_EQ(connections, 1);
    EXPECT_THAT(trace, ElementsAre("string " + login.connectionString, "cursors 3", "open <> <> -1",
                                   kNumPoints));
    EXPECT_EQ(gPrintStylePath, "\\printStyle\\");
}

TEST_F(PeriodItemTest, ASecondInitReconnectsWithTheNewLogin) {
    PeriodItem item(services);
    item.Init(login, environment, "");
    const auto connection = gConn;
    trace.clear();

    const support::EmbeddedAccount other(Name() + "_other");
    support::TestLogin second;
    second.connectionString = other.ConnectionString();
    platform::ConnectionDataAccess otherAccess{other.Connect()};
    support::TestEnvironment otherEnvironment{otherAccess};
    otherEnvironment.accountYear = 2005;
    EXPECT_TRUE(item.Init(second, otherEnvironment, "D:"));
    EXPECT_THAT(trace, ElementsAre("close", "string " + second.connectionString, "cursors 3",
                                   "open <> <> -1", kNumPoints));
    EXPECT_EQ(connections, 1);
    EXPECT_EQ(gConn, connection);
    EXPECT_EQ(gConn->State() & platform::kStateOpen, platform::kStateOpen);
    EXPECT_EQ(gLogin, &second);
    EXPECT_EQ(gEnv, &otherEnvironment);
    EXPECT_EQ(gAccountYear, "2005");
    EXPECT_EQ(gPrintStylePath, "D:\\printStyle\\");
    // What the new account does not have keeps the value of before.
    EXPECT_EQ(gNumPointPrice, 4);
    gConn->Close();
}

TEST_F(PeriodItemTest, AConnectionThatDoesNotOpenIsTheHostsError) {
    PeriodItem item(services);
    login.connectionString = "Data Source=\"" + account.Path() + ".gone\"";
    EXPECT_THROW(item.Init(login, environment, ""), platform::DatabaseError);
    EXPECT_EQ(gEnv, nullptr);
    EXPECT_THROW(item.Show(), std::logic_error);
    EXPECT_THAT(windows.shown, IsEmpty());
}

TEST_F(PeriodItemTest, AHostPropertyThatFailsIsTheHostsError) {
    PeriodItem item(services);
    environment.fails = true;
    EXPECT_THROW(item.Init(login, environment, "C:"), platform::HostError);
    EXPECT_EQ(gPrintStylePath, "");
    // The connection stands; the next attempt closes it first.
    trace.clear();
    environment.fails = false;
    EXPECT_TRUE(item.Init(login, environment, "C:"));
    EXPECT_THAT(trace, ElementsAre("close", "string " + login.connectionString, "cursors 3",
                                   "open <> <> -1", kNumPoints));
}

TEST_F(PeriodItemTest, AnInitThatFailsTakesTheLoginBeforeAway) {
    PeriodItem item(services);
    item.Init(login, environment, "");
    environment.fails = true;
    EXPECT_THROW(item.Init(login, environment, ""), platform::HostError);
    EXPECT_THROW(item.Show(), std::logic_error);
    EXPECT_THAT(windows.shown, IsEmpty());
}

TEST_F(PeriodItemTest, SettingsThatCannotBeReadAreNoErrorOfInit) {
    PeriodItem item(services);
    auto tables = support::EmbeddedTables();
    std::erase_if(tables, [](const auto& table) { return table.name == "PM_SettingInf"; });
    const support::EmbeddedAccount without(Name() + "_without", tables);
    login.connectionString = without.ConnectionString();
    EXPECT_TRUE(item.Init(login, environment, ""));
    EXPECT_TRUE(gNumPointsFailed);
    EXPECT_EQ(gNumPointMoney, 2);
    EXPECT_EQ(gUnitName, "测试");
    gConn->Close();
}

TEST_F(PeriodItemTest, ShowNeedsAnInit) {
    PeriodItem item(services);
    EXPECT_THROW(item.Show(), std::logic_error);
    EXPECT_THAT(windows.shown, IsEmpty());
    EXPECT_EQ(gToday, "");
}

TEST_F(PeriodItemTest, ShowStampsTheDayEachTimeAndOpensTheList) {
    PeriodItem item(services);
    item.Init(login, environment, "");
    item.Show();
    today = {2005, 12, 31};
    item.Show();
    EXPECT_THAT(windows.shown, ElementsAre("frmPeriodItem 2004.07.09", "frmPeriodItem 2005.12.31"));
}

TEST_F(PeriodItemTest, NamesTheServiceThatIsMissing) {
    const auto initWithout = [this](void (*takeAway)(platform::Services&)) {
        platform::Services incomplete = services;
        takeAway(incomplete);
        PeriodItem item(incomplete);
        return RefusalOf<platform::MissingService>([&] { item.Init(login, environment, ""); });
    };
    const std::string end = " is missing: the component cannot work without it";
    EXPECT_EQ(initWithout([](auto& given) { given.windows = nullptr; }), "Services::windows" + end);
    EXPECT_EQ(initWithout([](auto& given) { given.registry = nullptr; }),
              "Services::registry" + end);
    EXPECT_EQ(initWithout([](auto& given) { given.createConnection = nullptr; }),
              "Services::createConnection" + end);
    EXPECT_EQ(initWithout([](auto& given) { given.today = nullptr; }), "Services::today" + end);
    EXPECT_EQ(initWithout([](auto& given) {
                  given.createPrintControl = [] { return nullptr; };
                  given.createPrintStyle = [] { return nullptr; };
              }),
              "Services::createXmlDocument" + end);
    EXPECT_EQ(initWithout([](auto& given) { given.createConnection = [] { return nullptr; }; }),
              "Services::createConnection gave no connection");
    EXPECT_THAT(trace, IsEmpty());
}

TEST_F(PeriodItemTest, ShowNamesAServiceThatWasTakenAway) {
    PeriodItem item(services);
    item.Init(login, environment, "");
    services.windows = nullptr;
    EXPECT_THROW(item.Show(), platform::MissingService);
}

TEST_F(PeriodItemTest, CloseEndsTheLoginAndKeepsItsValues) {
    PeriodItem item(services);
    item.Init(login, environment, "C:");
    const auto connection = gConn;
    item.Close();
    EXPECT_EQ(connection->State() & platform::kStateOpen, 0);
    EXPECT_EQ(gConn, nullptr);
    EXPECT_EQ(gLogin, nullptr);
    EXPECT_EQ(gEnv, nullptr);
    EXPECT_EQ(gServices, nullptr);
    EXPECT_EQ(gUnitName, "测试");
    EXPECT_EQ(gPrintStylePath, "C:\\printStyle\\");
    EXPECT_THROW(item.Show(), platform::CallOrderError);
    item.Close();
    EXPECT_TRUE(item.Init(login, environment, ""));
    item.Show();
    EXPECT_EQ(windows.shown.size(), 1U);
}

TEST_F(PeriodItemTest, AnObjectThatGoesClosesItself) {
    std::shared_ptr<platform::Connection> connection;
    {
        PeriodItem item(services);
        item.Init(login, environment, "");
        connection = gConn;
    }
    EXPECT_EQ(connection->State() & platform::kStateOpen, 0);
    EXPECT_EQ(gConn, nullptr);
    EXPECT_EQ(gServices, nullptr);
}

TEST_F(PeriodItemTest, ASecondObjectDoesNotTakeTheFirstOnesWindows) {
    PeriodItem first(services);
    first.Init(login, environment, "");
    ShowingWindows otherWindows;
    platform::Services otherServices = services;
    otherServices.windows = &otherWindows;
    {
        PeriodItem second(otherServices);
        EXPECT_EQ(gServices, &services);
        first.Show();
        EXPECT_EQ(windows.shown.size(), 1U);
        // The context is the process's: the login is the second one's now, the windows are not.
        support::TestLogin secondLogin;
        secondLogin.connectionString = login.connectionString;
        second.Init(secondLogin, environment, "");
        const auto* shownWith = gServices;
        windows.meanwhile = [&] { shownWith = gServices; };
        first.Show();
        EXPECT_EQ(gLogin, &secondLogin);
        EXPECT_EQ(shownWith, &services);
        EXPECT_EQ(gServices, &otherServices);
        EXPECT_EQ(windows.shown.size(), 2U);
        EXPECT_THAT(otherWindows.shown, IsEmpty());
    }
    // With the second one its login went.
    EXPECT_THROW(first.Show(), platform::CallOrderError);
    EXPECT_TRUE(first.Init(login, environment, ""));
    first.Show();
    EXPECT_EQ(windows.shown.size(), 3U);
}

TEST_F(PeriodItemTest, AnotherObjectsGoingLeavesTheLoginAlone) {
    PeriodItem first(services);
    {
        PeriodItem second(services);
        second.Init(login, environment, "");
        first.Init(login, environment, "");
    }
    EXPECT_EQ(gLogin, &login);
    first.Show();
    EXPECT_EQ(windows.shown.size(), 1U);
}

TEST_F(PeriodItemTest, AnotherObjectsServicesMakeAConnectionOfTheirOwn) {
    PeriodItem first(services);
    first.Init(login, environment, "");
    const auto connection = gConn;
    platform::Services otherServices = services;
    PeriodItem second(otherServices);
    second.Init(login, environment, "");
    EXPECT_EQ(connections, 2);
    EXPECT_EQ(connection->State() & platform::kStateOpen, 0);
}

TEST_F(PeriodItemTest, OneWindowIsShownAtATime) {
    PeriodItem first(services);
    first.Init(login, environment, "");
    PeriodItem second(services);
    std::vector<std::string> refusals;
    windows.meanwhile = [&] {
        const std::function<void()> calls[] = {[&] { second.Init(login, environment, ""); },
                                               [&] { second.Show(); }, [&] { first.Show(); },
                                               [&] { first.Close(); }};
        for (const auto& call : calls) {
            refusals.push_back(RefusalOf<platform::CallOrderError>(call));
        }
    };
    first.Show();
    EXPECT_THAT(refusals, ElementsAre("Init cannot be called while a window is shown",
                                      "Show cannot be called while a window is shown",
                                      "Show cannot be called while a window is shown",
                                      "Close cannot be called while a window is shown"));
    EXPECT_EQ(windows.shown.size(), 1U);
    EXPECT_EQ(gConn->State() & platform::kStateOpen, platform::kStateOpen);
}

TEST_F(PeriodItemTest, RefusesAnotherThread) {
    PeriodItem item(services);
    item.Init(login, environment, "");
    trace.clear();
    std::vector<std::string> refusals;
    std::thread([&] {
        PeriodItem elsewhere(services);
        const std::function<void()> calls[] = {[&] { item.Init(login, environment, ""); },
                                               [&] { item.Show(); }, [&] { item.Close(); },
                                               [&] { elsewhere.Init(login, environment, ""); }};
        for (const auto& call : calls) refusals.push_back(RefusalOf<platform::WrongThread>(call));
    }).join();
    const std::string end = " has to be called on the thread that the component belongs to";
    EXPECT_THAT(refusals, ElementsAre("Init" + end, "Show" + end, "Close" + end, "Init" + end));
    EXPECT_THAT(trace, IsEmpty());
    EXPECT_THAT(windows.shown, IsEmpty());
    item.Show();
    EXPECT_EQ(windows.shown.size(), 1U);
}

}  // namespace
}  // namespace kelvane::component
