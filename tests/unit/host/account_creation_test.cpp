#include "host/creation/account_creation.h"

#include <gtest/gtest.h>

#include "tests/unit/host/plain_sqlite.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

namespace fs = std::filesystem;

using host::CreateAccountFile;
using host::CreationError;
using host::NewAccount;
using Lines = std::vector<std::string>;

class AccountCreationTest : public ::testing::Test {
protected:
    TemporaryFolder mFolder;
    fs::path mPath = mFolder / "账套 1.kva";
};

// Everything in the account, table by table.
std::string Content(const fs::path& path) {
    PlainSqlite account(path);
    std::string content;
    for (const auto& table : account.Rows("select name from sqlite_schema where type = 'table'")) {
        content += table + "\n";
        for (const auto& row : account.Rows("select * from \"" + table + "\"")) {
            content += row + "\n";
        }
    }
    return content;
}

TEST_F(AccountCreationTest, AnEmptyAccountHasWhatALoginNeeds) {
    CreateAccountFile(mPath, {});
    EXPECT_EQ(mFolder.FileCount(), 1U);
    PlainSqlite account(mPath);
    EXPECT_EQ(account.Rows("select cUnitName from Host_Unit"), Lines{"新建单位"});
    EXPECT_EQ(account.Rows("select cUserID, cName, bExempt from Host_Operator"),
              Lines{"admin|管理员|1"});
    EXPECT_EQ(account.One("select count(*) from Host_Period"), "48");
    EXPECT_EQ(account.Rows("select iPeriod, dStart, dEnd from Host_Period "
                           "where iYear = 2004 and iPeriod in (1, 2, 12)"),
              (Lines{"1|2004-01-01 00:00:00.000|2004-01-31 00:00:00.000",
                     "2|2004-02-01 00:00:00.000|2004-02-29 00:00:00.000",
                     "12|2004-12-01 00:00:00.000|2004-12-31 00:00:00.000"}));
    EXPECT_EQ(account.Rows("select cSysID, cName, cValue from AccInformation order by cName"),
              (Lines{"PM|dPMStartDate|2004-07-01", "PM|dPMStartDatePeriod|2004-07-01"}));
    EXPECT_EQ(account.Rows("select cName, cValue from PM_SettingInf order by cName"),
              (Lines{"NumMax_EleQc|0", "NumPoint_Num|3", "NumPoint_Price|2", "NumPoint_Rate|4"}));
    EXPECT_EQ(account.One("select count(*) from Gl_mend where bflag_PM = 0"), "12");
    for (const char* table : {"PM_ItemQC", "PM_DutyCenter", "fitemss97", "PM_ItemElement"}) {
        EXPECT_EQ(account.One(std::string("select count(*) from ") + table), "0") << table;
    }
}

TEST_F(AccountCreationTest, TheItemClassHasTheKeyFieldsAskedFor) {
    const std::vector<Lines> expected = {{}, {"标段|3"}, {"标段|3", "期次|1"}};
    for (int keyFields = 0; keyFields <= 2; ++keyFields) {
        const fs::path path = mFolder / std::to_string(keyFields);
        CreateAccountFile(path, {.keyFields = keyFields});
        PlainSqlite account(path);
        EXPECT_EQ(account.Rows("select cfield_name, itype from fitemstructure where "
                               "citem_class = '97' and iSubItem = '1' and bPrimaryKey = '1'"),
                  expected.at(static_cast<std::size_t>(keyFields)));
        EXPECT_EQ(account.One("select count(*) from pragma_table_info('fitemss97sub') "
                              "where name in ('标段', '期次')"),
                  std::to_string(keyFields));
        EXPECT_EQ(account.One("select ctext from fitemstructure where cfield_name = 'citemname' "
                              "and citem_class = '97' and iSubItem = '0'"),
                  "项目名称");
    }
}

TEST_F(AccountCreationTest, TheFileIsSoundAndInNoJournal) {
    CreateAccountFile(mPath, {.sample = true});
    EXPECT_EQ(mFolder.FileCount(), 1U);
    PlainSqlite account(mPath);
    EXPECT_EQ(account.One("pragma integrity_check"), "ok");
}

TEST_F(AccountCreationTest, TheSameSeedGivesTheSameAccount) {
    CreateAccountFile(mPath, {.sample = true, .entries = 60, .seed = 7});
    CreateAccountFile(mFolder / "same", {.sample = true, .entries = 60, .seed = 7});
    CreateAccountFile(mFolder / "other", {.sample = true, .entries = 60, .seed = 8});
    EXPECT_EQ(Content(mPath), Content(mFolder / "same"));
    EXPECT_NE(Content(mPath), Content(mFolder / "other"));
}

TEST_F(AccountCreationTest, AShorterListIsTheBeginningOfALongerOne) {
    CreateAccountFile(mPath, {.sample = true, .entries = 30});
    CreateAccountFile(mFolder / "longer", {.sample = true, .entries = 300});
    const std::string beginning = "select * from PM_ItemQC where iEleVid <= 30 order by iEleVid";
    const auto rows = PlainSqlite(mPath).Rows(beginning);
    EXPECT_EQ(rows.size(), 30U);
    EXPECT_EQ(rows, PlainSqlite(mFolder / "longer").Rows(beginning));
}

TEST_F(AccountCreationTest, ASampleMayHaveNoEntries) {
    CreateAccountFile(mPath, {.sample = true, .entries = 0});
    PlainSqlite account(mPath);
    EXPECT_EQ(account.One("select count(*) from PM_ItemQC"), "0");
    EXPECT_EQ(account.One("select count(*) from fitemss97"), "30");
}

TEST_F(AccountCreationTest, IdentitiesMayExceedSixteenBits) {
    CreateAccountFile(mPath, {.sample = true, .entries = 33000});
    PlainSqlite account(mPath);
    EXPECT_EQ(account.One("select count(*), min(iEleVid), max(iEleVid) from PM_ItemQC"),
              "33000|1|33000");
    EXPECT_EQ(account.One("select cValue from PM_SettingInf where cName = 'NumMax_EleQc'"),
              "33000");
    EXPECT_EQ(account.One("select count(distinct iEleVid) from PM_ItemQCsub"), "11000");
}

TEST_F(AccountCreationTest, AnExistingFileIsKept) {
    WriteText(mPath, "precious");
    try {
        CreateAccountFile(mPath, {});
        FAIL() << "the file was taken";
    } catch (const CreationError& error) {
        EXPECT_EQ(std::string(error.what()),
                  mPath.string() + " exists already; --force replaces it");
    }
    EXPECT_EQ(ReadText(mPath), "precious");
    EXPECT_EQ(mFolder.FileCount(), 1U);
}

TEST_F(AccountCreationTest, AnExistingFileIsReplacedWhenAskedFor) {
    WriteText(mPath, "no account");
    CreateAccountFile(mPath, {.replaceExisting = true});
    CreateAccountFile(mPath, {.sample = true, .replaceExisting = true});
    EXPECT_EQ(PlainSqlite(mPath).One("select count(*) from PM_ItemQC"), "25");
    EXPECT_EQ(mFolder.FileCount(), 1U);
}

TEST_F(AccountCreationTest, AnAccountInUseIsNotReplaced) {
    CreateAccountFile(mPath, {.sample = true});
    {
        PlainSqlite user(mPath);
        user.Rows("select count(*) from PM_ItemQC");
        EXPECT_THROW(CreateAccountFile(mPath, {.replaceExisting = true}), CreationError);
        EXPECT_EQ(user.One("select count(*) from PM_ItemQC"), "25");
    }
    CreateAccountFile(mPath, {.replaceExisting = true});
    EXPECT_EQ(PlainSqlite(mPath).One("select count(*) from PM_ItemQC"), "0");
}

TEST_F(AccountCreationTest, AnAccountThatWasNotClosedCanBeReplaced) {
    CreateAccountFile(mPath, {.sample = true});
    const fs::path crashed = mFolder / "crashed";
    {
        PlainSqlite writer(mPath);
        writer.Rows("delete from PM_ItemQC where iEleVid = 1");
        for (const char* ending : {"", "-wal"}) {
            fs::copy_file(mPath.string() + ending, crashed.string() + ending);
        }
    }
    CreateAccountFile(crashed, {.replaceExisting = true});
    PlainSqlite account(crashed);
    EXPECT_EQ(account.One("select count(*) from PM_ItemQC"), "0");
    EXPECT_EQ(account.One("pragma integrity_check"), "ok");
}

}  // namespace
}  // namespace kelvane::host_test
