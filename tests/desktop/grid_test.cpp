// The grid on the screen, worked by real keys and a real mouse.
#include <gtest/gtest.h>

#include "tests/desktop/list_places.h"
#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

TEST(DesktopGrid, ClickMakesACellCurrent) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[8], RowY(5));
        person.See("cell 5 8", [&] { return form.grid.Row() == 5 && form.grid.Col() == 8; });
        EXPECT_FALSE(person.Look([&] { return form.grid.IsEditing(); }));
    });
    EXPECT_EQ(form.events, (std::vector<std::string>{"leave 1"}));
}

TEST(DesktopGrid, DoubleClickOpensACell) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[8], RowY(3), 2);
        person.See("open cell", [&] { return form.grid.IsEditing() && form.grid.Row() == 3; });
        person.Type("ab");
        person.See("typed text", [&] { return form.grid.EditText() == "期初ab"; });
        person.Keys({"Return"});
        person.See("stored text", [&] { return form.grid.Text(3, 8) == "期初ab"; });
    });
}

TEST(DesktopGrid, TypingInTheMiddleOfATextGoesWhereTheCaretIs) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], RowY(2));
        person.See("cell", [&] { return form.grid.Row() == 2; });
        person.Keys({"F2"});
        person.See("open cell", [&] { return form.grid.IsEditing(); });
        person.Keys({"Home", "Right", "Right", "Delete"});
        person.See("deleted", [&] { return form.grid.EditText() == "XM"; });
        person.Keys({"Left", "BackSpace"});
        person.Type("项目z");
        person.See("inserted", [&] { return form.grid.EditText() == "项目zM"; });
        person.Keys({"Escape"});
        person.See("abandoned",
                   [&] { return !form.grid.IsEditing() && form.grid.Text(2, 3) == "XM2"; });
    });
}

TEST(DesktopGrid, ACharacterBeginsANewText) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Keys({"Right", "Right"});
        person.See("cell 1 3", [&] { return form.grid.Col() == 3; });
        person.Type("QC-7");
        person.See("typed", [&] { return form.grid.EditText() == "QC-7"; });
        person.Keys({"Tab"});
        person.See("stored", [&] {
            return form.grid.Text(1, 3) == "QC-7" && !form.grid.IsEditing() && form.grid.Col() == 7;
        });
    });
    EXPECT_EQ(form.events, (std::vector<std::string>{"validate QC-7"}));
}

TEST(DesktopGrid, ARefusedCellStaysOpenWithItsText) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[8], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 8; });
        person.Type("bad");
        person.See("typed", [&] { return form.grid.EditText() == "bad"; });
        person.Click(kTitle, kColumnMiddles[8], RowY(4));
        person.See("refused",
                   [&] { return form.events == std::vector<std::string>{"validate bad"}; });
        person.Type("x");
        person.See("the keyboard is still in the cell", [&] {
            return form.grid.IsEditing() && form.grid.Row() == 1 && form.grid.EditText() == "x";
        });
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.grid.IsEditing(); });
    });
}

TEST(DesktopGrid, InputKindAndLengthHoldInTheNativeField) {
    ListForm form;
    int beeps = 0;
    form.grid.Beep = [&] { ++beeps; };
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[9], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 9; });
        person.Keys({"F2"});
        person.See("open", [&] { return form.grid.IsEditing(); });
        person.Keys({"ctrl+a"});
        person.Type("1x2,5.0");
        person.See("digits alone", [&] { return form.grid.EditText() == "12,5.0"; });
        person.Keys({"Escape", "Left"});
        person.See("cell 8", [&] { return form.grid.Col() == 8 && !form.grid.IsEditing(); });
        person.Type("123456789");
        person.See("cut at eight", [&] { return form.grid.EditText() == "12345678"; });
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.grid.IsEditing(); });
    });
    EXPECT_EQ(beeps, 2);
}

TEST(DesktopGrid, KeysThatWaitGoWhereTheKeysBeforeThemLead) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[9], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 9; });
        person.KeysAhead({"F2", "Home", "7", "Right", "8"});
        person.See("typed into the field that F2 opened",
                   [&] { return form.grid.EditText() == "718,234.50"; });
        person.KeysAhead({"Escape", "Left", "c", "d", "Home", "e"});
        person.See("typed into the cell to the left",
                   [&] { return form.grid.Col() == 8 && form.grid.EditText() == "ecd"; });
        person.KeysAhead({"Escape", "Down", "f", "Return"});
        person.See("stored below", [&] { return form.grid.Text(2, 8) == "f"; });
    });
    EXPECT_EQ(form.grid.Text(1, 8), "期初");
    EXPECT_EQ(form.grid.Text(1, 9), "1,234.50");
}

TEST(DesktopGrid, PastedTextPassesTheSameFilter) {
    ListForm form;
    form.refusedCharacter = U'7';
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 3; });
        person.Type("1a73b");
        person.See("typed", [&] { return form.grid.EditText() == "1a3b"; });
        person.Keys({"ctrl+a", "ctrl+c", "Return"});
        person.See("stored", [&] { return form.grid.Text(1, 3) == "1a3b"; });
        person.Click(kTitle, kColumnMiddles[9], RowY(1));
        person.See("cell 9", [&] { return form.grid.Col() == 9; });
        person.Keys({"F2"});
        person.See("open", [&] { return form.grid.IsEditing(); });
        person.Keys({"ctrl+a", "ctrl+v"});
        person.See("digits alone", [&] { return form.grid.EditText() == "13"; });
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.grid.IsEditing(); });
    });
}

TEST(DesktopGrid, TheFormSeesKeysBeforeTheField) {
    ListForm form;
    form.guardColumn3 = true;
    form.refusedCharacter = U'q';
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 3; });
        person.Type("zz");
        person.Keys({"F2"});
        person.See("open with its own text",
                   [&] { return form.grid.IsEditing() && form.grid.EditText() == "XM1"; });
        person.Type("zz");
        person.Keys({"BackSpace", "Escape", "Tab"});
        person.See("cell 7", [&] { return form.grid.Col() == 7 && !form.grid.IsEditing(); });
        EXPECT_TRUE(person.Look([&] { return form.grid.Text(1, 3) == "XM1"; }));
        person.Keys({"Right"});
        person.Type("aqb");
        person.See("without q", [&] { return form.grid.EditText() == "ab"; });
        person.Keys({"Escape", "ctrl+p", "F3"});
        person.See("keys on release",
                   [&] { return !form.events.empty() && form.events.back() == "f3"; });
    });
    EXPECT_EQ(form.events, (std::vector<std::string>{"refused q", "ctrl+p", "f3"}));
}

TEST(DesktopGrid, TheReferenceButtonFillsTheCell) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[2], RowY(2));
        person.See("cell", [&] { return form.grid.Col() == 2; });
        person.Click(kTitle, (1300 + 1200) / 15 - 8, RowY(2));
        person.See("value", [&] { return form.grid.Text(2, 2) == "0202"; });
        person.Keys({"Down"});
        person.See("cell 3 2", [&] { return form.grid.Row() == 3; });
        person.Keys({"alt+Down"});
        person.See("value by keyboard", [&] { return form.grid.Text(3, 2) == "0202"; });
    });
    EXPECT_EQ(form.events, (std::vector<std::string>{"leave 1", "reference 2 2", "validate 0202",
                                                     "leave 2", "reference 3 2", "validate 0202"}));
}

TEST(DesktopGrid, TheDropDownListFillsTheCell) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[7], RowY(2));
        person.See("cell", [&] { return form.grid.Col() == 7; });
        person.SeePopup([&] { person.Keys({"alt+Down"}); });
        person.Keys({"Down", "Return"});
        person.See("chosen", [&] { return form.grid.Text(2, 7) == "材料费"; });
    });
}

TEST(DesktopGrid, TheFormSeesTheKeyThatOpensLists) {
    ListForm form;
    form.guardColumn3 = true;
    form.grid.SetColumnReference(3, true);
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 3; });
        person.Keys({"alt+Down", "F3"});
        person.See("the key after it",
                   [&] { return form.events == std::vector<std::string>{"f3"}; });
        person.Keys({"F2", "F2"});
        person.See("F2 presses the button", [&] { return form.grid.Text(1, 3) == "0202"; });
    });
}

TEST(DesktopGrid, AColumnIsDraggedWider) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        const int edge = (1300 + 1200) / 15;
        person.Drag(kTitle, edge, kGridTop + 10, edge + 40, kGridTop + 10);
        person.See("wider", [&] { return form.grid.ColumnWidth(2) > 1700; });
        EXPECT_NEAR(form.grid.ColumnWidth(2), 1800, 45);
    });
}

TEST(DesktopGrid, HeaderClicksAndDoubleClicksAreTold) {
    ListForm form;
    form.grid.HeaderClick = [&](int col) {
        form.events.push_back("header " + std::to_string(col));
    };
    form.grid.CellDoubleClick = [&](int row, int col) {
        form.events.push_back("double " + std::to_string(row) + " " + std::to_string(col));
    };
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], kGridTop + 10);
        person.See("header", [&] { return form.events.size() == 1; });
        person.Click(kTitle, kColumnMiddles[8], RowY(1), 2);
        person.See("double click", [&] { return form.events.size() == 2; });
        EXPECT_FALSE(person.Look([&] { return form.grid.IsEditing(); }));
    });
    EXPECT_EQ(form.events, (std::vector<std::string>{"header 3", "double 1 8"}));
}

TEST(DesktopGrid, AClickOnATitleSorts) {
    ListForm form;
    form.grid.HeaderClick = [&](int col) {
        form.grid.SortRows(col, form.grid.SortColumn() == col && !form.grid.SortsDescending());
    };
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[3], kGridTop + 10);
        person.See("sorted", [&] { return form.grid.SortColumn() == 3; });
        EXPECT_TRUE(person.Look([&] {
            return form.grid.Text(1, 3) == "XM1" && form.grid.Text(2, 3) == "XM10" &&
                   form.grid.Row() == 1;
        }));
        person.Click(kTitle, kColumnMiddles[3], kGridTop + 10);
        person.See("the other way", [&] { return form.grid.Text(1, 3) == "XM9"; });
        // The current row is still in sight, far below.
        EXPECT_TRUE(person.Look([&] {
            return form.grid.Text(form.grid.Row(), 3) == "XM1" &&
                   form.grid.IsRowShown(form.grid.Row());
        }));
        person.Click(kTitle, kColumnMiddles[8], RowY(1));
        person.See("the first row on the screen",
                   [&] { return form.grid.Row() == form.grid.TopRow() && form.grid.Row() > 1; });
    });
}

TEST(DesktopGrid, WheelAndScrollBarScroll) {
    ListForm form(1000);
    ShowTo(form, [&](Person& person) {
        person.Wheel(kTitle, 300, RowY(5), 2);
        person.See("six rows on", [&] { return form.grid.TopRow() == 7; });
        person.Wheel(kTitle, 300, RowY(5), -1);
        person.See("three rows back", [&] { return form.grid.TopRow() == 4; });
        // The thumb of the vertical bar, dragged to the lower end.
        const int right = (12000 - 90) / 15 - 8;
        const int bottom = (7500 - 500 - 255) / 15;
        person.Drag(kTitle, right, kGridTop + 15, right, bottom);
        person.See("last page", [&] {
            return form.grid.TopRow() + form.grid.VisibleRows() == form.grid.Rows();
        });
    });
    EXPECT_EQ(form.grid.Row(), 1);
}

TEST(DesktopGrid, AButtonOverACellTakesTheClick) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[4] - 40, RowY(3));
        person.See("button shown", [&] { return form.detail.Visible(); });
        person.Click(kTitle, (1300 + 1200 + 1200 + 2500) / 15 - 10, RowY(3));
        person.See("clicked",
                   [&] { return !form.events.empty() && form.events.back() == "detail"; });
        EXPECT_TRUE(person.Look([&] { return form.grid.Row() == 3 && form.grid.Col() == 4; }));
        person.Keys({"alt+Down", "F3"});
        person.See("the keyboard opens lists, it presses no such button",
                   [&] { return form.events.back() == "f3"; });
    });
    EXPECT_EQ(form.events, (std::vector<std::string>{"leave 1", "detail", "f3"}));
}

TEST(DesktopGrid, ARangeOfCellsIsSelectedWithShift) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[1], RowY(2));
        person.See("cell", [&] { return form.grid.Row() == 2; });
        person.Hold("shift");
        person.Click(kTitle, kColumnMiddles[3], RowY(2));
        person.Release("shift");
        person.See("range", [&] { return form.grid.SelectionEnd() == 3; });
        EXPECT_TRUE(person.Look([&] { return form.grid.Col() == 1; }));
        person.Keys({"Down"});
        person.See("one cell again", [&] { return form.grid.SelectionEnd() == 1; });
    });
}

// The toolkit's built-in input method: a character by its number, ended by a key that would
// otherwise belong to the grid.
TEST(DesktopGrid, AnInputMethodSeesKeysBeforeTheGrid) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[8], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 8; });
        person.Keys({"F2"});
        person.See("open", [&] { return form.grid.IsEditing(); });
        person.Keys({"ctrl+shift+u", "9", "9", "8", "4", "Return"});
        person.See("composed", [&] { return form.grid.EditText() == "期初馄"; });
        EXPECT_TRUE(person.Look([&] { return form.grid.IsEditing() && form.grid.Row() == 1; }));
        person.Keys({"ctrl+shift+u", "4", "e", "2", "d", "Escape", "Return"});
        person.See("stored without what was given up",
                   [&] { return !form.grid.IsEditing() && form.grid.Text(1, 8) == "期初馄"; });
    });
}

TEST(DesktopGrid, AnInputMethodOpensACell) {
    ListForm form;
    form.refusedCharacter = U'中';
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, kColumnMiddles[8], RowY(1));
        person.See("cell", [&] { return form.grid.Col() == 8; });
        person.Keys({"dead_acute", "e"});
        person.See("a new text", [&] { return form.grid.EditText() == "é"; });
        person.Keys({"ctrl+shift+u", "4", "e", "2", "d", "space"});
        person.See("the form has refused it", [&] { return form.events.size() == 1; });
        person.Keys({"Return"});
        person.See("stored", [&] { return form.grid.Text(1, 8) == "é"; });
    });
    EXPECT_EQ(form.events.front(), "refused 中");
}

TEST(DesktopGrid, SentKeysOpenTheCell) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Keys({"Right", "Right"});
        person.See("cell 3", [&] { return form.grid.Col() == 3; });
        person.Look([&] {
            Windows().SendKeys(" {f2}");
            return true;
        });
        person.See("open", [&] { return form.grid.IsEditing(); });
        person.Type("9");
        person.See("keyboard in the field", [&] { return form.grid.EditText() == "XM19"; });
        person.Look([&] {
            Windows().SendKeys("a ");
            return true;
        });
        person.See("sent into the field", [&] { return form.grid.EditText() == "XM19a "; });
    });
}

TEST(DesktopGrid, SentKeysGoByEitherOfTheirNames) {
    ListForm form(200);
    ShowTo(form, [&](Person& person) {
        int page = 0;
        person.Look([&] {
            page = form.grid.VisibleRows();
            Windows().SendKeys("{pagedown}{PgDn}{right}{ctrl+p}");
            return true;
        });
        person.See("two pages down",
                   [&] { return form.grid.Row() == 1 + 2 * page && form.grid.Col() == 2; });
        person.See("a command key", [&] { return form.events.back() == "ctrl+p"; });
        EXPECT_FALSE(person.Look([&] { return form.grid.IsEditing(); }));
        person.Look([&] {
            Windows().SendKeys("{pageup}{pgup}");
            return true;
        });
        person.See("back", [&] { return form.grid.Row() == 1; });
    });
}

TEST(DesktopGrid, HundredThousandRowsOpenAtTheEnd) {
    ListForm form(100000);
    ShowTo(form, [&](Person& person) {
        person.Keys({"ctrl+End"});
        person.See("last row",
                   [&] { return form.grid.Row() == 100000 && form.grid.IsRowShown(100000); });
        person.Keys({"Prior"});
        person.See("a page up",
                   [&] { return form.grid.Row() == 100000 - form.grid.VisibleRows(); });
    });
}

}  // namespace kelvane::test
