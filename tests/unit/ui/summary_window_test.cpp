// The summary over the list: what a script cannot bring about.
#include "ui/summary/summary_window.h"

#include "adapters/sqlite/database.h"
#include "tests/support/remembered_settings.h"
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/summary/summary_entries.h"

namespace kelvane::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SummaryWindowTest : public EntryListTest {
protected:
    ~SummaryWindowTest() override {
        frmSummary& form = GetSummaryForm();
        form.cboField1.SetText("项目");
        form.cboField2.SetText("要素");
    }
    void Tamper(const char* statement) { sqlite::Database(account.Path(), 5000).Run(statement); }
    void Summarize(const std::function<void(frmSummary&)>& act) {
        windows.acts.emplace_back(
            [act](controls::Form& form) { act(dynamic_cast<frmSummary&>(form)); });
        Form().OpenFrom(Form().SummarizeEntries);
        EXPECT_TRUE(windows.acts.empty()) << "no window was shown";
    }
    // Shows the entries of the row that is current while `act` does what the operator does.
    void ShowEntries(frmSummary& window, const std::function<void(frmSummaryEntries&)>& act) {
        windows.acts.emplace_back(
            [act](controls::Form& form) { act(dynamic_cast<frmSummaryEntries&>(form)); });
        window.cmdShow.Press();
        EXPECT_TRUE(windows.acts.empty()) << "no window was shown";
    }
};

TEST_F(SummaryWindowTest, TotalsStandOutAndFiguresStandRight) {
    Open();
    Summarize([](frmSummary& window) {
        const controls::Grid& grid = window.GridSummary;
        ASSERT_EQ(grid.Rows(), 8);
        const int total = grid.Rows() - 1;
        EXPECT_EQ(grid.CellColor(1, 0), grid.BackColor());
        EXPECT_NE(grid.CellColor(2, 0), grid.BackColor());
        EXPECT_NE(grid.CellColor(total, 0), grid.BackColor());
        EXPECT_NE(grid.CellColor(total, 0), grid.CellColor(2, 0));
        EXPECT_EQ(grid.CellColor(total, grid.Cols() - 1), grid.CellColor(total, 0));
        EXPECT_EQ(grid.ColumnAlignment(0), controls::Alignment::Left);
        EXPECT_EQ(grid.ColumnAlignment(3), controls::Alignment::Left);
        for (int col = 4; col < grid.Cols(); ++col) {
            EXPECT_EQ(grid.ColumnAlignment(col), controls::Alignment::Right) << col;
        }
    });
}

TEST_F(SummaryWindowTest, ADoubleClickGoesAllTheWay) {
    Open();
    Summarize([this](frmSummary& window) {
        window.GridSummary.MoveTo(window.GridSummary.Rows() - 1, 0);
        window.GridSummary.CellDoubleClick(0, 0);
        EXPECT_TRUE(window.IsLoaded()) << "on the titles";
        ShowEntries(window, [](frmSummaryEntries& entries) {
            entries.GridEntries.MoveTo(2, kDateColumn);
            entries.GridEntries.CellDoubleClick(2, kDateColumn);
        });
        EXPECT_FALSE(window.IsLoaded());
    });
    EXPECT_EQ(List().RowData(List().Row()), 2);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SummaryWindowTest, AnEntryIsShownAsItIsStored) {
    Run("update PM_ItemQC set dDate=null, mQC=0.1234 where iEleVid=1");
    Run("update PM_ItemQC set cElementCode='E99', cDigest='甲	乙' where iEleVid=2");
    Open();
    Summarize([this](frmSummary& window) {
        window.GridSummary.MoveTo(window.GridSummary.Rows() - 1, 0);
        ShowEntries(window, [](frmSummaryEntries& entries) {
            EXPECT_EQ(entries.GridEntries.RowText(1),
                      "1\t\tD01\tP01\t一号楼\t一标段\t\t人工费\t人工\t0.1234");
            EXPECT_EQ(entries.GridEntries.RowText(2),
                      "2\t2004-06-02\tD01\tP02\t二号楼\t二标段\t\t\t甲 乙\t350.00");
        });
    });
}

TEST_F(SummaryWindowTest, ADamagedEntryIsShownAsFarAsItCanBeRead) {
    Open();
    Tamper("update PM_ItemQC set dDate='某日' where iEleVid=1");
    Tamper("update PM_ItemQC set iEleVid=5000000000 where iEleVid=3");
    Summarize([this](frmSummary& window) {
        window.GridSummary.MoveTo(window.GridSummary.Rows() - 1, 0);
        ShowEntries(window, [](frmSummaryEntries& entries) {
            EXPECT_EQ(entries.GridEntries.Text(1, kDateColumn), "（无法读取）");
            EXPECT_EQ(entries.GridEntries.Text(3, 0), "5000000000");
            entries.GridEntries.MoveTo(3, kDateColumn);
            entries.cmdGo.Press();
            EXPECT_TRUE(entries.IsLoaded());
        });
    });
    EXPECT_THAT(Messages(), ElementsAre(testing::HasSubstr("列表中没有编号为 5000000000 的期初")));
}

TEST_F(SummaryWindowTest, AnAmountThatCannotBeReadIsTold) {
    Tamper("update PM_ItemQC set mQC='nan' where iEleVid=1");
    Open();
    Summarize([](frmSummary& window) {
        EXPECT_EQ(window.Notice(),
                  "汇总时出错，没有汇总出来。有 1 行期初的金额无法识别，"
                  "第一行是期初编号 1，不能汇总");
        EXPECT_EQ(window.GridSummary.Rows(), 1);
        EXPECT_FALSE(window.cmdShow.Enabled());
    });
}

TEST_F(SummaryWindowTest, WithoutPrintServicesNothingIsPrinted) {
    Open();
    Summarize([](frmSummary& window) {
        EXPECT_FALSE(window.Printing.cmdPrint.Enabled());
        EXPECT_FALSE(window.Printing.cmdPreview.Enabled());
        EXPECT_FALSE(window.Printing.cmdExport.Enabled());
        EXPECT_TRUE(window.cmdShow.Enabled());
    });
}

TEST_F(SummaryWindowTest, TheChoiceAloneIsSummedUpAgain) {
    Open();
    Summarize([this](frmSummary& window) {
        log.statements.clear();
        window.cboField1.SetText("项");
        window.cboField1.SetText("项目");
        EXPECT_THAT(log.statements, IsEmpty()) << "nothing else was chosen";
        window.cboField1.SetText("月份");
        EXPECT_FALSE(log.statements.empty());
        EXPECT_EQ(window.GridSummary.Text(0, 0), "月份");
    });
}

TEST_F(SummaryWindowTest, WidthsAreNotThoseOfAnotherChoice) {
    support::RememberedSettings settings;
    services.userSettings = &settings;
    Open();
    Summarize([](frmSummary& window) { window.GridSummary.ResizeColumn(5, 300); });
    Summarize([](frmSummary& window) {
        EXPECT_FALSE(window.GridSummary.IsColumnResized(5));
        EXPECT_NE(window.GridSummary.ColumnWidth(5), 300);
    });
    services.userSettings = nullptr;
}

}  // namespace
}  // namespace kelvane::ui
