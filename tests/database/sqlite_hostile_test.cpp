// Account files that somebody prepared: what they hold never runs, and they are refused as they
// are.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "adapters/sqlite/account_copy.h"
#include "adapters/sqlite/connection.h"
#include "adapters/sqlite/hardening.h"
#include "adapters/sqlite/session.h"
#include "adapters/sqlite/stored_definition.h"
#include "tests/database/failure_of.h"
#include "tests/database/sqlite_account.h"

namespace kelvane::database_test {
namespace {

namespace fs = std::filesystem;
using platform::StatementText;

std::string Content(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

class SqliteHostile : public testing::Test {
protected:
    SqliteHostile() : mPath(mFolder.Path("account.kva")) { CreateSqliteAccount(mPath); }

    // Changes the account as somebody who owns the file can.
    void Prepare(const std::string& statements) {
        sqlite3* handle = nullptr;
        ASSERT_EQ(sqlite3_open(mPath.c_str(), &handle), SQLITE_OK);
        char* error = nullptr;
        EXPECT_EQ(sqlite3_exec(handle, statements.c_str(), nullptr, nullptr, &error), SQLITE_OK)
            << error;
        sqlite3_free(error);
        sqlite3_close(handle);
    }

    // What Open() says; a refused account is left as it is, and nothing beside it.
    std::string Refusal(const std::string& path, std::vector<std::string> required = {"Probe"}) {
        const std::string before = Content(path);
        const auto connection = sqlite::CreateConnection(std::move(required));
        connection->SetConnectionString("Data Source=" + path + ";Timeout=0");
        const std::string text = TextOfError([&] { connection->Open("", "", -1); });
        EXPECT_EQ(Content(path), before);
        const std::string start = "账套文件 " + path + ' ';
        return text.starts_with(start) ? text.substr(start.size()) : text;
    }
    std::string RefusalOf(const std::string& statements) {
        Prepare(statements);
        std::string text = Refusal(mPath);
        EXPECT_FALSE(fs::exists(mPath + "-wal"));
        EXPECT_FALSE(fs::exists(mPath + "-shm"));
        return text;
    }

    std::string DieWriting(const std::string& before);
    // A copy of the account as it is now, with the companion that ends in `ending`.
    std::string CopyWith(const char* ending) const {
        std::string copy = mFolder.Path("copy.kva");
        fs::copy_file(mPath, copy);
        fs::copy_file(mPath + ending, copy + ending);
        return copy;
    }

    ScratchFolder mFolder;
    std::string mPath;
};

struct Prepared {
    const char* name;
    const char* statements;
    const char* refusal;
};

void PrintTo(const Prepared& prepared, std::ostream* out) {
    *out << prepared.name;
}

class SqliteHostileSchema : public SqliteHostile, public testing::WithParamInterface<Prepared> {};

TEST_P(SqliteHostileSchema, IsRefused) {
    EXPECT_EQ(RefusalOf(GetParam().statements),
              std::string("含有不允许的内容：") + GetParam().refusal);
}

constexpr Prepared kPrepared[] = {
    {"Trigger", "create trigger Empty after update on Probe begin delete from Coded; end",
     "数据表 Probe 的触发器 Empty"},
    {"EndlessTrigger",
     "create trigger Endless before delete on Coded begin insert into Probe(c) with recursive n(i) "
     "as (select 1 union all select i + 1 from n) select i from n; end",
     "数据表 Coded 的触发器 Endless"},
    {"ViewForATable", "drop table Probe; create view probe as select 1 as id",
     "代替数据表的视图 probe"},
    {"VirtualTable", "create virtual table Search using fts5(x)", "虚拟表 Search"},
    {"Check", "create table T(a, check (length(hex(zeroblob(500000000))) > 0))",
     "数据表 T 的CHECK 约束"},
    {"CheckBehindAComment", "create table T(a /* ' */\ncHeCk(a > 0), \"b'\")",
     "数据表 T 的CHECK 约束"},
    {"CheckBehindAByteOrderMark",
     "create table T(a int \xEF\xBB\xBF"
     "check(a > 0))",
     "数据表 T 的CHECK 约束"},
    {"GeneratedColumn", "create table T(a, b generated always as (a * 2) stored)",
     "数据表 T 的计算列"},
    {"ShortGeneratedColumn", "create table T(a, b as (a * 2))", "数据表 T 的计算列"},
    {"Default", "create table T(a default (hex(zeroblob(500000000))))", "数据表 T 的默认值表达式"},
    {"Replacing", "create table T(a unique on conflict replace)", "数据表 T 的ON CONFLICT 规定"},
    {"PartialIndex", "create index I on Probe(i) where hex(zeroblob(i)) > ''",
     "数据表 Probe 的索引 I（不是单纯按列建立的）"},
    {"ExpressionIndex", "create index I on Probe(hex(zeroblob(i)))",
     "数据表 Probe 的索引 I（不是单纯按列建立的）"},
    {"ExpressionInOurForm", "create index I on Probe(rtrim(c || c) collate nocase)",
     "数据表 Probe 的索引 I（不是单纯按列建立的）"},
};

INSTANTIATE_TEST_SUITE_P(All, SqliteHostileSchema, testing::ValuesIn(kPrepared),
                         [](const auto& test) { return std::string(test.param.name); });

// The engine goes by a definition's text, and some versions of it look at nothing else.
TEST(SqliteStoredDefinition, ItsRowCannotDisguiseIt) {
    const auto part = [](const sqlite::StoredDefinition& definition) {
        return sqlite::ForbiddenPart(definition, {}).value_or("");
    };
    EXPECT_EQ(part({"table", "X", "X", "create table \"X\"(a)"}), "");
    EXPECT_EQ(part({"index", "X", "T", "create trigger X after update on T begin select 1; end"}),
              "数据表 T 的触发器 X");
    EXPECT_EQ(part({"table", "X", "X", "create view X as select 1 as a"}), "无法识别的对象 X");
    EXPECT_EQ(part({"table", "X", "X", "create table Y(a)"}), "无法识别的对象 X");
    EXPECT_EQ(part({"table", "X", "X", ""}), "无法识别的对象 X");
    EXPECT_EQ(part({"view", "X", "X", "create view Y as select 1 as a"}), "无法识别的对象 X");
    EXPECT_EQ(part({"index", "X", "T", "create index X on Y(a)"}),
              "数据表 T 的索引 X（不是单纯按列建立的）");
    EXPECT_EQ(part({"index", "sqlite_autoindex_T_1", "T", ""}), "");
}

TEST_F(SqliteHostile, PlainAdditionsOfOtherToolsAreWelcome) {
    EXPECT_EQ(
        RefusalOf("create table \"check\"(\"as\" int default 5, [on conflict] text default "
                  "'check (1)', generated int, k integer primary key autoincrement, u unique);"
                  "create unique index \"my index\" on Probe(i desc, rtrim(c) collate nocase);"
                  "create view Report as select count(*) from Probe; analyze"),
        "");
}

TEST_F(SqliteHostile, NothingAddedLaterRunsEither) {
    const auto connection = ConnectToSqlite(mPath, 0);
    connection->Execute(StatementText("insert into Probe(id,i) values(1,1)"));
    connection->Execute(StatementText("insert into Coded(code,name) values('a','b')"));
    Prepare("create trigger Empty after update on Probe begin delete from Coded; end");
    connection->Execute(StatementText("update Probe set i = 2"));
    EXPECT_EQ(connection->OpenRecordSet(StatementText("select code from Coded"))->RecordCount(), 1);
}

TEST_F(SqliteHostile, AStatementThatDoesNotEndIsEnded) {
    sqlite::Session session(mPath, 0);
    for (int i = 0; i < 200; ++i) {
        session.Run("insert into Probe(id) values(" + std::to_string(i) + ")", false, false);
    }
    constexpr const char* kEndless =
        "select count(*) from Probe a,Probe b,Probe c,Probe d,Probe e,Probe f,Probe g,Probe h";
    session.Engine().SetStatementBound(std::chrono::milliseconds(1));
    EXPECT_EQ(TextOfError([&] { session.Run(kEndless, true, false); }),
              "账套文件 " + mPath + " 中的一步操作太久没有完成，已经中止（interrupted）");
    // The time of each statement is its own.
    session.Engine().SetStatementBound(sqlite::kStatementBound);
    EXPECT_EQ(
        TextOfError([&] { session.Run("select count(*) from Probe a,Probe b", true, false); }), "");
}

TEST_F(SqliteHostile, WaitingForALockDoesNotCount) {
    sqlite::Session holder(mPath, 0);
    sqlite::Session waiter(mPath, 300);
    waiter.Engine().SetStatementBound(std::chrono::milliseconds(0));
    holder.Transactions().Begin();
    EXPECT_THROW(waiter.Transactions().Begin(), platform::DatabaseBusy);
}

TEST_F(SqliteHostile, AValueBeyondAllBoundsIsAnErrorAndNotRead) {
    const std::string size = std::to_string(sqlite::kMaxValueSize + 1);
    Prepare("insert into Probe(id,c) values(1,replace(hex(zeroblob(" + size + ")),'00','x'))");
    const std::string tooLong = "中有超过长度上限的内容（string or blob too big）";
    const auto connection = sqlite::CreateConnection();
    connection->SetConnectionString(mPath);
    const std::string text = TextOfError([&] {
        connection->Open("", "", -1);
        connection->OpenRecordSet(StatementText("select c from Probe"));
    });
    EXPECT_EQ(text, "账套文件 " + mPath + ' ' + tooLong);
}

TEST_F(SqliteHostile, ARefusedAccountKeepsItsLog) {
    const auto connection = ConnectToSqlite(mPath, 0);
    Prepare("create trigger Empty after update on Probe begin delete from Coded; end");
    const std::string copy = CopyWith("-wal");
    const std::string log = Content(copy + "-wal");
    ASSERT_FALSE(log.empty());
    EXPECT_EQ(Refusal(copy), "含有不允许的内容：数据表 Probe 的触发器 Empty");
    EXPECT_EQ(Content(copy + "-wal"), log);
}

TEST_F(SqliteHostile, TheLogCannotMakeItAnotherLayout) {
    const auto connection = ConnectToSqlite(mPath, 0);
    Prepare("pragma user_version = 99");
    const std::string copy = CopyWith("-wal");
    EXPECT_EQ(Refusal(copy), "是由较新版本的程序建立的");
}

TEST_F(SqliteHostile, WhoOnlyLooksChangesNothing) {
    Prepare("pragma journal_mode = delete");
    const std::string before = Content(mPath);
    const StatementText look("select id from Probe");
    ConnectToSqlite(mPath, 0)->OpenRecordSet(look);
    EXPECT_EQ(Content(mPath), before);
    const auto connection = ConnectToSqlite(mPath, 0);
    connection->Execute(StatementText("insert into Probe(id) values(1)"));
    const std::string copy = CopyWith("-wal");
    const std::string log = Content(copy + "-wal");
    EXPECT_EQ(ConnectToSqlite(copy, 0)->OpenRecordSet(look)->RecordCount(), 1);
    EXPECT_EQ(Content(copy + "-wal"), log);
    ConnectToSqlite(copy, 0)->Close();
    EXPECT_FALSE(fs::exists(copy + "-wal"));
}

#ifndef _WIN32
TEST_F(SqliteHostile, CompanionsArePlainFiles) {
    for (const char* ending : {"-wal", "-shm", "-journal"}) {
        const std::string companion = mPath + ending;
        const std::string refusal = "旁边的 " + companion + " 不是普通文件，请先移走它";
        fs::create_directory(companion);
        EXPECT_EQ(Refusal(mPath), refusal);
        fs::remove(companion);
        fs::create_symlink(mFolder.Path("elsewhere"), companion);
        EXPECT_EQ(Refusal(mPath), refusal);
        EXPECT_FALSE(fs::exists(mFolder.Path("elsewhere")));
        fs::remove(companion);
        ASSERT_EQ(std::system(("mkfifo '" + companion + "'").c_str()), 0);
        EXPECT_EQ(Refusal(mPath), refusal);
        fs::remove(companion);
    }
    EXPECT_EQ(Refusal(mPath), "");
}

TEST_F(SqliteHostile, ALinkToAnAccountIsTheAccount) {
    fs::create_directory(mFolder.Path("links"));
    const std::string link = mFolder.Path("links/link.kva");
    fs::create_symlink("../account.kva", link);
    {
        const auto connection = ConnectToSqlite(link, 0);
        connection->Execute(StatementText("insert into Probe(id) values(1)"));
        EXPECT_TRUE(fs::exists(mPath + "-wal"));
        EXPECT_FALSE(fs::exists(link + "-wal"));
        const auto other = ConnectToSqlite(mPath, 0);
        const auto rows = other->OpenRecordSet(StatementText("select id from Probe"));
        EXPECT_EQ(rows->RecordCount(), 1);
    }
    fs::create_directory(mPath + "-journal");
    const auto connection = sqlite::CreateConnection();
    connection->SetConnectionString(link);
    EXPECT_NE(TextOfError([&] { connection->Open("", "", -1); }).find(mPath + "-journal"),
              std::string::npos);
    fs::create_symlink("nowhere", mFolder.Path("loose.kva"));
    EXPECT_EQ(Refusal(mFolder.Path("loose.kva")), "不存在");
}
#endif

// A writer that keeps its changes in a journal dies in the middle of them; before that it ran
// `before`. What is left lies at the returned path.
std::string SqliteHostile::DieWriting(const std::string& before) {
    Prepare("pragma journal_mode = delete;" + before);
    sqlite3* writer = nullptr;
    EXPECT_EQ(sqlite3_open(mPath.c_str(), &writer), SQLITE_OK);
    EXPECT_EQ(sqlite3_exec(writer,
                           "pragma cache_size = 1; begin; insert into Coded with recursive n(i) as "
                           "(select 1 union all select i + 1 from n where i < 5000) select i, i "
                           "from n",
                           nullptr, nullptr, nullptr),
              SQLITE_OK);
    std::string copy = CopyWith("-journal");
    sqlite3_close(writer);
    EXPECT_FALSE(Content(copy + "-journal").empty());
    return copy;
}

TEST_F(SqliteHostile, UnfinishedChangesAreNotUndoneInAnAccountThatIsRefused) {
    const std::string copy =
        DieWriting("create trigger Thief after update on Coded begin delete from Coded; end");
    const std::string journal = Content(copy + "-journal");
    const std::string account = Content(copy);
    EXPECT_EQ(Refusal(copy), "含有不允许的内容：数据表 Coded 的触发器 Thief");
    EXPECT_EQ(Content(copy + "-journal"), journal);
    EXPECT_EQ(Content(copy), account);
}

TEST_F(SqliteHostile, UnfinishedChangesAreUndoneInAnAccountThatIsOpened) {
    const std::string copy = DieWriting("");
    const StatementText look("select code from Coded where code = '4711'");
    EXPECT_EQ(ConnectToSqlite(copy, 0)->OpenRecordSet(look)->RecordCount(), 0);
    EXPECT_FALSE(fs::exists(copy + "-journal"));
}

TEST_F(SqliteHostile, UnfinishedChangesAreLeftToBeUndoneByWhoOnlyReads) {
    const std::string copy = DieWriting("");
    const std::string journal = Content(copy + "-journal");
    const std::string account = Content(copy);
    const auto read = sqlite::CopyOfProtected(copy);
    ASSERT_NE(read, nullptr);
    const StatementText look("select code from Coded where code = '4711'");
    EXPECT_EQ(ConnectToSqlite(read->Path(), 0)->OpenRecordSet(look)->RecordCount(), 0);
    EXPECT_EQ(Content(copy + "-journal"), journal);
    EXPECT_EQ(Content(copy), account);
}

TEST_F(SqliteHostile, UnfinishedChangesAreNotReadInAnAccountThatCannotBeWritten) {
    const std::string copy = DieWriting("");
    const std::string journal = Content(copy + "-journal");
    const std::string account = Content(copy);
    fs::permissions(copy, fs::perms::owner_read);
    const auto read = sqlite::CopyOfProtected(copy);
    const StatementText look("select code from Coded where code = '4711'");
    EXPECT_EQ(ConnectToSqlite(read->Path(), 0)->OpenRecordSet(look)->RecordCount(), 0);
    EXPECT_EQ(Content(copy + "-journal"), journal);
    EXPECT_EQ(Content(copy), account);
}

}  // namespace
}  // namespace kelvane::database_test
