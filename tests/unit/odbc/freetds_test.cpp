// The distribution's driver for SQL Server's protocol, as it is, against a server that plays.
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>

#include "tests/unit/odbc/server_fixture.h"

namespace kelvane::odbc {
namespace {

using platform::CommitInDoubt;
using platform::ConnectionLost;
using platform::DatabaseBusy;
using platform::DatabaseError;
using platform::DateTime;
using platform::LockType;
using platform::Money;
using platform::Value;

// The server's program, whose standard input keeps it running.
class TdsServer {
public:
    // `password`: the one that logs in; null: any does.
    explicit TdsServer(const char* password = nullptr) {
        std::array<int, 2> toServer{};
        std::array<int, 2> fromServer{};
        if (pipe(toServer.data()) != 0 || pipe(fromServer.data()) != 0) throw std::bad_alloc();
        mProcess = fork();
        if (mProcess == 0) {
            dup2(toServer[0], STDIN_FILENO);
            dup2(fromServer[1], STDOUT_FILENO);
            for (const int end : {toServer[0], toServer[1], fromServer[0], fromServer[1]}) {
                close(end);
            }
            execlp("python3", "python3", KELVANE_TDS_SERVER, password, nullptr);
            _exit(127);
        }
        close(toServer[0]);
        close(fromServer[1]);
        mInput = toServer[1];
        mOutput = fdopen(fromServer[0], "r");
        mPort = ReadLine();
    }
    ~TdsServer() {
        close(mInput);
        waitpid(mProcess, nullptr, 0);
        std::fclose(mOutput);
    }
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;

    const std::string& Port() const { return mPort; }

    std::string ReadLine() {
        std::string line;
        for (int c = std::fgetc(mOutput); c != EOF && c != '\n'; c = std::fgetc(mOutput)) {
            line += static_cast<char>(c);
        }
        return line;
    }

private:
    pid_t mProcess = -1;
    int mInput = -1;
    std::FILE* mOutput = nullptr;
    std::string mPort;
};

std::string StringFor(const TdsServer& server) {
    return "Driver=FreeTDS;Server=127.0.0.1;Port=" + server.Port() +
           ";TDS_Version=7.4;ClientCharset=UTF-8;Database=own";
}

class FreeTds : public ::testing::Test {
protected:
    // `queryTimeout` in seconds.
    explicit FreeTds(int queryTimeout = 60)
        : mConnection({.queryTimeout = queryTimeout, .keys = {}}) {
        mConnection.SetConnectionString(StringFor(mServer));
        mConnection.Open("sa", "secret", -1);
        EXPECT_EQ(mServer.ReadLine(), "batch set lock_timeout 5000");
    }

    void Execute(platform::FixedText text) { mConnection.Execute(text); }
    std::unique_ptr<platform::RecordSet> Query(platform::FixedText text,
                                               LockType lock = LockType::ReadOnly) {
        return mConnection.OpenRecordSet(text, {.lock = lock});
    }
    // The next requests the server got.
    void ExpectRequests(const std::vector<std::string>& lines) {
        for (const std::string& line : lines) EXPECT_EQ(mServer.ReadLine(), line);
    }

    TdsServer mServer;
    OdbcConnection mConnection;
};

// Gives a statement up soon, though not before a busy machine has had its chance to answer one.
class ImpatientFreeTds : public FreeTds {
protected:
    ImpatientFreeTds() : FreeTds(5) {}
};

TEST(FreeTdsLogin, TakesThePasswordAtTheEndOfTheString) {
    for (const char* password : {"secret", "with blank", "密码", "a;b", "a@b=c", "[x]", "a{b"}) {
        const TdsServer server(password);
        OdbcConnection connection;
        connection.SetConnectionString(StringFor(server));
        EXPECT_NO_THROW(connection.Open("sa", password, -1)) << password;
    }
}

TEST(FreeTdsLogin, TakesBracesOfTheStringsOwnAtItsEnd) {
    const TdsServer server("secret");
    OdbcConnection connection;
    connection.SetConnectionString(StringFor(server) + ";UID=sa;PWD={secret}");
    EXPECT_NO_THROW(connection.Open("", "", -1));
    connection.Close();
    connection.SetConnectionString(StringFor(server) + ";UID=sa;PWD=wrong");
    EXPECT_EQ(TextOf<DatabaseError>([&] { connection.Open("", "", -1); }),
              "无法连接数据库服务器（Login failed.）");
}

TEST_F(FreeTds, GivesEveryTypeExactly) {
    const auto set = Query("select types");
    EXPECT_EQ(mConnection.Engine(), DatabaseEngine::SqlServer);
    ASSERT_EQ(set->RecordCount(), 2);
    EXPECT_EQ(set->Field("b"), Value(std::int64_t{1}));
    EXPECT_EQ(set->Field("t"), Value(std::int64_t{255}));
    EXPECT_EQ(set->Field("s"), Value(std::int64_t{-7}));
    EXPECT_EQ(set->Field("i"), Value(std::int64_t{-5}));
    EXPECT_EQ(set->Field("g"), Value(std::int64_t{9000000000000000000}));
    EXPECT_EQ(set->Field("m"), Value(Money::FromUnits(-123456)));
    EXPECT_EQ(set->Field("f"), Value(0.1));
    EXPECT_EQ(set->Field("d"), Value(DateTime{2004, 6, 30, 12, 13, 14, 997}));
    EXPECT_EQ(set->Field("c"), Value("text宽"));
    EXPECT_EQ(set->Field("n"), Value("宽😀"));
    EXPECT_EQ(set->Field("e"), Value("0.000001"));
    EXPECT_EQ(set->Field(12), Value(std::int64_t{7}));
    std::string longText;
    for (int i = 0; i < 9000; ++i) longText += "长😀";
    EXPECT_EQ(set->Field("x"), Value(longText));
    set->MoveNext();
    for (int i = 0; i < set->FieldCount(); ++i) EXPECT_TRUE(set->Field(i).IsNull()) << i;
}

TEST_F(FreeTds, SendsStatementsAsTheyStand) {
    Execute("insert  into T values( '宽😀') ");
    ExpectRequests({"batch insert  into T values( '宽😀') "});
}

TEST_F(FreeTds, ReportsAnErrorInTheMiddleOfABatch) {
    try {
        Execute("batch fails");
        FAIL() << "the failed statement was not noticed";
    } catch (const DatabaseError& error) {
        EXPECT_STREQ(error.what(), "Violation of PRIMARY KEY constraint.");
        EXPECT_EQ(error.NativeCode(), 2627);
    }
    EXPECT_EQ(Query("select 1")->Field(0), Value("7"));
}

TEST_F(FreeTds, KeepsATransactionThroughAFailedStatement) {
    mConnection.Begin();
    EXPECT_THROW(Execute("fails"), DatabaseError);
    Execute("delete from T");
    mConnection.Commit();
    ExpectRequests(
        {"begin", "batch fails", "batch select @@trancount", "batch delete from T", "commit"});
}

TEST_F(FreeTds, LocksTheCounterAroundItsUpdate) {
    const auto set = Query("select cValue from S where cName='x'", LockType::Pessimistic);
    set->SetField("cValue", Value("8"));
    set->Update();
    ExpectRequests({"begin", "batch update S set cValue = cValue where cName='x'",
                    "batch select cValue from S where cName='x'",
                    "batch update S set cValue = '8' where (cName='x') and cValue = '7'",
                    "commit"});
}

TEST_F(FreeTds, CountsTheRowsThatChanged) {
    const auto set = Query("select cValue from S where cName='x'", LockType::Optimistic);
    set->SetField("cValue", Value("0"));
    EXPECT_EQ(TextOf<DatabaseError>([&] { set->Update(); }),
              "Row cannot be located for updating. Some values may have been changed since it was "
              "last read.");
    EXPECT_NO_THROW(Execute("delete from T"));
}

TEST_F(FreeTds, FailsWhenAResultBreaksOff) {
    EXPECT_EQ(TextOf<DatabaseError>([&] { Query("select and stop"); }), "Arithmetic overflow.");
    EXPECT_NO_THROW(Execute("delete from T"));
}

TEST_F(FreeTds, IsNotDisturbedByWhatTheServerSays) {
    EXPECT_EQ(Query("select with words")->Field("i"), Value(std::int64_t{5}));
    const auto none = Query("select nothing");
    EXPECT_EQ(none->RecordCount(), 0);
    EXPECT_EQ(none->FieldCount(), 2);
}

TEST_F(FreeTds, KnowsADeadlocksVictim) {
    mConnection.Begin();
    EXPECT_THROW(Execute("deadlock"), DatabaseBusy);
    EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("delete from T"); }),
              "The transaction was undone by an earlier error.");
    mConnection.RollBack();
    EXPECT_NO_THROW(Execute("delete from T"));
}

TEST_F(ImpatientFreeTds, GivesUpAStatementThatTakesTooLong) {
    mConnection.Begin();
    EXPECT_EQ(TextOf<DatabaseBusy>([&] { Execute("hang"); }),
              "数据库正被其他操作员使用，请稍后再试（Timeout expired）");
    EXPECT_NO_THROW(Execute("delete from T"));
    EXPECT_NO_THROW(mConnection.Commit());
}

TEST_F(FreeTds, ConnectsAgainAfterALoss) {
    EXPECT_THROW(Execute("die"), ConnectionLost);
    EXPECT_NO_THROW(Execute("delete from T"));
    mConnection.Begin();
    EXPECT_THROW(Execute("die"), ConnectionLost);
    EXPECT_THROW(Execute("delete from T"), ConnectionLost);
    mConnection.RollBack();
    EXPECT_NO_THROW(Execute("delete from T"));
}

TEST_F(FreeTds, LeavesACommitWithoutAnAnswerInDoubt) {
    mConnection.Begin();
    Execute("lose commit");
    EXPECT_THROW(mConnection.Commit(), CommitInDoubt);
    EXPECT_NO_THROW(Execute("delete from T"));
}

}  // namespace
}  // namespace kelvane::odbc
