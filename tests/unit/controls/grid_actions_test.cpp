// Selecting and copying by keys and by the menu.
#include "controls/grid_actions.h"

#include "controls/edit_box.h"
#include "tests/support/recording_windows.h"
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using platform::kCtrl;
using platform::Key;
using platform::kShift;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr Key kC = platform::KeyOfCharacter(U'C');

// Swallows every key, as a window does whose column takes no text.
class SilentForm : public Form {
public:
    SilentForm() : Form("frmSilent") {}

protected:
    void Form_KeyDown(Key& key, int /*shift*/) override { key = Key::None; }
};

class GridActionsTest : public GridTest {
protected:
    GridActionsTest() {
        Add();
        At(1, 2);
        form.SetFocus(grid);
    }
    void Add() {
        AddGridActions(form, grid, [this]() -> platform::Windows& { return windows; });
    }
    std::vector<std::string> Menu() {
        std::vector<std::string> captions;
        for (const WindowAction* action : form.MenuActions()) {
            const bool line = action == nullptr;
            captions.push_back(line ? "-" : (form.CanRun(*action) ? "" : "#") + action->caption);
        }
        return captions;
    }
    void Choose(std::string_view caption) {
        for (const WindowAction* action : form.MenuActions()) {
            if (action != nullptr && action->caption == caption) form.Run(*action);
        }
    }

    support::RecordingWindows windows;
};

TEST_F(GridActionsTest, KeysSelectAndCopy) {
    EXPECT_TRUE(form.KeyDown(kC, kCtrl));
    EXPECT_EQ(windows.clipboard, "1b");
    EXPECT_TRUE(form.KeyDown(Key::Down, kShift));
    EXPECT_TRUE(form.KeyDown(Key::Right, kShift));
    form.KeyDown(kC, kCtrl);
    EXPECT_EQ(windows.clipboard, "1b\t1c\n2b\t2c");
    form.KeyDown(Key::A, kCtrl);
    form.KeyDown(kC, kCtrl);
    EXPECT_EQ(windows.clipboard, "1a\t1b\t1c\t1d\n2a\t2b\t2c\t2d\n3a\t3b\t3c\t3d");
    EXPECT_EQ(Cell(), "1 2");
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridActionsTest, TheyActBeforeAWindowThatSwallowsKeys) {
    SilentForm silent;
    Grid list(silent, "List");
    list.SetRows(1);
    list.SetCols(3);
    list.AddItem("\ta\tb");
    AddGridActions(silent, list, [this]() -> platform::Windows& { return windows; });
    list.SetRow(1);
    list.SetCol(1);
    silent.SetFocus(list);
    silent.KeyDown(Key::Right, kShift);
    silent.KeyDown(kC, kCtrl);
    EXPECT_EQ(windows.clipboard, "a\tb");
}

TEST_F(GridActionsTest, InAnOpenCellTheKeysStayTheFields) {
    grid.BeginEdit();
    notes.clear();
    EXPECT_FALSE(form.KeyDown(kC, kCtrl));
    EXPECT_FALSE(form.KeyDown(Key::Right, kShift));
    EXPECT_FALSE(form.KeyDown(Key::A, kCtrl));
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(windows.clipboard, "");
    EXPECT_THAT(Menu(), ElementsAre("#复制", "#复制（带标题）", "-", "#选定整行", "#全选"));
}

TEST_F(GridActionsTest, WithAnotherActiveControlTheKeysAreItsOwn) {
    EditBox field(form, "Field");
    form.SetFocus(field);
    EXPECT_FALSE(form.KeyDown(kC, kCtrl));
    EXPECT_EQ(windows.clipboard, "");
}

TEST_F(GridActionsTest, TheMenuCopiesWithTitlesAndSelectsTheRow) {
    grid.SetText(0, 2, "代码");
    EXPECT_THAT(Menu(), ElementsAre("复制", "复制（带标题）", "-", "选定整行", "全选"));
    Choose("复制（带标题）");
    EXPECT_EQ(windows.clipboard, "代码\n1b");
    Choose("选定整行");
    Choose("复制");
    EXPECT_EQ(windows.clipboard, "1a\t1b\t1c\t1d");
    grid.SetRow(0);
    EXPECT_THAT(Menu(), ElementsAre("#复制", "#复制（带标题）", "-", "#选定整行", "#全选"));
}

TEST(GridActions, AGridWithoutKeysLeavesThemToTheFieldBesideIt) {
    support::RecordingWindows windows;
    NotingForm form;
    EditBox field(form, "Field");
    Grid list(form, "List");
    list.SetRows(1);
    list.SetCols(2);
    list.AddItem("\ta");
    list.SetTakesFocus(false);
    AddGridActions(form, list, [&]() -> platform::Windows& { return windows; });
    list.SetRow(1);
    list.SetCol(1);
    form.SetFocus(field);
    EXPECT_FALSE(form.KeyDown(kC, kCtrl));
    EXPECT_EQ(windows.clipboard, "");
    form.Run(*form.MenuActions().front());
    EXPECT_EQ(windows.clipboard, "a");
}

}  // namespace
}  // namespace kelvane::controls
