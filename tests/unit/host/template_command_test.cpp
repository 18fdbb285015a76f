// kelvane template, run as a user runs it; what it writes is read as an import reads it.
#include <gtest/gtest.h>

#include "adapters/tables/open_table.h"
#include "entries/bulk/table_reading.h"
#include "tests/unit/host/plain_sqlite.h"
#include "tests/unit/host/program.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

class TemplateCommandTest : public testing::Test {
protected:
    TemplateCommandTest() { Make({}); }

    void Make(const std::string& more) const {
        EXPECT_EQ(RunProgram("init --sample --force " + more + " " + ShellQuoted(mAccount.string()))
                      .status,
                  0);
    }
    ProgramResult Write(const std::string& name, const std::string& more = {}) const {
        return RunProgram("template " + ShellQuoted(mAccount.string()) + " --to " +
                          ShellQuoted(PathOf(name)) + " " + more);
    }
    std::string PathOf(const std::string& name) const { return (mFolder / name).string(); }

    void ExpectWritten(const std::string& name, const std::string& more = {}) const {
        const auto result = Write(name, more);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.output, PathOf(name) + " is written.\n");
        EXPECT_EQ(result.status, 0);
    }
    void ExpectRefused(const ProgramResult& result, const std::string& errors) const {
        EXPECT_EQ(result.errors, errors);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.status, 1);
    }

    // The texts of one column of a sheet, below its first row.
    std::vector<std::string> Column(const std::string& name, const std::string& sheet,
                                    int column) const {
        const auto reader = tables::OpenTable(PathOf(name));
        std::vector<std::string> texts;
        for (std::size_t at = 0; at < reader->Sheets().size(); ++at) {
            if (reader->Sheets()[at].name != sheet) continue;
            reader->Read(at, [&](const platform::TableRow& row) {
                const std::string& text = row.At(column).text;
                if (!text.empty()) texts.push_back(text);
                return true;
            });
        }
        return texts;
    }

    TemporaryFolder mFolder;
    std::filesystem::path mAccount = mFolder / "a.kelvane";
};

using Texts = std::vector<std::string>;

// How many findings, notes and rows an import would have of it.
std::string ReadAs(const std::string& path, const entries::TableShape& shape) {
    const auto reader = tables::OpenTable(path);
    const auto table = ReadBulkTable(*reader, shape, {});
    return std::to_string(table.titleRow) + " " + std::to_string(table.findings.size()) + " " +
           std::to_string(table.notes.size()) + " " + std::to_string(table.rows.size());
}

TEST_F(TemplateCommandTest, IsReadWithoutAFindingAndWithoutARow) {
    const Texts keywords{"标段", "期次"};
    for (std::size_t count = 0; count <= keywords.size(); ++count) {
        Make("--keywords " + std::to_string(count));
        const Texts named(keywords.begin(), keywords.begin() + static_cast<std::ptrdiff_t>(count));
        std::vector<entries::KeywordField> fields;
        for (const std::string& name : named) fields.push_back({name});
        const auto shape = entries::EntryTableShape("项目名称", fields, true);
        for (const char* name : {"a.xlsx", "a.csv"}) {
            ExpectWritten(name);
            EXPECT_EQ(ReadAs(PathOf(name), shape), "1 0 0 0") << name << count;
        }
        EXPECT_EQ(ReadAs(PathOf("a.xlsx"), entries::LineTableShape()), "1 0 0 0") << count;
    }
}

TEST_F(TemplateCommandTest, HasTheWindowsTitles) {
    Make("--keywords 2");
    PlainSqlite(mAccount).Rows(
        "update fitemstructure set ctext = '工程名称' where cfield_name = 'citemname'");
    ExpectWritten("a.csv");
    EXPECT_EQ(ReadText(PathOf("a.csv")),
              "\xEF\xBB\xBF\"日期\",\"责任中心\",\"项目编号\",\"工程名称\",\"标段 (关键字)\","
              "\"期次 (关键字)\",\"要素\",\"摘要\",\"未结转期初\",\"行号\"\r\n");
    ExpectWritten("a.xlsx");
    EXPECT_EQ(Column("a.xlsx", "期初", 4), Texts{"工程名称"});
    EXPECT_EQ(Column("a.xlsx", "期初", 10), Texts{"行号"});
    EXPECT_EQ(Column("a.xlsx", "明细", 2), Texts{"编码"});
    EXPECT_EQ(Column("a.xlsx", "明细", 8), Texts{"余额"});
    EXPECT_EQ(Column("a.xlsx", "合计", 1), Texts{"行数"});
    EXPECT_EQ(Column("a.xlsx", "合计", 2), Texts{"未结转期初"});
}

TEST_F(TemplateCommandTest, OffersWhatTheOperatorMayUse) {
    PlainSqlite account(mAccount);
    for (const char* statement :
         {"delete from PM_UserAuth", "delete from PM_DutycenterSub", "delete from pm_equipment",
          "delete from inventory",
          "insert into Host_Operator (cUserID,cName,bExempt) values ('u2','张',0),('u3','王',1)",
          "insert into PM_UserAuth (cUserID,cCenterCode) values ('u2','D02'),('u2','D03')",
          "insert into PM_DutycenterSub (cCenterCode,cItemCode,cKeyWord1) values"
          " ('D01','P1','一'),('D02','P3','三'),('D02','P2','二'),('D03','P2','二')",
          "insert into pm_equipment (cEquipCode,bEquipEnd) values ('E1',0),('E2',1)",
          "insert into inventory (cInvCode) values ('007')"}) {
        account.Rows(statement);
    }
    ExpectWritten("a.xlsx", "--user u2");
    EXPECT_EQ(Column("a.xlsx", "选项", 1), (Texts{"D02", "D03"}));
    EXPECT_EQ(Column("a.xlsx", "选项", 2), (Texts{"P2", "P3"}));
    EXPECT_EQ(Column("a.xlsx", "选项", 3), (Texts{"三", "二"}));
    EXPECT_EQ(Column("a.xlsx", "选项", 5), (Texts{"007", "E2"}));
    ExpectWritten("a.xlsx", "--user u3");
    EXPECT_EQ(Column("a.xlsx", "选项", 1).front(), "D01");
    EXPECT_EQ(Column("a.xlsx", "选项", 2), (Texts{"P1", "P2", "P3"}));
}

TEST_F(TemplateCommandTest, ReplacesAnExistingFile) {
    WriteText(PathOf("a.csv"), "old");
    ExpectWritten("a.csv");
    EXPECT_NE(ReadText(PathOf("a.csv")), "old");
    EXPECT_EQ(mFolder.FileCount(), 2U);
}

TEST_F(TemplateCommandTest, WritesNothingWhenItCannot) {
    ExpectRefused(Write("a.pdf"), "kelvane: " + PathOf("a.pdf") +
                                      ": the name must end in one of these: .xlsx, .csv\n");
    ExpectRefused(Write("none/a.csv"),
                  "kelvane: " + PathOf("none/a.csv") + ": there is no such folder\n");
    ExpectRefused(Write("a.csv", "--user nobody"), "kelvane: 帐套中没有操作员 nobody\n");
    ExpectRefused(Write("a.csv", "--year 1999"), "kelvane: 帐套中没有 1999 年度的会计期间\n");
    PlainSqlite(mAccount).Rows("alter table fitemstructure rename column bPrimaryKey to x");
    ExpectRefused(Write("a.csv"), "kelvane: Invalid column name 'bPrimaryKey'.\n");
    EXPECT_EQ(mFolder.FileCount(), 1U);
    std::filesystem::remove(mAccount);
    ExpectRefused(Write("a.csv"), "kelvane: 账套文件 " + mAccount.string() + " 不存在\n");
}

}  // namespace
}  // namespace kelvane::host_test
