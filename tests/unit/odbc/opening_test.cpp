// Opening a connection, and what is said of it.
#include "adapters/odbc/diagnostics.h"
#include "tests/unit/odbc/server_fixture.h"

namespace kelvane::odbc {
namespace {

using platform::DatabaseError;

class Opening : public ServerTest {
protected:
    std::string FailureOf(const std::string& script) {
        return TextOf<DatabaseError>([&] { Open(script); });
    }
};

TEST_F(Opening, HandsTheStringToTheDriver) {
    mMore = ";Server=127.0.0.1;Port=1433;UID=sa;PWD={a;b}}};ClientCharset=UTF-8";
    Open("");
    EXPECT_EQ(Driver().Log(), "login timeout 15\nconnect " + Driver().ConnectionString() + mMore +
                                  ";\nquery timeout 60\nrun set lock_timeout 5000\n");
    EXPECT_EQ(Server().State(), platform::kStateOpen);
    EXPECT_EQ(Server().Engine(), DatabaseEngine::SqlServer);
    Server().Close();
    EXPECT_EQ(Log(), "disconnect\n");
    EXPECT_EQ(Server().State(), 0);
}

TEST_F(Opening, TakesTheLoginFromItsArguments) {
    mMore = ";UID=old";
    mUser = "new";
    mPassword = "a;b}";
    Open("");
    EXPECT_EQ(Driver().Log(), "login timeout 15\nconnect " + Driver().ConnectionString() +
                                  ";UID=new;PWD={a;b}}};\nquery timeout 60\n"
                                  "run set lock_timeout 5000\n");
}

TEST_F(Opening, TakesThePasswordFromItsSettingsUnlessItIsGivenOne) {
    const OdbcSettings settings{.keys = {},
                                .password = std::make_shared<const database::Secret>("a;b}")};
    mMore = ";UID=k";
    Open("", settings);
    EXPECT_THAT(Driver().Log(), testing::HasSubstr(";UID=k;PWD={a;b}}};\n"));
    mPassword = "given";
    Open("run x\nerror 42000 1 given is no statement", settings);
    EXPECT_THAT(Driver().Log(), testing::HasSubstr(";UID=k;PWD=given;\n"));
    EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("x"); }), "*** is no statement");
}

TEST_F(Opening, HasTimeOutsAsSettings) {
    Open("", {.connectTimeout = 3, .queryTimeout = 7, .lockTimeout = 50, .keys = {}});
    EXPECT_EQ(Driver().Log(), "login timeout 3\nconnect " + Driver().ConnectionString() +
                                  ";\nquery timeout 7\nrun set lock_timeout 50\n");
}

TEST_F(Opening, DoesWithoutLockTimeOuts) {
    Driver().Play("run set lock_timeout 5000\nerror 42000 195 unknown option");
    OdbcConnection connection;
    connection.SetConnectionString(Driver().ConnectionString());
    EXPECT_NO_THROW(connection.Open("", "", -1));
}

TEST_F(Opening, FailsWithTheServersWords) {
    EXPECT_EQ(FailureOf("refuse 28000 18456 [Own][Driver][Engine]Login failed for user 'sa'."),
              "无法连接数据库服务器（Login failed for user 'sa'.）");
}

TEST_F(Opening, NeverShowsThePassword) {
    mMore = ";UID=sa;PWD={a;b}}c}";
    const std::string string = Driver().ConnectionString() + mMore;
    EXPECT_EQ(FailureOf("refuse 08001 17 Cannot open [" + string + "] with {a;b}}c} or a;b}c"),
              "无法连接数据库服务器（Cannot open [***] with *** or ***）");
    mMore = "";
    mPassword = "open sesame";
    EXPECT_EQ(FailureOf("refuse 28000 18456 bad password open sesame"),
              "无法连接数据库服务器（bad password ***）");
}

TEST_F(Opening, NeverShowsThePasswordLater) {
    mPassword = "open sesame";
    Open("run x\nerror 42000 1 open sesame is no statement");
    EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("x"); }), "*** is no statement");
}

TEST_F(Opening, NamesADriverThatIsNotThere) {
    OdbcConnection connection;
    connection.SetConnectionString("Driver=/nowhere/libnothing.so;PWD=hidden");
    const std::string text = TextOf<DatabaseError>([&] { connection.Open("", "", -1); });
    EXPECT_THAT(text, testing::StartsWith("无法连接数据库服务器（"));
    EXPECT_THAT(text, testing::HasSubstr("/nowhere/libnothing.so"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("hidden")));
    EXPECT_EQ(connection.State(), 0);
    EXPECT_THROW(connection.Engine(), DatabaseError);
}

TEST_F(Opening, IsRefusedTwice) {
    Open("");
    EXPECT_EQ(TextOf<DatabaseError>([&] { Server().Open("", "", -1); }),
              "The connection is open already.");
    Server().Close();
    EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("x"); }),
              "Operation is not allowed when the connection is closed.");
    Server().Open("", "", -1);
    EXPECT_EQ(Server().State(), platform::kStateOpen);
}

TEST(DriverTexts, LoseTheNamesBeforeThem) {
    EXPECT_EQ(WithoutPrefixes("[unixODBC][FreeTDS][SQL Server]Login failed.\n"), "Login failed.");
    EXPECT_EQ(WithoutPrefixes("plain [x]"), "plain [x]");
    EXPECT_EQ(WithoutPrefixes("[open"), "[open");
}

}  // namespace
}  // namespace kelvane::odbc
