// How the list opens: what it sets up, where its controls lie, and that nothing of an earlier
// opening stays.
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/detail_editor/detail_editor.h"

namespace kelvane::ui {
namespace {

using controls::Alignment;
using testing::ElementsAre;
using testing::IsEmpty;

class EntryLayoutTest : public EntryListTest {
protected:
    std::vector<std::string> Column(int col) {
        std::vector<std::string> texts;
        for (int row = 1; row < List().Rows(); ++row) texts.push_back(List().Text(row, col));
        return texts;
    }
};

TEST_F(EntryLayoutTest, OpeningSetsUpTheWindow) {
    registry.answer = {platform::Registry::Outcome::Found, "Plain"};
    environment.hostPath = "C:\\Kx";
    Open();
    EXPECT_EQ(Form().IconPicture(), 106);
    EXPECT_EQ(Form().cmdRef.Picture(), 108);
    EXPECT_EQ(windows.helpFile, "C:\\Kx\\help\\项目管理.chm");
    EXPECT_EQ(data::gToolbarStyle, 1);
    EXPECT_EQ(data::gPmStartYear, 2004);
    EXPECT_EQ(data::gItemKeyField1, "标段");
    EXPECT_EQ(Form().mGridLayoutText, List().FormatText());
    EXPECT_EQ(Form().ActiveControl(), &List());
    EXPECT_EQ(List().Row(), 0);
}

TEST_F(EntryLayoutTest, TheSuiteStyleIsKeptAsZero) {
    data::gToolbarStyle = 1;
    registry.answer = {platform::Registry::Outcome::Found, "Tool"};
    Open();
    EXPECT_EQ(data::gToolbarStyle, 0);
    EXPECT_EQ(Form().CTBCtrl1.GetToolbarStyle(), 1);
}

TEST_F(EntryLayoutTest, ButtonsHaveTheImagesOfTheirKeys) {
    Open();
    std::vector<std::string> images;
    for (const controls::ToolbarImage& image : Form().Toolbar1.Images()) {
        images.push_back(image.key);
    }
    EXPECT_THAT(images, ElementsAre("Print", "Preview", "Output", "Addnew", "Delete", "Find",
                                    "Help", "Quit"));
    std::vector<std::string> buttons;
    for (const controls::ToolbarButton& button : Form().Toolbar1.Buttons()) {
        buttons.push_back(button.IsSeparator()
                              ? "-"
                              : button.Key() + " " + button.Caption() + " " + button.Image());
    }
    EXPECT_THAT(buttons,
                ElementsAre("Print 打印 Print", "PreView 预览 Preview", "DataOut 输出 Output", "-",
                            "Add 增加 Addnew", "Delete 删除 Delete", "-", "Find 定位 Find", "-",
                            "Help 帮助 Help", "Exit 退出 Quit"));
}

TEST_F(EntryLayoutTest, ColumnsAreLaidOut) {
    Open();
    const controls::Grid& grid = List();
    EXPECT_EQ(grid.Cols(), 10);
    EXPECT_EQ(grid.FixedRows(), 1);
    EXPECT_EQ(grid.FixedCols(), 1);
    EXPECT_EQ(grid.RowHeight(0), 400);
    EXPECT_EQ(grid.RowHeight(1), 300);
    EXPECT_EQ(grid.BackColor(), 0xFFFFFFU);
    EXPECT_EQ(grid.FixedColor(), controls::Rgb(247, 237, 236));
    EXPECT_EQ(grid.LockedColor(), controls::Rgb(205, 208, 215));
    EXPECT_EQ(grid.RowText(0),
              "\t日期\t责任中心\t项目编号\t项目名称\t标段 (关键字)\t\t要素\t摘要\t未结转期初");
    std::vector<int> widths;
    for (int col = 0; col < grid.Cols(); ++col) {
        widths.push_back(grid.ColumnWidth(col));
        if (col == 0) continue;
        EXPECT_EQ(grid.CellAlignment(0, col), Alignment::Center) << col;
        EXPECT_EQ(grid.CellAlignment(1, col), col == 9 ? Alignment::Right : Alignment::Left) << col;
    }
    EXPECT_THAT(widths, ElementsAre(0, 1300, 1200, 1200, 2500, 1500, 0, 1500, 1500, 1500));
}

TEST_F(EntryLayoutTest, EntriesAreReSummedAndShown) {
    Open();
    EXPECT_THAT(Column(kItemColumn), ElementsAre("P01", "P02", "P03"));
    EXPECT_THAT(Column(kAmountColumn), ElementsAre("1,234.50", "350.00", "80.00"));
    EXPECT_THAT(Read("select mQC from PM_ItemQC order by iEleVid"),
                ElementsAre("1234.5", "350", "80"));
    EXPECT_EQ(Form().ElementDetailFlag(1), 0);
    EXPECT_EQ(Form().ElementDetailFlag(2), 1);
    EXPECT_EQ(Form().ElementDetailFlag(3), 2);
    EXPECT_FALSE(List().IsLocked(1, kDateColumn));
    EXPECT_TRUE(List().IsLocked(1, kItemNameColumn));
    for (int col = kDateColumn; col <= kAmountColumn; ++col) EXPECT_TRUE(List().IsLocked(3, col));
    EXPECT_EQ(Form().Notice(), "");
}

// Places, in twips.

TEST_F(EntryLayoutTest, ControlsFollowTheWindowsSize) {
    Open();
    Form().SetSize(12000, 8000);
    EXPECT_EQ(Form().ScaleWidth(), 12000 - controls::Form::kFrameWidth);
    EXPECT_EQ(List().Width(), 12000 - 90);
    EXPECT_EQ(List().Height(), 8000 - Form().Toolbar1.Height() - Form().Picture1.Height() - 500);
    EXPECT_EQ(Form().CTBCtrl1.Width(), Form().ScaleWidth());
    EXPECT_EQ(Form().CapLable.Left(), (Form().ScaleWidth() - Form().CapLable.Width()) / 2);
    EXPECT_EQ(Form().Picture1.Top(), Form().CTBCtrl1.Height() - 15);
    EXPECT_EQ(Form().Picture1.Width(), Form().ScaleWidth());
    EXPECT_EQ(List().Top(), Form().Picture1.Top() + Form().Picture1.Height() - 15);
}

TEST_F(EntryLayoutTest, TheWindowHasASmallestSize) {
    Open();
    EXPECT_EQ(Form().MinWidth(), 9195);
    EXPECT_EQ(Form().MinHeight(), 6190);
    Form().SetSize(100, 100);
    EXPECT_EQ(Form().Width(), 9195);
    EXPECT_EQ(Form().Height(), 6190);
    EXPECT_EQ(List().Width(), 9195 - 90);
    Form().SetSize(9194, 7000);
    EXPECT_EQ(Form().Width(), 9195);
    EXPECT_EQ(Form().Height(), 7000);
    Form().SetSize(10000, 6189);
    EXPECT_EQ(Form().Width(), 10000);
    EXPECT_EQ(Form().Height(), 6190);
    Form().SetSize(9195, 6190);
    EXPECT_EQ(Form().Width(), 9195);
    EXPECT_EQ(Form().Height(), 6190);
}

TEST_F(EntryLayoutTest, TheDetailButtonLiesOverTheRightEndOfALockedAmount) {
    Open();
    Form().SetSize(14400, 8700);
    Go(3, kAmountColumn);
    const controls::Button& button = Form().cmdRef;
    ASSERT_TRUE(button.Visible());
    EXPECT_EQ(button.Left(), List().CellLeft(kAmountColumn) + 1500 - 301);
    EXPECT_EQ(button.Top(), List().Top() + List().CellTop(3) + 1);
    EXPECT_EQ(button.Width(), 300);
    EXPECT_EQ(button.Height(), 300 - 1);
    Form().SetSize(14000, 8700);
    EXPECT_FALSE(button.Visible());
}

TEST_F(EntryLayoutTest, InANarrowColumnTheDetailButtonIsAsWideAsTheCell) {
    Open();
    for (const int width : {299, 300}) {
        List().SetColumnWidth(kAmountColumn, width);
        Go(3, kDigestColumn);
        Go(3, kAmountColumn);
        EXPECT_EQ(Form().cmdRef.Width(), width);
        EXPECT_EQ(Form().cmdRef.Left(), List().CellLeft(kAmountColumn) + width - 301);
    }
    List().SetRowHeight(3, 0);
    Form().GridPeriodItem_EnterCell();
    EXPECT_EQ(Form().cmdRef.Height(), 0);
}

// One window, opened again.

TEST_F(EntryLayoutTest, NothingOfAnEarlierOpeningStays) {
    environment.startPeriod = "2003-12-31";  // locked
    Open();
    EXPECT_TRUE(List().ReadOnly());
    EXPECT_FALSE(Form().Toolbar1.Button("Add")->Enabled());
    Go(2, kAmountColumn);
    ASSERT_TRUE(Form().cmdRef.Visible());
    Form().cmdRef.SetFocus();
    Form().mDetailSql = platform::StatementText("select 1");
    Form().mWaiting.texts = {"M01\t螺纹钢"};
    List().SetColumnWidth(kDateColumn, 5000);
    ASSERT_TRUE(Form().Unload());

    environment.startPeriod = "2004-07-01";
    Open();
    EXPECT_FALSE(List().ReadOnly());
    EXPECT_TRUE(Form().Toolbar1.Button("Add")->Enabled());
    EXPECT_TRUE(Form().Toolbar1.Button("Delete")->Enabled());
    EXPECT_FALSE(Form().cmdRef.Visible());
    EXPECT_EQ(Form().ActiveControl(), &List());
    EXPECT_TRUE(Form().mDetailSql.IsEmpty());
    EXPECT_THAT(Form().mWaiting.texts, IsEmpty());
    EXPECT_EQ(List().Row(), 0);
    EXPECT_EQ(List().TopRow(), 1);
    EXPECT_EQ(List().ColumnWidth(kDateColumn), 1300);
    EXPECT_EQ(List().Rows(), 4);
}

TEST_F(EntryLayoutTest, AnotherItemClassChangesTheKeywordColumns) {
    Open();
    Form().Unload();
    Run("insert into fitemstructure values('97','楼号',3,1,1,'楼号')");
    Open();
    EXPECT_EQ(List().Text(0, kKey2Column), "楼号 (关键字)");
    EXPECT_EQ(List().ColumnWidth(kKey2Column), 1500);
    Form().Unload();
    Run("insert into fitemstructure values('97','期次',3,1,1,'期次')");
    Open();
    EXPECT_EQ(List().ColumnWidth(kKey1Column), 1500);
    EXPECT_EQ(List().ColumnWidth(kKey2Column), 0);
    EXPECT_EQ(List().Text(0, kKey1Column) + List().Text(0, kKey2Column), "");
    Form().Unload();
    Run("delete from fitemstructure where bPrimaryKey = 1");
    Open();
    for (const int col : {kKey1Column, kKey2Column}) {
        EXPECT_EQ(List().Text(0, col), "");
        EXPECT_EQ(List().ColumnWidth(col), 0);
    }
}

TEST_F(EntryLayoutTest, AListThatCannotBeLoadedShowsNoEntriesOfBefore) {
    Open();
    Form().Unload();
    log.failing = "select ctext from fitemstructure";
    Open();
    EXPECT_EQ(List().Rows(), 1);
    EXPECT_EQ(List().Cols(), 10);
    EXPECT_EQ(Form().Notice(), "读取期初列表时出错，列表可能不完整，请重新打开。");
    EXPECT_FALSE(List().ReadOnly());
}

TEST_F(EntryLayoutTest, AListThatBreaksOffKeepsWhatItHas) {
    log.failing = "where cElementCode = 'E02'";
    Open();
    EXPECT_THAT(Column(kItemColumn), ElementsAre("P01"));
    EXPECT_EQ(Form().Notice(), "读取期初列表时出错，列表可能不完整，请重新打开。");
    // A row that can be entered all the same.
    log.failing.clear();
    Form().AddEntryRow();
    EXPECT_EQ(List().Text(2, kDateColumn), "2004-06-30");
}

TEST_F(EntryLayoutTest, FailuresOfLoadingAreStillNamedWhenTheListHasOpened) {
    log.failing = "cName = 'dPMStartDatePeriod'";
    Open();
    EXPECT_EQ(Form().Notice(), "读取项目管理启用日期时出错。");
    Form().Unload();

    log.failing = "bPrimaryKey";
    Open();
    EXPECT_EQ(Form().Notice(), "读取项目大类的关键字设置时出错。");
    Form().Unload();

    log.failing = "Gl_mend";
    Open();
    EXPECT_EQ(Form().Notice(), "检查会计期间是否结账时出错。");
    EXPECT_FALSE(List().ReadOnly());
    Form().Unload();

    log.failing = "PM_TranControl";
    Open();
    EXPECT_EQ(Form().Notice(), "检查年度是否结转时出错。");
    EXPECT_FALSE(List().ReadOnly());
    Form().Unload();

    log.failing.clear();
    Open();
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(EntryLayoutTest, DecimalPlacesThatWereNeverReadAreNamed) {
    data::gNumPointsFailed = true;
    Open();
    EXPECT_EQ(Form().Notice(),
              "读取小数位数设置时出错，单价和数量可能没有显示小数，请重新登录后再修改。");
    EXPECT_EQ(List().Text(1, kAmountColumn), "1,234.50");
}

TEST_F(EntryLayoutTest, ASettledCheckThatFailsLocksNoRow) {
    log.failing = "select iclose,denddate";
    Open();
    EXPECT_FALSE(List().IsLocked(3, kDateColumn));
    EXPECT_EQ(Form().Notice(), "检查项目是否已结算时出错。");
}

// The lock of the whole list.

TEST_F(EntryLayoutTest, AClosedPeriodLocksEvenWithoutTheModulesSetting) {
    environment.startPeriod.clear();
    Open();
    EXPECT_FALSE(List().ReadOnly());
    EXPECT_EQ(Form().Notice(), "读取启用期间设置时出错。");
    Form().Unload();
    Run("insert into Gl_mend values(7,1)");
    Open();
    EXPECT_TRUE(List().ReadOnly());
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(EntryLayoutTest, AnOpeningThatFailsBeforeTheChecksLocks) {
    Open();
    Form().Unload();
    environment.hostPathFails = true;
    Open();
    EXPECT_EQ(Form().Notice(), "打开窗口时出错，内容可能不完整，请重新打开。");
    EXPECT_EQ(List().Rows(), 1);
    EXPECT_TRUE(List().ReadOnly());
    for (const auto& item : Form().CTBCtrl1.Items()) {
        EXPECT_EQ(item.enabled, item.key != "Add" && item.key != "Delete") << item.key;
    }
    EXPECT_FALSE(Form().Toolbar1.Button("Add")->Enabled());
    EXPECT_FALSE(Form().Toolbar1.Button("Delete")->Enabled());
    Form().Unload();
    environment.hostPathFails = false;
    Open();
    EXPECT_FALSE(List().ReadOnly());
    EXPECT_TRUE(Form().Toolbar1.Button("Add")->Enabled());
}

TEST_F(EntryLayoutTest, TheStartYearOfTheSettingDecidesNotTheOneOfTheAccount) {
    data::gPmStartYear = 2004;
    environment.startPeriod = "2005-01-01";
    Open();
    EXPECT_TRUE(List().ReadOnly());
    Form().Unload();
    login.year = 2005;
    Open();
    EXPECT_FALSE(List().ReadOnly());
    EXPECT_EQ(data::gPmStartYear, 2004);
}

}  // namespace
}  // namespace kelvane::ui
