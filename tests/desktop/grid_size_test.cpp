// Column widths and the size at which the grid is shown, by real keys and a real mouse.
#include <gtest/gtest.h>

#include <algorithm>

#include "controls/grid_size_actions.h"
#include "tests/desktop/list_places.h"
#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

namespace {

// The right edge of column 2 in the header.
constexpr int kEdge = (1300 + 1200) / 15;
constexpr int kHeaderY = kGridTop + 10;

class SizedList : public ListForm {
public:
    explicit SizedList(int rows = 40) : ListForm(rows) {
        controls::AddGridSizeActions(*this, grid);
    }
};

}  // namespace

TEST(DesktopGridSize, ADoubleClickOnAnEdgeFitsTheColumnToWhatCanBeSeen) {
    SizedList form;
    form.grid.SetText(3, 2, "滨江花园二期住宅楼工程部");
    form.grid.SetText(40, 2, "滨江花园二期住宅楼工程部第一项目管理分公司");
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kEdge, kHeaderY, 2);
        person.See("wider", [&] { return form.grid.ColumnWidth(2) > 2000; });
        EXPECT_LT(form.grid.ColumnWidth(2), 3500);
        EXPECT_EQ(form.grid.ColumnWidth(1), 1300);
        person.Look([&] {
            form.grid.RestoreColumnWidths();
            return true;
        });
        EXPECT_EQ(form.grid.ColumnWidth(2), 1200);
        // One click moves nothing.
        person.Click(kTitle, kEdge - 2, kHeaderY);
        person.Click(kTitle, kColumnMiddles[8], RowY(2));
        person.See("cell", [&] { return form.grid.Row() == 2; });
        EXPECT_EQ(form.grid.ColumnWidth(2), 1200);
        EXPECT_FALSE(form.grid.IsColumnResized(2));
    });
}

TEST(DesktopGridSize, TheMenusFitIsTheMousesFit) {
    SizedList form;
    form.grid.SetColumnWidth(4, 1000);
    form.grid.SetText(2, 9, "12,345,678,901.23");
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[9] - 100, RowY(2));
        person.See("cell", [&] { return form.grid.Row() == 2 && form.grid.Col() == 9; });
        person.Look([&] {
            const auto& actions = form.Actions();
            form.Run(*std::find_if(actions.begin(), actions.end(), [](const auto& action) {
                return action.caption == "适合内容的列宽";
            }));
            return true;
        });
        person.See("wider", [&] { return form.grid.ColumnWidth(9) > 1500; });
        // The edge of the last column, where the fitted width has put it.
        const int edge = (1300 + 1200 + 1200 + 1000 + 1500 + 1500 + 1500) / 15;
        const int wide = form.grid.ColumnWidth(9);
        const int at = edge + wide / 15;
        person.Drag(kTitle, at, kHeaderY, at - 40, kHeaderY);
        person.See("narrower", [&] { return form.grid.ColumnWidth(9) < wide - 300; });
        person.Click(kTitle, edge + form.grid.ColumnWidth(9) / 15, kHeaderY, 2);
        person.See("as wide again", [&] { return form.grid.ColumnWidth(9) == wide; });
    });
}

TEST(DesktopGridSize, CtrlWithTheWheelAndTheSignsZooms) {
    SizedList form(1000);
    ShowTo(form, [&](Person& person) {
        const int rows = form.grid.VisibleRows();
        person.Keys({"ctrl+plus"});
        person.See("larger by the upper sign", [&] { return form.grid.Zoom() == 110; });
        person.Keys({"ctrl+equal"});
        person.See("larger by its key", [&] { return form.grid.Zoom() == 120; });
        person.Keys({"ctrl+minus"});
        person.See("smaller", [&] { return form.grid.Zoom() == 110; });
        person.Keys({"ctrl+0"});
        person.See("as it was", [&] { return form.grid.Zoom() == 100; });
        person.Hold("ctrl");
        person.Wheel(kTitle, 300, RowY(5), -3);
        person.Release("ctrl");
        person.See("larger by the wheel", [&] { return form.grid.Zoom() == 130; });
        EXPECT_EQ(form.grid.TopRow(), 1);
        EXPECT_LT(form.grid.VisibleRows(), rows);
        person.Hold("ctrl");
        person.Wheel(kTitle, 300, RowY(5), 5);
        person.Release("ctrl");
        person.See("smaller by the wheel", [&] { return form.grid.Zoom() == 80; });
    });
}

TEST(DesktopGridSize, ThePointerFindsTheCellsWhereTheyAreShown) {
    SizedList form;
    form.grid.SetZoom(150);
    ShowTo(form, [&](Person& person) {
        const auto right = [](int pixels) { return pixels * 3 / 2; };
        const auto down = [&](int row) { return kGridTop + (RowY(row) - kGridTop) * 3 / 2; };
        person.Click(kTitle, right(kColumnMiddles[3]), down(5));
        person.See("cell 5 3", [&] { return form.grid.Row() == 5 && form.grid.Col() == 3; });
        person.Keys({"F2"});
        person.See("open", [&] { return form.grid.IsEditing(); });
        person.Type("z");
        person.See("typed", [&] { return form.grid.EditText() == "XM5z"; });
        person.Keys({"ctrl+minus"});
        person.See("smaller while a cell is open",
                   [&] { return form.grid.Zoom() == 140 && form.grid.EditText() == "XM5z"; });
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.grid.IsEditing(); });
        const int edge = kEdge * 14 / 10;
        person.Drag(kTitle, edge, kHeaderY, edge + 28, kHeaderY);
        person.See("wider by 20 pixels of the usual size",
                   [&] { return form.grid.ColumnWidth(2) > 1400; });
        EXPECT_NEAR(form.grid.ColumnWidth(2), 1200 + 20 * 15, 45);
    });
}

}  // namespace kelvane::test
