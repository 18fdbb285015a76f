// The account as a file: what other tools see in it, and what is said about files that are none.
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "adapters/sqlite/connection.h"
#include "adapters/sqlite/schema.h"
#include "platform/connection_string.h"
#include "tests/database/failure_of.h"
#include "tests/database/sqlite_account.h"

namespace kelvane::database_test {
namespace {

namespace fs = std::filesystem;
using platform::Money;
using platform::StatementText;
using platform::Value;

std::string Content(const std::string& path) {
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    return text.str();
}

// Another program, which knows nothing of ours.
class OtherTool {
public:
    explicit OtherTool(const std::string& path) { sqlite3_open(path.c_str(), &mHandle); }
    ~OtherTool() { sqlite3_close(mHandle); }
    OtherTool(const OtherTool&) = delete;
    OtherTool& operator=(const OtherTool&) = delete;

    std::string Run(const char* statement) {
        std::string text;
        char* error = nullptr;
        const auto addRow = [](void* result, int count, char** values, char**) {
            for (int i = 0; i < count; ++i) {
                *static_cast<std::string*>(result) +=
                    std::string(i > 0 ? "|" : "") + (values[i] == nullptr ? "NULL" : values[i]);
            }
            *static_cast<std::string*>(result) += '\n';
            return 0;
        };
        if (sqlite3_exec(mHandle, statement, addRow, &text, &error) != SQLITE_OK) text = error;
        sqlite3_free(error);
        return text;
    }

private:
    sqlite3* mHandle = nullptr;
};

class SqliteFile : public testing::Test {
protected:
    static constexpr int kTimeout = 50;

    SqliteFile() : mPath(mFolder.Path("账套 1.kva")) { CreateSqliteAccount(mPath); }

    std::shared_ptr<platform::Connection> Connect() { return ConnectToSqlite(mPath, kTimeout); }
    std::string Other(const std::string& name) { return mFolder.Path(name); }
    std::string Folder() { return fs::path(mPath).parent_path().string(); }

    std::size_t FileCount() {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(Folder()), fs::directory_iterator()));
    }

    // What Open() says about `path`, which must be left as it is.
    std::string Refusal(const std::string& path, std::vector<std::string> required = {}) {
        const std::string before = fs::is_regular_file(path) ? Content(path) : "";
        const std::size_t files = FileCount();
        const auto connection = sqlite::CreateConnection(std::move(required));
        connection->SetConnectionString("Data Source=" + path + ";Timeout=50");
        std::string text = TextOfError([&] { connection->Open("", "", -1); });
        EXPECT_EQ(connection->State(), 0);
        EXPECT_EQ(fs::is_regular_file(path) ? Content(path) : "", before);
        EXPECT_EQ(FileCount(), files);
        return text;
    }

    ScratchFolder mFolder;
    std::string mPath;
};

TEST_F(SqliteFile, IsReadNaturallyByOtherTools) {
    Connect()->Execute(StatementText(
        "insert into Probe(id,c,i,b,m,f,d) values(1,'文本',5,1,1234.5,0.25,'2004/6/30')"));
    OtherTool tool(mPath);
    EXPECT_EQ(tool.Run("select c,i,b,m,f,d from Probe where c = '文本'"),
              "文本|5|1|1234.5000|0.25|2004-06-30 00:00:00.000\n");
    EXPECT_EQ(tool.Run("select typeof(m),typeof(d),typeof(i),typeof(f),typeof(b) from Probe"),
              "text|text|integer|real|integer\n");
    EXPECT_EQ(tool.Run("pragma integrity_check"), "ok\n");
    EXPECT_EQ(tool.Run("pragma journal_mode"), "wal\n");
    EXPECT_EQ(
        tool.Run("insert into Coded values('a','x'); select name from Coded where code = 'A'"),
        "x\n");
    EXPECT_EQ(tool.Run("insert into Coded values('A ','y')"),
              "UNIQUE constraint failed: index 'Coded_code_key'");
}

TEST_F(SqliteFile, ReadsWhatOtherToolsWrote) {
    const auto connection = Connect();
    OtherTool tool(mPath);
    EXPECT_EQ(tool.Run("insert into Probe(id,m,d,f) values(1,1234.5,'2004-06-30',3),"
                       "(2,-7,'2004-06-30 12:00',1.5),(3,'0.0001',null,null)"),
              "");
    const auto set = connection->OpenRecordSet(StatementText("select m,d from Probe order by id"));
    EXPECT_EQ(set->Field("m"), Value(Money::FromText("1234.5")));
    EXPECT_EQ(set->Field("d"), Value(platform::DateTime{2004, 6, 30}));
    EXPECT_EQ(connection->OpenRecordSet(StatementText("select sum(m) from Probe"))->Field(0),
              Value(Money::FromText("1227.5001")));
    EXPECT_EQ(
        connection
            ->OpenRecordSet(StatementText("select id from Probe where d = '2004-06-30 12:00'"))
            ->Field(0),
        Value(std::int64_t{2}));
    tool.Run("update Probe set m = 'junk' where id = 1");
    EXPECT_EQ(
        ErrorOf([&] { connection->OpenRecordSet(StatementText("select sum(m) from Probe")); }),
        235);
}

TEST_F(SqliteFile, ReadsAndWritesTextColumnsOfOtherTools) {
    OtherTool tool(mPath);
    EXPECT_EQ(tool.Run("create table Told(plain text, wide NTEXT);"
                       "insert into Told values('说明 a','宽')"),
              "");
    const auto connection = Connect();
    const auto set = connection->OpenRecordSet(
        StatementText("select plain,wide from Told where plain = '说明 A'"),
        {.lock = platform::LockType::Optimistic});
    ASSERT_EQ(set->RecordCount(), 1);
    EXPECT_EQ(set->Field("plain"), Value("说明 a"));
    EXPECT_EQ(set->Field("wide"), Value("宽"));
    set->SetField("wide", Value("更宽"));
    set->Update();
    EXPECT_EQ(tool.Run("select wide from Told"), "更宽\n");
}

TEST_F(SqliteFile, NoticesThatTheSchemaChanged) {
    const auto connection = Connect();
    const StatementText all("select * from Coded");
    EXPECT_EQ(connection->OpenRecordSet(all)->FieldCount(), 2);
    OtherTool tool(mPath);
    tool.Run("alter table Coded add column extra int; insert into Coded values('a','b',3)");
    EXPECT_EQ(connection->OpenRecordSet(all)->FieldCount(), 3);
    EXPECT_EQ(connection->OpenRecordSet(StatementText("select extra from Coded"))->Field(0),
              Value(std::int64_t{3}));
    tool.Run("drop table Coded");
    EXPECT_EQ(ErrorOf([&] { connection->OpenRecordSet(all); }), 208);
    tool.Run("create table Coded(code money text); insert into Coded values(1.5)");
    EXPECT_EQ(connection->OpenRecordSet(all)->Field(0), Value(Money::FromText("1.5")));
    tool.Run("create table Odd(x decimal(19,4))");
    EXPECT_EQ(ErrorOf([&] { connection->OpenRecordSet(StatementText("select * from Odd")); }),
              2715);
}

TEST_F(SqliteFile, RefusesFilesThatAreNoAccount) {
    EXPECT_EQ(Refusal(Other("none.kva")), "账套文件 " + Other("none.kva") + " 不存在");
    EXPECT_EQ(Refusal(Folder()), "账套文件 " + Folder() + " 不是账套文件");
    std::ofstream(Other("empty.kva")).close();
    EXPECT_EQ(Refusal(Other("empty.kva")), "账套文件 " + Other("empty.kva") + " 不是账套文件");
    std::ofstream(Other("text.kva")) << std::string(5000, 'x');
    EXPECT_EQ(Refusal(Other("text.kva")), "账套文件 " + Other("text.kva") + " 不是账套文件");
    OtherTool(Other("foreign.db")).Run("create table t(x)");
    EXPECT_EQ(Refusal(Other("foreign.db")), "账套文件 " + Other("foreign.db") + " 不是账套文件");
}

TEST_F(SqliteFile, RefusesDamagedFiles) {
    Connect()->Close();
    const std::string good = Content(mPath);
    std::ofstream(Other("short.kva"), std::ios::binary) << good.substr(0, good.size() / 2);
    EXPECT_EQ(Refusal(Other("short.kva")),
              "账套文件 " + Other("short.kva") + " 已损坏：文件不完整");
    std::string scribbled = good;
    constexpr std::size_t kPages = std::size_t{3} * 4096;
    scribbled.replace(4096, kPages, kPages, '\x5A');
    std::ofstream(Other("bad.kva"), std::ios::binary) << scribbled;
    EXPECT_TRUE(
        Refusal(Other("bad.kva")).starts_with("账套文件 " + Other("bad.kva") + " 已损坏（"));
}

TEST_F(SqliteFile, RefusesNewerLayoutsAndMissingTables) {
    OtherTool(mPath).Run("drop table Probe");
    EXPECT_EQ(Refusal(mPath, {"pm_itemqc", "Probe"}), "账套文件 " + mPath + " 缺少数据表 Probe");
    OtherTool(mPath).Run("pragma user_version = 99; pragma wal_checkpoint(truncate)");
    EXPECT_EQ(Refusal(mPath), "账套文件 " + mPath + " 是由较新版本的程序建立的");
}

TEST_F(SqliteFile, RefusesReadOnlyFiles) {
    fs::permissions(mPath, fs::perms::owner_read);
    EXPECT_EQ(Refusal(mPath), "账套文件 " + mPath + " 是只读的，不能写入");
}

TEST_F(SqliteFile, SaysThatAnotherProgramLocksTheFile) {
    const auto connection = Connect();
    OtherTool tool(mPath);
    EXPECT_EQ(tool.Run("begin immediate"), "");
    EXPECT_THROW(connection->Execute(StatementText("delete from Probe")), platform::DatabaseBusy);
    EXPECT_EQ(TextOfError([&] { connection->Begin(); }),
              "账套文件 " + mPath + " 正被其他操作员使用，请稍后再试（database is locked）");
    EXPECT_EQ(connection->OpenRecordSet(StatementText("select id from Probe"))->RecordCount(), 0);
    tool.Run("commit");
    EXPECT_NO_THROW(connection->Begin());
}

TEST_F(SqliteFile, KeepsWhatWasCommittedAndNothingElse) {
    const auto connection = Connect();
    connection->Begin();
    connection->Execute(StatementText("insert into Probe(id) values(1)"));
    connection->Commit();
    connection->Begin();
    connection->Execute(StatementText("insert into Probe(id) values(2)"));
    // As a crash would leave them: the file and its log as they are at this moment.
    const std::string copy = Other("copy.kva");
    fs::copy_file(mPath, copy);
    fs::copy_file(mPath + "-wal", copy + "-wal");
    const auto recovered = ConnectToSqlite(copy, kTimeout);
    const auto set = recovered->OpenRecordSet(StatementText("select id from Probe"));
    ASSERT_EQ(set->RecordCount(), 1);
    EXPECT_EQ(set->Field(0), Value(std::int64_t{1}));
}

TEST_F(SqliteFile, WritesNothingWhenNothingChanges) {
    const auto connection = Connect();
    connection->Execute(StatementText("insert into PM_ItemQC(iEleVid,mQC) values(1,10)"));
    const auto before = fs::file_size(mPath + "-wal");
    connection->Execute(StatementText("Update PM_ItemQC set mQC = 10 where iEleVid = '1'"));
    EXPECT_EQ(fs::file_size(mPath + "-wal"), before);
    connection->Execute(StatementText("Update PM_ItemQC set mQC = 11 where iEleVid = '1'"));
    EXPECT_GT(fs::file_size(mPath + "-wal"), before);
}

TEST_F(SqliteFile, IsNeverCreatedOverAnotherFile) {
    const std::string before = Content(mPath);
    EXPECT_EQ(TextOfError([&] { sqlite::CreateAccount(mPath, {}); }),
              "账套文件 " + mPath + " 已经存在");
    EXPECT_EQ(Content(mPath), before);
    EXPECT_THROW(sqlite::CreateAccount(Other("x.kva"), {{"T", {{"a", "decimal"}}, {}, {}}}),
                 std::invalid_argument);
    EXPECT_FALSE(fs::exists(Other("x.kva")));
}

TEST_F(SqliteFile, ReadsConnectionStrings) {
    const auto opened = [&](const std::string& text) {
        const auto connection = sqlite::CreateConnection();
        connection->SetConnectionString(text);
        return TextOfError([&] { connection->Open("", "", -1); });
    };
    EXPECT_EQ(opened(mPath), "");
    EXPECT_EQ(opened("data source = \"" + mPath + "\" ; timeout=10;"), "");
    EXPECT_EQ(opened("Timeout=1;Data Source=" + mPath), "");
    const std::string path = Other("a\";b \"\"c.kva");
    fs::copy_file(mPath, path);
    EXPECT_EQ(opened("Data Source=" + platform::MarkedValue(path, platform::ValueMarks::Quotes) +
                     ";Timeout=1"),
              "");
    EXPECT_EQ(opened(""), "连接串没有指明账套文件");
    EXPECT_EQ(opened("Timeout=5"), "连接串没有指明账套文件");
    EXPECT_EQ(opened("Data Source=x;Timeout=soon"), "连接串中的 Timeout 不是毫秒数");
    EXPECT_EQ(opened("Data Source=x;Password=secret"), "连接串中有不认识的项目");
}

}  // namespace
}  // namespace kelvane::database_test
