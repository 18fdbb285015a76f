// The import window over the list: what a script cannot bring about.
#include "ui/import/import_window.h"

#include <chrono>

#include "tests/support/memory_table_import.h"
#include "tests/support/remembered_settings.h"
#include "tests/unit/entries/bulk/memory_table.h"
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/import/columns_dialog.h"
#include "ui/import/work_progress.h"

namespace kelvane::ui {
namespace {

using controls::WindowAction;
using entries_test::MemoryTable;
using platform::MessageAnswer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

using Rows = std::vector<std::vector<std::string>>;

const std::vector<std::string> kTitles{"日期", "责任中心", "项目编号",  "标段",
                                       "要素", "摘要",     "未结转期初"};
const std::vector<std::string> kGood{"2004-06-05", "D01", "P01", "一标段", "人工费", "一", "10"};

support::MemoryTableImport::MakeTable TableOf(const Rows& rows) {
    return [rows] {
        auto table = std::make_unique<MemoryTable>("期初");
        for (const auto& row : rows) table->AddTexts(row);
        return table;
    };
}

class ImportWindowTest : public EntryListTest {
protected:
    ImportWindowTest() {
        services.tableImport = &tables;
        services.today = [] { return platform::DateTime{2004, 7, 15}; };
        tables.files["a.xlsx"] = TableOf({kTitles, kGood});
        tables.chosen = "a.xlsx";
    }

    const WindowAction& Action(std::string_view caption) {
        for (const WindowAction& action : Form().Actions()) {
            if (action.caption == caption) return action;
        }
        throw std::logic_error("no action " + std::string(caption));
    }
    // Imports the file while `act` does what the operator does in the window.
    void Import(const std::function<void(frmImport&)>& act) {
        windows.acts.emplace_back(
            [act](controls::Form& form) { act(dynamic_cast<frmImport&>(form)); });
        EXPECT_TRUE(Form().Run(Action("导入")));
    }
    static void Type(controls::Grid& grid, int row, int col, std::string_view text) {
        grid.MoveTo(row, col);
        grid.EnterText(text);
    }

    support::MemoryTableImport tables;
};

TEST_F(ImportWindowTest, WithoutTheServiceNothingIsImported) {
    Open();
    windows.clipboard = "1\t2\n";
    EXPECT_TRUE(Form().CanRun(Action("导入")));
    EXPECT_TRUE(Form().CanRun(Action("粘贴并导入")));
    services.tableImport = nullptr;
    EXPECT_FALSE(Form().CanRun(Action("导入")));
    EXPECT_FALSE(Form().CanRun(Action("粘贴并导入")));
}

TEST_F(ImportWindowTest, OnlyWhatIsMoreThanOneCellIsPasted) {
    Open();
    tables.copied = TableOf({{"一行\n两行"}});
    for (const char* cell : {"", "人工费", "人工费\n", "人工费\r\n\r\n", "\"一行\n两行\""}) {
        windows.clipboard = cell;
        EXPECT_FALSE(Form().CanRun(Action("粘贴并导入"))) << cell;
    }
    for (const char* table : {"1\t2", "1\n2", "1\r\n2\r\n"}) {
        windows.clipboard = table;
        EXPECT_TRUE(Form().CanRun(Action("粘贴并导入"))) << table;
    }
}

TEST_F(ImportWindowTest, TheLineSaysWhatWasDoneAndTheListHasIt) {
    Open();
    Import([](frmImport& window) { window.cmdImport.Press(); });
    EXPECT_EQ(Form().Hint(), "已导入期初：新增 1 行（批次 1）。");
    EXPECT_EQ(Form().Notice(), "");
    EXPECT_EQ(List().RowData(List().Row()), 4);
    EXPECT_THAT(Messages(), IsEmpty());
    const platform::BatchIntent& intent = tables.journal.batches.at(0).intent;
    EXPECT_EQ(intent.file, "a.xlsx");
    EXPECT_EQ(intent.hash, "file a.xlsx");
    EXPECT_EQ(intent.user, login.UserId());
    EXPECT_EQ(intent.time, (platform::DateTime{2004, 7, 15}));
    // A change that is saved is the next thing to be told.
    Go(1, kDigestColumn);
    EntryListTest::Type("改");
    Go(2, kDigestColumn);
    EXPECT_THAT(Form().Hint(), Not(HasSubstr("已导入")));
}

TEST_F(ImportWindowTest, ABatchWhoseEndIsNotNotedDownIsAWarning) {
    Open();
    tables.journal.endFails = true;
    Import([](frmImport& window) { window.cmdImport.Press(); });
    EXPECT_EQ(Form().Notice(),
              "已导入期初：新增 1 行（批次 1）。已经写入帐套，但批次 1 "
              "的结果没有记入日志：模拟的日志错误。");
    EXPECT_EQ(List().RowData(List().Row()), 4);
}

TEST_F(ImportWindowTest, ACheckThatFailsLeavesNothingToEnter) {
    Open();
    log.failing = "PM_DutycenterSub";
    Import([&](frmImport& window) {
        EXPECT_THAT(window.Notice(), HasSubstr("检查时出错，不能录入。"));
        EXPECT_FALSE(window.cmdImport.Enabled());
        log.failing.clear();
        Type(window.GridRows, 1, kDigestColumn, "再来");
        EXPECT_EQ(window.Notice(), "");
        EXPECT_TRUE(window.cmdImport.Enabled());
        windows.answers = {MessageAnswer::Yes};
    });
    EXPECT_THAT(Read("select count(*) from PM_ItemQC"), ElementsAre("3"));
}

TEST_F(ImportWindowTest, AJournalThatCannotBeOpenedIsToldBeforeAnything) {
    Open();
    tables.journalIsMissing = true;
    EXPECT_TRUE(Form().Run(Action("导入")));
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 没有读入：日志不能打开"));
}

TEST_F(ImportWindowTest, WhatAnotherOperatorTookIsFoundWhenTheRowsAreEntered) {
    Run("insert into pm_BudgetVer values(1,1)");
    Run("insert into pm_budget values(1,'P02','E01',1,100)");
    tables.files["a.xlsx"] =
        TableOf({kTitles, {"2004-06-05", "D01", "P02", "二标段", "人工费", "一", "60"}});
    Open();
    Import([&](frmImport& window) {
        ASSERT_TRUE(window.cmdImport.Enabled());
        Run("insert into PM_ItemQC values(9,'2004-06-01','D01','P02','二标段','','E01','他',50)");
        window.cmdImport.Press();
        ASSERT_TRUE(window.IsLoaded());
        EXPECT_TRUE(window.GridRows.HasFault(1, kAmountColumn));
        EXPECT_FALSE(window.cmdImport.Enabled());
        Type(window.GridRows, 1, kAmountColumn, "50");
        EXPECT_TRUE(window.cmdImport.Enabled());
        window.cmdImport.Press();
        EXPECT_FALSE(window.IsLoaded());
    });
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 有 1 行被拒绝，没有录入任何行。"));
    EXPECT_THAT(Read("select sum(mQC) from PM_ItemQC where cItemCode='P02' and cElementCode='E01'"),
                ElementsAre("100"));
}

TEST_F(ImportWindowTest, AfterALostAnswerTheSameIsNotEnteredTwiceUnasked) {
    Open();
    Import([&](frmImport& window) {
        log.lostAnswer = support::StatementLog::LostAnswer::Saved;
        window.cmdImport.Press();
        ASSERT_TRUE(window.IsLoaded());
        log.lostAnswer = support::StatementLog::LostAnswer::None;
        window.cmdImport.Press();  // the question is answered with No
        EXPECT_TRUE(window.IsLoaded());
    });
    EXPECT_THAT(
        Messages(),
        ElementsAre(
            "[提示信息|exclamation] 没有收到数据库的答复，不知道是否已经录入。请关闭此窗口，"
            "重新打开列表查看。",
            "[项目管理|question] 该文件已于 2004-07-15 00:00:00 由 " + login.UserId() +
                " 导入（批次 1）。要再导入一次吗？ (yes/NO)"));
    EXPECT_THAT(Read("select count(*) from PM_ItemQC"), ElementsAre("4"));
}

TEST_F(ImportWindowTest, AWriteThatFailsLeavesTheWindowAndTheAccountAsTheyWere) {
    Open();
    Import([&](frmImport& window) {
        log.failing = "insert into PM_ItemQC";
        log.losesConnection = true;
        window.cmdImport.Press();
        log.failing.clear();
        EXPECT_TRUE(window.IsLoaded());
        EXPECT_TRUE(window.cmdImport.Enabled());
    });
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|exclamation] 没有录入任何行："
                                        "数据库连接已断开，恢复后会自动重新连接。"));
    EXPECT_THAT(tables.journal.batches, IsEmpty());
    EXPECT_THAT(Read("select count(*) from PM_ItemQC"), ElementsAre("3"));
}

TEST_F(ImportWindowTest, ColumnsByHandAreRememberedForTheSameTitles) {
    support::RememberedSettings settings;
    services.userSettings = &settings;
    auto titles = kTitles;
    titles[5] = "说明";
    tables.files["a.xlsx"] = TableOf({titles, kGood});
    Open();
    windows.acts.emplace_back([](controls::Form& form) {
        auto& dialog = dynamic_cast<frmImportColumns&>(form);
        EXPECT_EQ(dialog.cboTitles.Text(), "第 1 行");
        int row = 1;
        while (dialog.GridColumns.Text(row, 0) != "摘要 *") ++row;
        EXPECT_EQ(dialog.GridColumns.Text(row, 1), "");
        Type(dialog.GridColumns, row, 1, "F");
        EXPECT_EQ(dialog.GridColumns.Text(row, 1), "F 说明");
        EXPECT_EQ(dialog.GridColumns.Text(row, 2), "一");
        dialog.cmdOK.Press();
    });
    Import([](frmImport& window) { EXPECT_EQ(window.GridRows.Text(1, kDigestColumn), "一"); });
    tables.files["a.xlsx"] = TableOf({{"某公司"}, titles, kGood, kGood});
    Import([](frmImport& window) {
        EXPECT_EQ(window.GridRows.Rows(), 3);
        EXPECT_EQ(window.GridRows.Text(2, kDigestColumn), "一");
    });
    services.userSettings = nullptr;
}

TEST_F(ImportWindowTest, ALineIsAddedToTheCurrentRow) {
    Run("insert into inventory values('M01','钢筋','HRB335',10,'01','01')");
    tables.files["a.xlsx"] =
        TableOf({kTitles, {"2004-06-05", "D01", "P02", "二标段", "材料费", "一", ""}});
    Open();
    Import([](frmImport& window) {
        EXPECT_FALSE(window.GridLines.Visible());
        window.AddLine();
        EXPECT_TRUE(window.GridLines.Visible());
        EXPECT_EQ(window.ActiveControl(), &window.GridLines);
        Type(window.GridLines, 1, entries::kLineCodeColumn, "M01");
        Type(window.GridLines, 1, entries::kLinePriceColumn, "10");
        Type(window.GridLines, 1, entries::kLineQuantityColumn, "3");
        EXPECT_EQ(window.Figures(), "第 1 行，共 1 行   有错 0 行   合计 30.00");
        window.cmdImport.Press();
    });
    EXPECT_THAT(Read("select mQC from PM_ItemQCsub where iEleVid=4"), ElementsAre("30"));
}

TEST_F(ImportWindowTest, WhatIsTypedAgainIsNoChange) {
    Open();
    Import([](frmImport& window) {
        window.GridRows.MoveTo(1, kDigestColumn);
        window.GridRows.EnterText("一");
    });
    EXPECT_THAT(Messages(), IsEmpty()) << "what is as it was is given up without a question";
}

WorkProgress::Clock::time_point gNow;

TEST_F(ImportWindowTest, LongWorkIsShownAfterASecondAndCanBeEnded) {
    gNow = {};
    {
        WorkProgress work(tables, "检查期初", [] { return gNow; });
        EXPECT_TRUE(work(1, 10));
        EXPECT_THAT(tables.progress, IsEmpty());
        gNow += std::chrono::seconds(1);
        EXPECT_TRUE(work(2, 10));
        EXPECT_THAT(tables.progress, ElementsAre("检查期初"));
        tables.goesOn = false;
        EXPECT_TRUE(work(3, 10)) << "not asked again at once";
    }
    WorkProgress work(tables, "录入期初", [] { return gNow; });
    gNow += std::chrono::seconds(1);
    EXPECT_FALSE(work(4, 10));
}

}  // namespace
}  // namespace kelvane::ui
