// kelvane export --editable, run as a user runs it, and what an import makes of its workbook.
#include <gtest/gtest.h>

#include "adapters/tables/open_table.h"
#include "tests/unit/host/plain_sqlite.h"
#include "tests/unit/host/program.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

class EditableExportTest : public testing::Test {
protected:
    EditableExportTest() { Make("--keywords 2"); }

    void Make(const std::string& more) const {
        EXPECT_EQ(RunProgram("init --sample --force " + more + " " + ShellQuoted(mAccount.string()))
                      .status,
                  0);
    }
    ProgramResult Export(const std::string& name) const {
        return RunProgram("export " + ShellQuoted(mAccount.string()) + " --editable --to " +
                          ShellQuoted(PathOf(name)));
    }
    // The last line of an import's dry run.
    std::string Imported(const std::string& name) const {
        const auto result = RunProgram("import --dry-run " + ShellQuoted(mAccount.string()) + " " +
                                       ShellQuoted(PathOf(name)));
        const std::string text = result.output + result.errors;
        const std::size_t end = text.rfind("rows ");
        return end == std::string::npos ? text : text.substr(end);
    }
    void ExpectWritten(const std::string& name, const std::string& errors = {}) const {
        const auto result = Export(name);
        EXPECT_EQ(result.errors, errors);
        EXPECT_EQ(result.output, PathOf(name) + " is written.\n");
        EXPECT_EQ(result.status, 0);
    }
    std::string PathOf(const std::string& name) const { return (mFolder / name).string(); }
    void Change(const std::string& statement) const { PlainSqlite(mAccount).Rows(statement); }
    std::vector<std::string> Ask(const std::string& query) const {
        return PlainSqlite(mAccount).Rows(query);
    }

    // The sheet's rows, the cells of each joined by "|".
    std::vector<std::string> Rows(const std::string& name, std::size_t sheet) const {
        std::vector<std::string> rows;
        tables::OpenTable(PathOf(name))->Read(sheet, [&](const platform::TableRow& row) {
            std::string line;
            for (const auto& cell : row.cells) {
                const bool isDate = cell.kind == platform::CellKind::Date;
                line += (isDate ? cell.date.DateText() : cell.text) + "|";
            }
            rows.push_back(line);
            return true;
        });
        return rows;
    }

    TemporaryFolder mFolder;
    std::filesystem::path mAccount = mFolder / "a.kelvane";
};

const std::string kNothingChanged = ", changed 0, deleted 0, unchanged ";

TEST_F(EditableExportTest, WhatWasLeftAsItIsChangesNothing) {
    for (const char* keywords : {"0", "1", "2"}) {
        Make(std::string("--keywords ") + keywords + " --entries 200");
        ExpectWritten("a.xlsx");
        EXPECT_EQ(Imported("a.xlsx"), "rows 200: new 0" + kNothingChanged + "200, refused 0\n");
    }
}

TEST_F(EditableExportTest, HasEveryEntryWithItsLines) {
    Change("delete from PM_ItemQC where iEleVid not in (select min(iEleVid) from PM_ItemQCsub)");
    Change(
        "update PM_ItemQC set dDate = '2003-05-06 00:00:00', cCenterCode = 'D1',"
        " cItemCode = 'P001', cKeyCode1 = 'A', cKeyCode2 = '2', cDigest = '=摘要',"
        " mQC = '-1234.5678'");
    Change("delete from PM_ItemQCsub where iEleVid not in (select iEleVid from PM_ItemQC)");
    ExpectWritten("a.xlsx");
    const auto rows = Rows("a.xlsx", 0);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(
        rows[0],
        "日期|责任中心|项目编号|项目名称|标段 (关键字)|期次 (关键字)|要素|摘要|未结转期初|行号|"
        "操作|编号|校验|");
    const std::string identity = Ask("select iEleVid from PM_ItemQC")[0];
    const std::string names = Ask(
        "select citemname || '|A|2|' || cElementName from PM_ItemQC q join fitemss97 i on"
        " i.citemcode = q.cItemCode join PM_ItemElement e on e.cElementCode = q.cElementCode")[0];
    EXPECT_EQ(
        rows[1].substr(0, rows[1].size() - 17),
        "2003-05-06|D1|P001|" + names + "|=摘要|-1234.5678|" + identity + "|" + identity + "|");
    const auto lines = Rows("a.xlsx", 1);
    EXPECT_EQ(lines[0], "行号|编码|名称|规格|单位|单价|数量|余额|");
    EXPECT_EQ(lines.size(), Ask("select * from PM_ItemQCsub").size() + 1);
    EXPECT_TRUE(lines[1].starts_with(identity + "|")) << lines[1];
}

TEST_F(EditableExportTest, IsExactWhateverIsStored) {
    const auto entries = Ask("select iEleVid from PM_ItemQC order by iEleVid");
    const std::vector<std::string> changes{"mQC = '900000000000123.4567'",
                                           "mQC = '9.9500'",
                                           "dDate = null",
                                           "dDate = '1899-12-31 00:00:00'",
                                           "cDigest = '_x0041_ ' || char(10) || ' <&>'",
                                           "cDigest = '''=1'",
                                           "cDigest = ' 留白 '",
                                           "dDate = '2003-05-06 12:30:00'"};
    for (std::size_t at = 0; at < changes.size(); ++at) {
        Change("update PM_ItemQC set " + changes[at] + " where iEleVid = " + entries[at]);
    }
    Change("update PM_ItemQCsub set iNum = 0.1 + 0.2, iUprice = '9.9499'");
    ExpectWritten("a.xlsx");
    EXPECT_EQ(Imported("a.xlsx"), "rows 25: new 0" + kNothingChanged + "25, refused 0\n");
}

TEST_F(EditableExportTest, LeavesOutWhatATableCannotTell) {
    Make("--keywords 1");
    Change("update PM_ItemQC set cElementCode = 'none' where iEleVid = 3");
    Change("update PM_ItemQC set cKeyCode2 = 'x' where iEleVid = 5");
    ExpectWritten("a.xlsx",
                  "Left out, because a table cannot tell their element or keywords: 3, 5\n");
    EXPECT_EQ(Imported("a.xlsx"), "rows 23: new 0" + kNothingChanged + "23, refused 0\n");
    Change("update PM_ItemElement set cElementName = '同名'");
    EXPECT_EQ(Export("a.xlsx").status, 0);
    EXPECT_EQ(Rows("a.xlsx", 0).size(), 1U);
}

TEST_F(EditableExportTest, NamesTheAccountAndItsLayout) {
    ExpectWritten("a.xlsx");
    EXPECT_EQ(tables::OpenTable(PathOf("a.xlsx"))->Properties(),
              (std::map<std::string, std::string>{{"kelvane.account", "a.kelvane"},
                                                  {"kelvane.layout", "1"}}));
}

TEST_F(EditableExportTest, OfAnEmptyAccountHasItsTitles) {
    Change("delete from PM_ItemQC");
    ExpectWritten("a.xlsx");
    EXPECT_EQ(Rows("a.xlsx", 0).size(), 1U);
    EXPECT_EQ(Imported("a.xlsx"), "rows 0: new 0" + kNothingChanged + "0, refused 0\n");
}

TEST_F(EditableExportTest, IsAWorkbookOrNothing) {
    const auto refused = Export("a.csv");
    EXPECT_EQ(refused.errors,
              "kelvane: " + PathOf("a.csv") + ": the name must end in one of these: .xlsx\n");
    EXPECT_EQ(refused.output, "");
    EXPECT_EQ(refused.status, 1);
    Change("alter table PM_ItemElement rename column cElementName to x");
    EXPECT_EQ(Export("a.xlsx").status, 1);
    EXPECT_EQ(mFolder.FileCount(), 1U);
}

}  // namespace
}  // namespace kelvane::host_test
