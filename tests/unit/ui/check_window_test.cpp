// The check over the list: what a script cannot bring about.
#include "ui/check/check_window.h"

#include "tests/support/remembered_settings.h"
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class CheckWindowTest : public EntryListTest {
protected:
    // Checks while `act` does what the operator does in the window.
    void Check(const std::function<void(frmCheck&)>& act) {
        windows.acts.emplace_back(
            [act](controls::Form& form) { act(dynamic_cast<frmCheck&>(form)); });
        Form().OpenFrom(Form().CheckEntries);
        EXPECT_TRUE(windows.acts.empty()) << "no window was shown";
    }
    static std::vector<std::string> Rules(const controls::Grid& grid) {
        std::vector<std::string> rules;
        for (int row = 1; row < grid.Rows(); ++row) {
            rules.push_back(grid.Text(row, kCheckIdentity) + " " + grid.Text(row, kCheckRule));
        }
        return rules;
    }
    static int RowOf(const controls::Grid& grid, std::string_view rule) {
        int row = 1;
        while (row < grid.Rows() && grid.Text(row, kCheckRule) != rule) ++row;
        return row;
    }
};

TEST_F(CheckWindowTest, ADoubleClickGoesToTheEntry) {
    Run("update PM_ItemQC set cDigest='' where iEleVid=1");
    Run("update PM_ItemQC set mQC=0 where iEleVid=3");
    Open();
    Check([](frmCheck& window) {
        controls::Grid& grid = window.GridFindings;
        grid.MoveTo(RowOf(grid, "check.zero"), kCheckText);
        grid.CellDoubleClick(0, kCheckText);
        EXPECT_TRUE(window.IsLoaded()) << "on the titles";
        grid.CellDoubleClick(grid.Row(), kCheckText);
        EXPECT_FALSE(window.IsLoaded());
    });
    EXPECT_EQ(List().RowData(List().Row()), 3);
    EXPECT_EQ(List().SelectionEnd(), kAmountColumn);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(CheckWindowTest, AFindingOfNoEntryIsToldAsSuch) {
    Run("insert into pm_BudgetVer values(1,1)");
    Run("insert into pm_BudgetVer values(2,1)");
    Open();
    Check([](frmCheck& window) {
        controls::Grid& grid = window.GridFindings;
        ASSERT_THAT(Rules(grid), testing::Contains(" check.budget"));
        grid.MoveTo(RowOf(grid, "check.budget"), kCheckText);
        window.cmdGo.Press();
        EXPECT_TRUE(window.IsLoaded());
    });
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 这一条说的不是某一行期初。"));
}

TEST_F(CheckWindowTest, ALongTextIsShownWhole) {
    const std::string code(60, 'X');
    Run(
        platform::FixedText("update PM_ItemQC set cCenterCode="
                            "'XXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXXX' "
                            "where iEleVid=1"));
    Open();
    Check([&](frmCheck& window) {
        controls::Grid& grid = window.GridFindings;
        window.SetSize(window.MinWidth(), window.MinHeight());
        const int row = RowOf(grid, "check.center");
        grid.MoveTo(row, kCheckText);
        const std::string text = grid.Text(row, kCheckText);
        EXPECT_THAT(text, HasSubstr(code));
        EXPECT_EQ(window.lblText1.Caption() + window.lblText2.Caption() + window.lblText3.Caption(),
                  text);
        EXPECT_NE(window.lblText2.Caption(), "");
    });
}

TEST_F(CheckWindowTest, AFailureIsToldInTheWindowAlone) {
    Open();
    const std::string before = Form().Notice();
    log.failing = "PM_ItemQCsub";
    Check([&](frmCheck& window) {
        EXPECT_THAT(window.Notice(), StartsWith("检查时出错，没有检查完。"));
        EXPECT_EQ(window.lblCounts.Caption(), "没有检查成。");
        EXPECT_FALSE(window.cmdGo.Enabled());
        log.failing.clear();
        window.cmdAgain.Press();
        EXPECT_EQ(window.Notice(), "");
        EXPECT_THAT(window.lblCounts.Caption(), StartsWith("共检查期初 3 行"));
    });
    EXPECT_EQ(Form().Notice(), before);
    EXPECT_TRUE(data::gTrapListener) << "the list hears of its own failures again";
}

TEST_F(CheckWindowTest, AWidthThatTheOperatorGaveStays) {
    support::RememberedSettings settings;
    services.userSettings = &settings;
    Open();
    Check([](frmCheck& window) { window.GridFindings.ResizeColumn(kCheckText, 3000); });
    Check([](frmCheck& window) {
        EXPECT_EQ(window.GridFindings.ColumnWidth(kCheckText), 3000);
        window.GridFindings.RestoreColumnWidths();
        EXPECT_GT(window.GridFindings.ColumnWidth(kCheckText), 3000);
    });
    services.userSettings = nullptr;
}

}  // namespace
}  // namespace kelvane::ui
