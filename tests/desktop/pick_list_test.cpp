// A pick list on the screen, worked by real keys and a real mouse.
#include <gtest/gtest.h>

#include "adapters/reference/reference_window.h"
#include "tests/desktop/person.h"
#include "tests/support/memory_record_set.h"

namespace kelvane::test {

namespace {

using reference::ReferenceWindow;
using support::MemoryRecordSet;
using support::TextRow;

// Pixels: the grid begins below the search field; its titles are as high as its rows.
constexpr const char* kTitle = "参照";
constexpr int kGridTop = 570 / 15;
constexpr int kRow = 20;
constexpr int kCode = 60;
constexpr int kName = 220;

int RowY(int row) {
    return kGridTop + row * kRow + kRow / 2;
}

class CenterList : public ReferenceWindow {
public:
    explicit CenterList(int copies = 1)
        : ReferenceWindow(Windows(), Read(copies),
                          {kTitle, {"责任中心编码", "责任中心名称"}, {2500, 3000}}) {}

    std::string Current() const {
        const int row = GridReference.Row();
        return row < 1 ? "" : GridReference.Text(row, 0);
    }
    bool SearchHasFocus() const { return ActiveControl() == &txtSearch; }

private:
    static reference::PickRows Read(int copies) {
        std::vector<MemoryRecordSet::Row> rows;
        for (int copy = 0; copy < copies; ++copy) {
            rows.push_back(TextRow({"D02", "工程二部"}));
            rows.push_back(TextRow({"D01", "工程一部"}));
            rows.push_back(TextRow({"D03", "路桥事业部"}));
        }
        MemoryRecordSet source({"cCenterCode", "cCenterName"}, std::move(rows));
        return {source, 2};
    }
};

}  // namespace

TEST(DesktopPickList, TypingNarrowsAndEnterChooses) {
    CenterList list;
    ShowTo(list, [&](Person& person) {
        person.SeeWindow(kTitle);
        person.Type("gc");
        person.See("two rows", [&] { return list.GridReference.Rows() == 3; });
        person.Keys({"Down"});
        person.See("second row", [&] { return list.Current() == "D01" && list.SearchHasFocus(); });
        person.Keys({"BackSpace"});
        person.See("first row again",
                   [&] { return list.txtSearch.Text() == "g" && list.Current() == "D02"; });
        person.Type("一");
        person.See("no row", [&] { return list.GridReference.Rows() == 1; });
        person.Keys({"Return", "BackSpace", "BackSpace", "Down", "Down"});
        person.See("third row", [&] { return list.Current() == "D03"; });
        person.Keys({"Return"});
        person.See("choice", [&] { return !list.IsLoaded(); });
    });
    EXPECT_EQ(list.Chosen(), 2U);
}

TEST(DesktopPickList, EscapeChoosesNothing) {
    CenterList list;
    ShowTo(list, [&](Person& person) {
        person.SeeWindow(kTitle);
        person.Keys({"F3", "Down", "Escape"});
        person.See("closed window", [&] { return !list.IsLoaded(); });
    });
    EXPECT_FALSE(list.Chosen());
}

TEST(DesktopPickList, AClickOnATitleSorts) {
    CenterList list;
    ShowTo(list, [&](Person& person) {
        person.SeeWindow(kTitle);
        person.Click(kTitle, kCode, RowY(0));
        person.See("sorted", [&] { return list.GridReference.Text(1, 0) == "D01"; });
        person.Click(kTitle, kCode, RowY(0));
        person.See("sorted back", [&] { return list.GridReference.Text(1, 0) == "D03"; });
        EXPECT_TRUE(person.Look([&] { return list.Current() == "D02" && list.SearchHasFocus(); }));
    });
}

TEST(DesktopPickList, AClickMovesAndADoubleClickChooses) {
    CenterList list;
    ShowTo(list, [&](Person& person) {
        person.SeeWindow(kTitle);
        person.Click(kTitle, kName, RowY(2));
        person.See("second row", [&] { return list.Current() == "D01"; });
        person.Type("d0");
        person.See("typed text", [&] { return list.txtSearch.Text() == "d0"; });
        person.Click(kTitle, kName, RowY(3), 2);
        person.See("choice", [&] { return !list.IsLoaded(); });
    });
    EXPECT_EQ(list.Chosen(), 2U);
}

TEST(DesktopPickList, TabLeavesTheRowsOut) {
    CenterList list;
    ShowTo(list, [&](Person& person) {
        person.SeeWindow(kTitle);
        for (const controls::Control* next : {static_cast<controls::Control*>(&list.cmdOK),
                                              static_cast<controls::Control*>(&list.cmdCancel),
                                              static_cast<controls::Control*>(&list.txtSearch)}) {
            person.Keys({"Tab"});
            person.See(next->Name(), [&] { return list.ActiveControl() == next; });
        }
        person.Keys({"Tab", "Down"});
        person.See("second row", [&] { return list.Current() == "D01"; });
        person.Keys({"Return"});
        person.See("choice", [&] { return !list.IsLoaded(); });
    });
    EXPECT_EQ(list.Chosen(), 1U);
}

TEST(DesktopPickList, AClickLeavesTheKeyboardInTheSearch) {
    CenterList list;
    ShowTo(list, [&](Person& person) {
        person.SeeWindow(kTitle);
        person.Type("g");
        person.See("two rows", [&] { return list.GridReference.Rows() == 3; });
        // The current row, which a click does not change.
        person.Click(kTitle, kName, RowY(1));
        person.Type("ce");
        person.See("typed on", [&] { return list.txtSearch.Text() == "gce"; });
    });
}

TEST(DesktopPickList, ALongListIsScrolledByItsKeys) {
    CenterList list(20'000);
    ShowTo(list, [&](Person& person) {
        person.SeeWindow(kTitle);
        person.Keys({"ctrl+End"});
        person.See("last row", [&] {
            return list.GridReference.Row() == 60'000 && list.GridReference.IsRowShown(60'000);
        });
        person.Keys({"Prior"});
        person.See("a page up", [&] {
            return list.GridReference.Row() == 60'000 - list.GridReference.VisibleRows();
        });
        person.Type("d03");
        person.See("narrowed", [&] { return list.GridReference.Rows() == 20'001; });
    });
}

}  // namespace kelvane::test
