// What a window's layout is kept as, and what of it counts the next time.
#include "controls/kept_layout.h"

#include "tests/support/remembered_settings.h"
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

constexpr int kScreenWidth = 20000;
constexpr int kScreenHeight = 15000;

// Columns 0 (hidden), and 1 to 4 of 1000 twips; a window of 9000 by 6000.
class KeptLayoutTest : public GridTest {
protected:
    KeptLayoutTest() { LayOut(); }

    // What a window's code does at every opening.
    void LayOut() {
        form.SetMinSize(3000, 2000);
        form.SetSize(9000, 6000);
        grid.SetColumnWidth(0, 0);
        for (int col = 1; col < grid.Cols(); ++col) grid.SetColumnWidth(col, 1000);
    }
    void Restore() { layout.Restore(&settings, "list", kScreenWidth, kScreenHeight); }
    std::string Kept() { return settings.Kept("list"); }
    std::string Shown() {
        std::string shown = std::to_string(form.Width()) + "x" + std::to_string(form.Height()) +
                            " " + std::to_string(grid.Zoom()) + "%";
        for (int col = 0; col < grid.Cols(); ++col) {
            shown += " " + std::to_string(grid.ColumnWidth(col));
        }
        return shown;
    }

    support::RememberedSettings settings;
    KeptLayout layout{form, grid};
};

TEST_F(KeptLayoutTest, WhatTheOperatorLeftComesBack) {
    Restore();
    EXPECT_EQ(Shown(), "9000x6000 100% 0 1000 1000 1000 1000");
    grid.ResizeColumn(2, 1500);
    grid.ResizeColumn(4, 2500);
    grid.SetZoom(120);
    form.SetSize(12000, 7000);
    layout.Keep();
    EXPECT_EQ(Kept(), "size 12000 7000 zoom 120 column 2 1500 column 4 2500");
    LayOut();
    Restore();
    EXPECT_EQ(Shown(), "12000x7000 120% 0 1000 1500 1000 2500");
    EXPECT_TRUE(grid.IsColumnResized(2));
    EXPECT_FALSE(grid.IsColumnResized(1));
    layout.Keep();
    EXPECT_EQ(settings.writes, 1);
}

TEST_F(KeptLayoutTest, WhatWasGivenBackIsForgotten) {
    settings.texts["list"] = "size 12000 7000 zoom 120 column 2 1500";
    Restore();
    grid.RestoreColumnWidths();
    grid.SetZoom(100);
    layout.Keep();
    EXPECT_EQ(Kept(), "size 12000 7000");
}

TEST_F(KeptLayoutTest, NothingThatWasNotChangedIsKept) {
    Restore();
    layout.Keep();
    EXPECT_EQ(settings.writes, 0);
    layout.Restore(nullptr, "list", kScreenWidth, kScreenHeight);
    grid.ResizeColumn(1, 500);
    layout.Keep();
    EXPECT_EQ(settings.writes, 0);
}

TEST_F(KeptLayoutTest, AHiddenColumnStaysHiddenAndKeepsItsWidthForLater) {
    settings.texts["list"] = "column 0 700 column 3 800";
    Restore();
    EXPECT_EQ(grid.ColumnWidth(0), 0);
    EXPECT_EQ(grid.ColumnWidth(3), 800);
    grid.ResizeColumn(3, 900);
    layout.Keep();
    EXPECT_EQ(Kept(), "column 0 700 column 3 900");
}

TEST_F(KeptLayoutTest, TheWindowStaysOnTheScreenAndAboveItsLeastSize) {
    settings.texts["list"] = "size 50000 50000";
    Restore();
    EXPECT_EQ(form.Width(), kScreenWidth);
    EXPECT_EQ(form.Height(), kScreenHeight);
    settings.texts["list"] = "size 500 500";
    LayOut();
    Restore();
    EXPECT_EQ(form.Width(), 3000);
    EXPECT_EQ(form.Height(), 2000);
}

TEST_F(KeptLayoutTest, ADamagedTextCountsAsFarAsItCanBeRead) {
    for (const char* text : {"x", "size", "size 0 0", "size -5 9", "zoom", "column 9 500",
                             "column -1 500", "column 2 5", "column 2 900000000", "column 2",
                             "column 99999999999999999999 5", "size 1e9 2"}) {
        settings.texts["list"] = text;
        LayOut();
        Restore();
        EXPECT_EQ(Shown(), "9000x6000 100% 0 1000 1000 1000 1000") << text;
    }
    settings.texts["list"] = "column 1 700 nonsense column 2 800";
    LayOut();
    Restore();
    EXPECT_EQ(Shown(), "9000x6000 100% 0 700 1000 1000 1000");
    settings.texts["list"] = "zoom 100000";
    LayOut();
    Restore();
    EXPECT_EQ(grid.Zoom(), 200);
}

}  // namespace
}  // namespace kelvane::controls
