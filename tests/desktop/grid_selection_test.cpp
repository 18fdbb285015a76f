// Selecting with a real mouse and keyboard, the context menu, and what the display's clipboard has
// then.
#include <gtest/gtest.h>

#include "tests/desktop/list_places.h"
#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {
namespace {

using controls::GridRange;

std::string Clipboard() {
    return OutputOf("xclip -selection clipboard -out -target UTF8_STRING 2>/dev/null");
}

// Waits until another program finds this text on the clipboard.
void SeeClipboard(Person& person, const std::string& text) {
    std::string found;
    for (int look = 0; look < 100 && found != text; ++look) {
        found = Clipboard();
        if (found != text) person.Blink();
    }
    EXPECT_EQ(found, text);
}

TEST(DesktopGridSelection, DraggingSelectsCellsAndLeavesNoRow) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Drag(kTitle, kColumnMiddles[2], RowY(2), kColumnMiddles[4], RowY(5));
        person.See("range", [&] { return form.grid.Selected() == GridRange{2, 2, 5, 4}; });
        person.Drag(kTitle, kColumnMiddles[8], RowY(3), kColumnMiddles[8] + 3, RowY(3) + 2);
        person.See("one cell", [&] { return form.grid.Selected() == GridRange{3, 8, 3, 8}; });
        person.Drag(kTitle, kColumnMiddles[8], RowY(5), kColumnMiddles[2], RowY(3));
        person.See("backwards", [&] { return form.grid.Selected() == GridRange{3, 2, 5, 8}; });
    });
    EXPECT_EQ(form.events, (std::vector<std::string>{"leave 1", "leave 2", "leave 3"}));
    EXPECT_EQ(form.grid.Row(), 5);
}

TEST(DesktopGridSelection, DraggingBeyondTheEdgeScrolls) {
    ListForm form(1000);
    ShowTo(form, [&](Person& person) {
        person.MoveTo(kTitle, kColumnMiddles[2], RowY(3));
        person.Press();
        person.MoveTo(kTitle, kColumnMiddles[3], RowY(5));
        person.MoveTo(kTitle, kColumnMiddles[3], (7500 - 500) / 15 + 5);
        person.See("rows further down", [&] { return form.grid.Selected().bottom > 60; });
        person.MoveTo(kTitle, kColumnMiddles[3], kGridTop + 3);
        person.See("back at the top", [&] {
            return form.grid.TopRow() == 1 && form.grid.Selected() == GridRange{1, 2, 3, 3};
        });
        person.LetGo();
        person.See("it stays", [&] { return form.grid.Selected() == GridRange{1, 2, 3, 3}; });
    });
    EXPECT_EQ(form.grid.Row(), 3);
}

TEST(DesktopGridSelection, AClickWithShiftSelectsOverRows) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[1], RowY(2));
        person.See("cell", [&] { return form.grid.Row() == 2; });
        person.Hold("shift");
        person.Click(kTitle, kColumnMiddles[3], RowY(4));
        person.See("range", [&] { return form.grid.Selected() == GridRange{2, 1, 4, 3}; });
        person.Click(kTitle, kColumnMiddles[2], RowY(1));
        person.See("another", [&] { return form.grid.Selected() == GridRange{1, 1, 2, 2}; });
        person.Release("shift");
        person.Click(kTitle, kColumnMiddles[2], RowY(1));
        person.See("one cell again", [&] { return form.grid.Selected() == GridRange{1, 2, 1, 2}; });
    });
}

TEST(DesktopGridSelection, AClickOnARowsNumberSelectsTheRow) {
    ListForm form;
    form.grid.SetColumnWidth(0, 450);
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, 10, RowY(3));
        person.See("row", [&] { return form.grid.Selected() == GridRange{3, 1, 3, 9}; });
        person.Hold("shift");
        person.Click(kTitle, 10, RowY(5));
        person.Release("shift");
        person.See("rows", [&] { return form.grid.Selected() == GridRange{3, 1, 5, 9}; });
        EXPECT_TRUE(person.Look([&] { return form.grid.Row() == 3; }));
    });
}

TEST(DesktopGridSelection, WhatIsSelectedByKeysIsOnTheDisplaysClipboard) {
    ListForm form;
    form.guardColumn3 = true;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], RowY(2));
        person.See("cell", [&] { return form.grid.Col() == 3; });
        person.Keys({"ctrl+c"});
        SeeClipboard(person, "XM2");
        person.Keys({"shift+Down", "shift+End"});
        person.See("range", [&] { return form.grid.Selected() == GridRange{2, 3, 3, 9}; });
        person.Keys({"ctrl+c"});
        SeeClipboard(person,
                     "XM2\t滨江花园二期住宅楼工程\tA2\t人工费\t期初\t2234.50\n"
                     "XM3\t滨江花园二期住宅楼工程\tA3\t人工费\t期初\t3234.50");
        person.Keys({"ctrl+a"});
        person.See("all", [&] { return form.grid.Selected() == GridRange{1, 1, 40, 9}; });
        person.Keys({"Escape"});
        person.See("one cell", [&] { return form.grid.Selected() == GridRange{2, 3, 2, 3}; });
    });
    EXPECT_EQ(form.events, (std::vector<std::string>{"leave 1"}));
}

TEST(DesktopGridSelection, InAnOpenCellTheKeysAreTheFields) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 3; });
        person.Keys({"F2"});
        person.See("open", [&] { return form.grid.IsEditing(); });
        person.Keys({"Home", "shift+Right", "shift+Right", "ctrl+c"});
        SeeClipboard(person, "XM");
        EXPECT_TRUE(person.Look([&] { return form.grid.IsEditing(); }));
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.grid.IsEditing(); });
    });
}

TEST(DesktopGridSelection, TheRightButtonOpensTheMenuOfTheClickedCell) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.SeePopup([&] { person.ClickWith(3, kTitle, kColumnMiddles[8], RowY(4)); });
        EXPECT_TRUE(person.Look([&] { return form.grid.Row() == 4 && form.grid.Col() == 8; }));
        person.Keys({"Down", "Return"});
        SeeClipboard(person, "期初");
        person.Keys({"shift+Down"});
        person.See("range", [&] { return form.grid.Selected() == GridRange{4, 8, 5, 8}; });
        person.SeePopup([&] { person.ClickWith(3, kTitle, kColumnMiddles[8], RowY(5)); });
        EXPECT_TRUE(person.Look([&] { return form.grid.Selected() == GridRange{4, 8, 5, 8}; }));
        person.Keys({"Down", "Down", "Return"});
        SeeClipboard(person, "摘要\n期初\n期初");
    });
}

TEST(DesktopGridSelection, TheMenuKeyOpensTheMenuWhereKeysAreSilentToo) {
    ListForm form;
    form.guardColumn3 = true;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 3; });
        person.SeePopup([&] { person.Keys({"Menu"}); });
        person.Keys({"Down", "Return"});
        SeeClipboard(person, "XM1");
        person.Click(kTitle, kColumnMiddles[8], RowY(1));
        person.See("cell 8", [&] { return form.grid.Col() == 8; });
        person.SeePopup([&] { person.Keys({"shift+F10"}); });
        person.Keys({"Down", "Return"});
        SeeClipboard(person, "期初");
    });
}

}  // namespace
}  // namespace kelvane::test
