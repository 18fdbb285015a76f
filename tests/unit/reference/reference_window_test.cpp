#include "adapters/reference/reference_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/drive/key_flow.h"
#include "platform/key_names.h"
#include "tests/support/memory_record_set.h"
#include "tests/support/recording_windows.h"
#include "tests/support/remembered_settings.h"

namespace kelvane::reference {
namespace {

using platform::Key;
using platform::Value;
using support::MemoryRecordSet;
using support::TextRow;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Rows = std::vector<MemoryRecordSet::Row>;

Rows Centers() {
    return {{Value("D01"), Value("工程一部"), Value(20.0)},
            {Value("D02"), Value("工程二部"), Value(100.0)},
            {Value("D03"), Value("路桥事业部"), Value(3.0)},
            {Value("D04"), Value("Equipment Hire"), Value()}};
}

Rows Numbered(int count) {
    Rows rows;
    for (int row = 1; row <= count; ++row) {
        rows.push_back(TextRow({"P" + std::to_string(row), "工程" + std::to_string(row), "1"}));
    }
    return rows;
}

class OpenList {
public:
    explicit OpenList(Rows rows, std::vector<int> widths = {1500, 2500, 1000},
                      std::string present = {}, platform::UserSettings* settings = nullptr)
        : window(
              mWindows, Read(std::move(rows)),
              {"参照", {"编码", "名称", "单价"}, std::move(widths), std::move(present), settings}),
          grid(window.GridReference) {
        window.Load();
        window.Activate();
    }

    void Press(Key key, int shift = 0) { drive::PressKey(window, {key, shift, 0}); }
    void Type(std::string_view text) {
        for (const platform::KeyStroke& stroke : platform::StrokesOf(text)) {
            drive::PressKey(window, stroke);
        }
    }
    // The first column of the rows that the grid shows.
    std::vector<std::string> Codes() const {
        std::vector<std::string> codes;
        for (int row = 1; row < grid.Rows(); ++row) codes.push_back(grid.Text(row, 0));
        return codes;
    }
    std::string Current() const { return grid.Row() < 1 ? "none" : grid.Text(grid.Row(), 0); }

private:
    static PickRows Read(Rows rows) {
        MemoryRecordSet source({"cCode", "cName", "dPrice"}, std::move(rows));
        return PickRows(source, 3);
    }
    support::RecordingWindows mWindows;

public:
    ReferenceWindow window;
    controls::Grid& grid;
};

TEST(ReferenceWindow, OpensOnTheFirstRowWithTheFocusInTheSearch) {
    OpenList list(Centers());
    EXPECT_EQ(list.window.Name(), "frmReference");
    EXPECT_EQ(list.window.Caption(), "参照");
    EXPECT_EQ(list.window.ActiveControl(), &list.window.txtSearch);
    EXPECT_THAT(list.Codes(), ElementsAre("D01", "D02", "D03", "D04"));
    EXPECT_EQ(list.grid.Text(0, 0) + list.grid.Text(0, 1) + list.grid.Text(0, 2), "编码名称单价");
    EXPECT_EQ(list.grid.Text(2, 1), "工程二部");
    EXPECT_EQ(list.grid.Text(4, 2), "");
    EXPECT_EQ(list.Current(), "D01");
    EXPECT_TRUE(list.grid.ReadOnly());
    EXPECT_EQ(list.window.Notice(), "");
    EXPECT_FALSE(list.window.Chosen());
}

TEST(ReferenceWindow, OpensOnThePresentCodeOrName) {
    const auto opened = [](std::string present) {
        return OpenList(Centers(), {1500}, std::move(present)).Current();
    };
    EXPECT_EQ(opened("D03"), "D03");
    EXPECT_EQ(opened("D03  "), "D03");
    EXPECT_EQ(opened("工程二部"), "D02");
    EXPECT_EQ(opened("D09"), "D01");
    EXPECT_EQ(opened(""), "D01");
}

TEST(ReferenceWindow, ThePresentRowFarDownIsShownAndChosenByEnter) {
    OpenList list(Numbered(500), {1500}, "P321");
    EXPECT_EQ(list.Current(), "P321");
    EXPECT_TRUE(list.grid.IsRowShown(321));
    list.Press(Key::Enter);
    EXPECT_EQ(list.window.Chosen(), 320U);
}

TEST(ReferenceWindow, TakesTheWidthsItIsGiven) {
    OpenList list(Centers(), {1500, 2500});
    EXPECT_EQ(list.grid.ColumnWidth(0), 1500);
    EXPECT_EQ(list.grid.ColumnWidth(1), 2500);
    EXPECT_EQ(list.grid.ColumnWidth(2), 2000);
    EXPECT_GE(list.grid.ViewWidth(), 1500 + 2500 + 2000);
    EXPECT_EQ(list.grid.ColumnAlignment(1), controls::Alignment::Left);
    EXPECT_EQ(list.grid.ColumnAlignment(2), controls::Alignment::Right);
}

TEST(ReferenceWindow, AColumnIsWideEnoughForItsTexts) {
    Rows rows = Centers();
    rows.push_back(TextRow({"D05", "滨江花园二期住宅楼工程地下车库防水分包", "1"}));
    OpenList list(std::move(rows), {1000, 1000, 1000});
    EXPECT_EQ(list.grid.ColumnWidth(0), 1000);
    EXPECT_GE(list.grid.ColumnWidth(1), 19 * 200);
    EXPECT_GE(list.grid.ViewWidth(),
              list.grid.ColumnWidth(0) + list.grid.ColumnWidth(1) + list.grid.ColumnWidth(2));
}

TEST(ReferenceWindow, StaysOnTheScreenHoweverWideItsColumnsAre) {
    const support::RecordingWindows screen;
    OpenList list(Centers(), {20000, 20000, 20000});
    EXPECT_EQ(list.window.Width(), screen.ScreenWidth());
    EXPECT_EQ(list.window.Left(), 0);
    EXPECT_LT(list.grid.ViewWidth(), 60000);
}

TEST(ReferenceWindow, OpensWithTheOperatorsOwnWidths) {
    support::RememberedSettings settings;
    {
        OpenList list(Centers(), {1500, 2500}, {}, &settings);
        list.grid.ResizeColumn(1, 4000);
        list.window.SetSize(9000, 7200);
        list.Press(Key::Escape);
    }
    EXPECT_EQ(settings.texts["frmReference 编码 名称 单价"], "size 9000 7200 column 1 4000");
    const support::RecordingWindows screen;
    OpenList list(Centers(), {1500, 2500}, {}, &settings);
    EXPECT_EQ(list.grid.ColumnWidth(0), 1500);
    EXPECT_EQ(list.grid.ColumnWidth(1), 4000);
    EXPECT_EQ(list.window.Width(), 9000);
    EXPECT_EQ(list.window.Left(), (screen.ScreenWidth() - 9000) / 2);
}

TEST(ReferenceWindow, TypingNarrowsAndKeepsTheFirstRowCurrent) {
    OpenList list(Centers());
    list.Press(Key::Down);
    list.Type("gc");
    EXPECT_EQ(list.window.txtSearch.Text(), "gc");
    EXPECT_THAT(list.Codes(), ElementsAre("D01", "D02"));
    EXPECT_EQ(list.Current(), "D01");
    list.Type("eb");
    EXPECT_THAT(list.Codes(), ElementsAre("D02"));
    list.Type("!");
    EXPECT_THAT(list.Codes(), IsEmpty());
    EXPECT_EQ(list.Current(), "none");
    EXPECT_EQ(list.window.Notice(), "没有符合的内容");
    for (int times = 0; times < 5; ++times) list.Press(Key::Backspace);
    EXPECT_EQ(list.window.txtSearch.Text(), "");
    EXPECT_THAT(list.Codes(), SizeIs(4));
    EXPECT_EQ(list.Current(), "D01");
    EXPECT_EQ(list.window.Notice(), "");
}

TEST(ReferenceWindow, ArrowsMoveWhileTheSearchKeepsTheFocus) {
    OpenList list(Numbered(100));
    const std::vector<std::pair<platform::KeyStroke, std::string>> steps{
        {{Key::Down}, "P2"},   {{Key::Down}, "P3"},
        {{Key::Up}, "P2"},     {{Key::End, platform::kCtrl}, "P100"},
        {{Key::Down}, "P100"}, {{Key::Home, platform::kCtrl}, "P1"},
        {{Key::Up}, "P1"},     {{Key::PageDown}, "P" + std::to_string(1 + list.grid.VisibleRows())},
        {{Key::PageUp}, "P1"},
    };
    for (const auto& [stroke, expected] : steps) {
        drive::PressKey(list.window, stroke);
        EXPECT_EQ(list.Current(), expected);
        EXPECT_TRUE(list.grid.IsRowShown(list.grid.Row()));
        EXPECT_EQ(list.window.ActiveControl(), &list.window.txtSearch);
    }
    EXPECT_GT(list.grid.VisibleRows(), 5);
}

TEST(ReferenceWindow, EnterChoosesTheCurrentRow) {
    OpenList list(Centers());
    list.Type("gc");
    list.Press(Key::Down);
    list.Press(Key::Enter);
    EXPECT_EQ(list.window.Chosen(), 1U);
    EXPECT_FALSE(list.window.IsLoaded());
}

TEST(ReferenceWindow, EnterWithoutARowStays) {
    OpenList list(Centers());
    list.Type("???");
    list.Press(Key::Enter);
    list.window.cmdOK.Press();
    EXPECT_TRUE(list.window.IsLoaded());
    EXPECT_FALSE(list.window.Chosen());
}

TEST(ReferenceWindow, ADoubleClickChoosesItsRow) {
    OpenList list(Centers());
    list.window.txtSearch.SetText("D0");
    list.grid.HeaderClick(0);
    list.grid.HeaderClick(0);
    list.grid.CellDoubleClick(1, 2);
    EXPECT_EQ(list.window.Chosen(), 3U);
}

TEST(ReferenceWindow, ADoubleClickOnATitleChoosesNothing) {
    OpenList list(Centers());
    list.grid.CellDoubleClick(0, 1);
    EXPECT_TRUE(list.window.IsLoaded());
}

TEST(ReferenceWindow, EscapeTheButtonAndTheCloseBoxCancel) {
    OpenList byKey(Centers());
    byKey.Press(Key::Escape);
    OpenList byButton(Centers());
    byButton.window.cmdCancel.Press();
    OpenList onButton(Centers());
    onButton.window.cmdCancel.SetFocus();
    onButton.Press(Key::Enter);
    OpenList byBox(Centers());
    byBox.window.Unload(controls::UnloadMode::CloseBox);
    for (const OpenList* list : {&byKey, &byButton, &onButton, &byBox}) {
        EXPECT_FALSE(list->window.IsLoaded());
        EXPECT_FALSE(list->window.Chosen());
    }
}

TEST(ReferenceWindow, F3DoesNothing) {
    OpenList list(Centers());
    list.Press(Key::Down);
    list.Press(Key::F3);
    EXPECT_TRUE(list.window.IsLoaded());
    EXPECT_EQ(list.Current(), "D02");
    EXPECT_THAT(list.Codes(), SizeIs(4));
}

TEST(ReferenceWindow, ATitleSortsAndSortsBackAndKeepsTheCurrentRow) {
    OpenList list(Centers());
    list.Press(Key::Down);
    list.grid.HeaderClick(2);
    EXPECT_THAT(list.Codes(), ElementsAre("D04", "D03", "D01", "D02"));
    EXPECT_EQ(list.grid.Text(0, 2), "单价 ▲");
    EXPECT_EQ(list.Current(), "D02");
    list.grid.HeaderClick(2);
    EXPECT_THAT(list.Codes(), ElementsAre("D02", "D01", "D03", "D04"));
    EXPECT_EQ(list.grid.Text(0, 2), "单价 ▼");
    EXPECT_EQ(list.Current(), "D02");
    list.Press(Key{static_cast<int>(Key::D0) + 1}, platform::kCtrl);
    EXPECT_THAT(list.Codes(), ElementsAre("D01", "D02", "D03", "D04"));
    EXPECT_EQ(list.grid.Text(0, 0), "编码 ▲");
    EXPECT_EQ(list.grid.Text(0, 2), "单价");
    EXPECT_THAT(list.window.Titles(), ElementsAre("编码", "名称", "单价"));
    list.Press(Key{static_cast<int>(Key::D0) + 4}, platform::kCtrl);
    EXPECT_EQ(list.grid.Text(0, 0), "编码 ▲");
}

TEST(ReferenceWindow, TheWholeRowIsSelected) {
    OpenList list(Centers());
    list.grid.MoveTo(3, 1);
    EXPECT_EQ(list.Current(), "D03");
    EXPECT_EQ(list.grid.Col(), 0);
    EXPECT_EQ(list.grid.SelectionEnd(), 2);
}

TEST(ReferenceWindow, TabGoesRoundThroughFieldAndButtons) {
    OpenList list(Centers());
    std::vector<std::string> stops;
    for (int times = 0; times < 4; ++times) {
        list.Press(Key::Tab);
        stops.push_back(list.window.ActiveControl()->Name());
    }
    EXPECT_THAT(stops, ElementsAre("cmdOK", "cmdCancel", "txtSearch", "cmdOK"));
}

TEST(ReferenceWindow, AnEmptyListSaysSo) {
    OpenList list({});
    EXPECT_EQ(list.window.Notice(), "没有可选的内容");
    EXPECT_EQ(list.grid.Rows(), 1);
    EXPECT_EQ(list.grid.Text(0, 1), "名称");
    list.Press(Key::Down);
    list.Press(Key::Enter);
    list.grid.HeaderClick(1);
    list.Type("a");
    EXPECT_EQ(list.window.Notice(), "没有可选的内容");
    EXPECT_TRUE(list.window.IsLoaded());
    EXPECT_THAT(list.window.ShownRows(), IsEmpty());
    list.window.Choose(0);
    EXPECT_FALSE(list.window.IsLoaded());
    EXPECT_FALSE(list.window.Chosen());
}

TEST(ReferenceWindow, ChoosesByNumberAmongTheShownRows) {
    OpenList list(Centers());
    list.Type("部");
    EXPECT_THAT(list.window.ShownRows(), ElementsAre(ElementsAre("D01", "工程一部", "20"),
                                                     ElementsAre("D02", "工程二部", "100"),
                                                     ElementsAre("D03", "路桥事业部", "3")));
    list.window.Choose(2);
    EXPECT_EQ(list.window.Chosen(), 2U);
    EXPECT_FALSE(list.window.IsLoaded());
}

TEST(ReferenceWindow, ANumberThatIsNotShownChoosesNothing) {
    for (const std::optional<std::size_t> row : {std::optional<std::size_t>(), {4}, {99}}) {
        OpenList list(Centers());
        list.window.Choose(row);
        EXPECT_FALSE(list.window.Chosen());
        EXPECT_FALSE(list.window.IsLoaded());
    }
}

TEST(ReferenceWindow, FollowsItsSize) {
    OpenList list(Numbered(100));
    list.Press(Key::End, platform::kCtrl);
    list.window.SetSize(list.window.MinWidth(), list.window.MinHeight());
    EXPECT_TRUE(list.grid.IsRowShown(100));
    EXPECT_LT(list.grid.Left() + list.grid.Width(), list.window.ScaleWidth());
    EXPECT_LE(list.grid.Top() + list.grid.Height(), list.window.cmdOK.Top());
    EXPECT_LT(list.window.cmdOK.Left() + list.window.cmdOK.Width(), list.window.cmdCancel.Left());
}

TEST(ReferenceWindow, FiftyThousandRowsAreNarrowedSortedAndChosen) {
    OpenList list(Numbered(50000));
    EXPECT_EQ(list.grid.Rows(), 50001);
    list.Type("gc4999");
    EXPECT_THAT(list.Codes(), ElementsAre("P4999", "P49990", "P49991", "P49992", "P49993", "P49994",
                                          "P49995", "P49996", "P49997", "P49998", "P49999"));
    list.grid.HeaderClick(0);
    list.grid.HeaderClick(0);
    EXPECT_EQ(list.grid.Text(1, 0), "P49999");
    list.window.txtSearch.SetText("");
    EXPECT_EQ(list.grid.Rows(), 50001);
    EXPECT_EQ(list.grid.Text(50000, 0), "P1");
    list.Press(Key::End, platform::kCtrl);
    list.Press(Key::Enter);
    EXPECT_EQ(list.window.Chosen(), 0U);
}

}  // namespace
}  // namespace kelvane::reference
