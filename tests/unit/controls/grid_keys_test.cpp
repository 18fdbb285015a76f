// The grid's keyboard.
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using platform::Key;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(GridTest, ArrowsMoveFromCellToCell) {
    At(2, 2);
    const std::vector<std::pair<Key, std::string>> steps{
        {Key::Down, "3 2"},  {Key::Down, "3 2"},  {Key::Up, "2 2"},   {Key::Right, "2 3"},
        {Key::Right, "2 4"}, {Key::Right, "2 4"}, {Key::Left, "2 3"}, {Key::Home, "2 1"},
        {Key::Left, "2 1"},  {Key::End, "2 4"},
    };
    for (const auto& [key, cell] : steps) {
        EXPECT_TRUE(grid.KeyDown(key, 0));
        EXPECT_EQ(Cell(), cell) << static_cast<int>(key);
    }
    grid.KeyDown(Key::End, platform::kCtrl);
    EXPECT_EQ(Cell(), "3 4");
    grid.KeyDown(Key::Home, platform::kCtrl);
    EXPECT_EQ(Cell(), "1 1");
}

TEST_F(GridTest, ArrowsPassHiddenColumnsAndRows) {
    grid.SetColumnWidth(2, 0);
    grid.SetColumnWidth(4, 0);
    grid.SetRowHeight(2, 0);
    At(1, 1);
    grid.KeyDown(Key::Right, 0);
    EXPECT_EQ(Cell(), "1 3");
    grid.KeyDown(Key::Right, 0);
    EXPECT_EQ(Cell(), "1 3");
    grid.KeyDown(Key::Down, 0);
    EXPECT_EQ(Cell(), "3 3");
    grid.KeyDown(Key::Up, 0);
    EXPECT_EQ(Cell(), "1 3");
    grid.SetRowHeight(3, 0);
    grid.KeyDown(Key::Down, 0);
    EXPECT_EQ(Cell(), "1 3");
}

TEST_F(GridTest, PagingMovesByTheRowsThatAreShown) {
    for (int row = 4; row <= 20; ++row) grid.AddItem("");
    grid.SetHeight(300 + 4 * 300 + Grid::kScrollBar);
    At(1, 1);
    grid.KeyDown(Key::PageDown, 0);
    EXPECT_EQ(Cell(), "5 1");
    EXPECT_EQ(grid.TopRow(), 2);
    grid.KeyDown(Key::PageUp, 0);
    EXPECT_EQ(Cell(), "1 1");
    EXPECT_EQ(grid.TopRow(), 1);
    grid.KeyDown(Key::PageUp, 0);
    EXPECT_EQ(Cell(), "1 1");
}

TEST_F(GridTest, KeysOnAnEmptyGridDoNothing) {
    grid.SetRows(1);
    for (const Key key : {Key::Up, Key::Down, Key::PageDown, Key::Home, Key::End, Key::Enter}) {
        EXPECT_TRUE(grid.KeyDown(key, 0));
    }
    EXPECT_FALSE(grid.KeyDown(Key::Delete, 0));
    EXPECT_FALSE(grid.KeyPress(U'x'));
    EXPECT_EQ(grid.Row(), 0);
    EXPECT_EQ(Notes(), std::vector<std::string>());
}

TEST_F(GridTest, EnterAndTabGoToTheNextCellThatCanBeTypedInto) {
    Lock(1, 2);
    grid.SetColumnWidth(3, 0);
    At(1, 1);
    grid.KeyDown(Key::Enter, 0);
    EXPECT_EQ(Cell(), "1 4");
    grid.NavigationKey(Key::Tab, 0);
    EXPECT_EQ(Cell(), "2 1");
    EXPECT_THAT(Notes(), ElementsAre("EnterCell 1 4", "RowValidate 1 4", "EnterCell 2 1"));
    grid.NavigationKey(Key::Tab, platform::kShift);
    EXPECT_EQ(Cell(), "1 4");
    grid.NavigationKey(Key::Tab, platform::kShift);
    EXPECT_EQ(Cell(), "1 1");
    grid.NavigationKey(Key::Tab, platform::kShift);
    EXPECT_EQ(Cell(), "1 1");
}

TEST_F(GridTest, TabFromTheHeaderEntersTheFirstCell) {
    grid.NavigationKey(Key::Tab, 0);
    EXPECT_EQ(Cell(), "1 1");
}

TEST_F(GridTest, TabStopsAtEveryShownCellOfALockedRowButAtNoHiddenRow) {
    LockRow(2);
    At(1, 4);
    grid.NavigationKey(Key::Tab, 0);
    EXPECT_EQ(Cell(), "2 1");
    grid.NavigationKey(Key::Tab, 0);
    EXPECT_EQ(Cell(), "2 2");
    grid.SetRowHeight(2, 0);
    At(1, 4);
    grid.NavigationKey(Key::Tab, 0);
    EXPECT_EQ(Cell(), "3 1");
}

TEST_F(GridTest, EnterPastTheLastCellLeavesAChangedRowWhereItIs) {
    At(3, 4);
    grid.KeyDown(Key::Enter, 0);
    EXPECT_THAT(Notes(), IsEmpty());
    Type("12");
    Notes();
    grid.KeyDown(Key::Enter, 0);
    EXPECT_THAT(Notes(), ElementsAre("CellValidate 12 3 4 cell=12", "CellChanged 3 4 3d>12",
                                     "EditModeChange off", "RowValidate 3 4"));
    EXPECT_EQ(Cell(), "3 4");
}

TEST_F(GridTest, TypingBeginsANewText) {
    At(1, 3);
    Type("xy");
    EXPECT_THAT(Notes(), ElementsAre("EditCheck 1 3", "EditModeChange on"));
    EXPECT_EQ(grid.EditText(), "xy");
    grid.KeyPress(U'项');
    EXPECT_EQ(grid.EditText(), "xy项");
    EXPECT_TRUE(grid.KeyDown(Key::Backspace, 0));
    EXPECT_EQ(grid.EditText(), "xy");
}

TEST_F(GridTest, TheBlankAndF2OpenTheCellWithItsText) {
    At(1, 3);
    EXPECT_TRUE(grid.KeyPress(U' '));
    EXPECT_EQ(grid.EditText(), "1c");
    grid.KeyPress(U'x');
    EXPECT_EQ(grid.EditText(), "1cx");
    At(1, 4);
    EXPECT_TRUE(grid.KeyDown(Key::F2, 0));
    EXPECT_EQ(grid.EditText(), "1d");
}

TEST_F(GridTest, AWindowCanKeepF2ToItself) {
    grid.SetOpensWithF2(false);
    At(1, 2);
    EXPECT_FALSE(grid.KeyDown(Key::F2, 0));
    EXPECT_FALSE(grid.IsEditing());
    grid.KeyPress(U' ');
    Notes();
    EXPECT_TRUE(grid.KeyDown(Key::F2, 0));
    EXPECT_THAT(Notes(), ElementsAre("CellReference 1b 1 2", "CellValidate ref 1 2 cell=ref",
                                     "EditModeChange off"));
}

TEST_F(GridTest, F2InAnOpenCellWithoutAReferenceButtonDoesNothing) {
    At(1, 3);
    grid.KeyDown(Key::F2, 0);
    Notes();
    EXPECT_TRUE(grid.KeyDown(Key::F2, 0));
    EXPECT_THAT(Notes(), IsEmpty());
    EXPECT_TRUE(grid.IsEditing());
}

TEST_F(GridTest, CharactersThatDoNotFitTheColumnsKindBeep) {
    At(1, 4);
    EXPECT_TRUE(grid.KeyPress(U'x'));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_THAT(Notes(), ElementsAre("Beep"));
    Type("-1,2.5e");
    EXPECT_EQ(grid.EditText(), "-1,2.5");
    grid.CancelEdit();
    At(1, 1);
    Type("2004/1-2.,x");
    EXPECT_EQ(grid.EditText(), "2004/1-2.");
}

TEST_F(GridTest, TypingPastTheColumnsLengthBeeps) {
    At(1, 2);
    Type("123456");
    EXPECT_EQ(grid.EditText(), "12345");
    EXPECT_THAT(Notes(), ElementsAre("EditCheck 1 2", "EditModeChange on", "Beep"));
}

TEST_F(GridTest, ControlCharactersAreNotTyped) {
    At(1, 2);
    for (const char32_t character : {U'\b', U'\r', U'\x1b', U'\x7f'}) {
        EXPECT_FALSE(grid.KeyPress(character));
    }
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(GridTest, TypingIntoALockedCellIsRefused) {
    Lock(1, 2);
    At(1, 2);
    EXPECT_TRUE(grid.KeyPress(U'x'));
    EXPECT_FALSE(grid.KeyPress(U' '));
    EXPECT_TRUE(grid.KeyDown(Key::Delete, 0));
    EXPECT_FALSE(grid.KeyDown(Key::F2, 0));
    EXPECT_THAT(Notes(), ElementsAre("refused 1 2", "refused 1 2", "refused 1 2", "refused 1 2"));
    EXPECT_EQ(grid.Text(1, 2), "1b");
}

TEST_F(GridTest, DeleteEmptiesTheCell) {
    At(1, 3);
    EXPECT_TRUE(grid.KeyDown(Key::Delete, 0));
    EXPECT_THAT(Notes(), ElementsAre("EditCheck 1 3", "EditModeChange on",
                                     "CellValidate  1 3 cell=", "CellChanged 1 3 1c>",
                                     "EditModeChange off"));
    EXPECT_EQ(Row(1), "1a|1b||1d");
}

TEST_F(GridTest, DeleteInAnOpenCellIsLeftToTheEditor) {
    At(1, 3);
    grid.BeginEdit();
    EXPECT_FALSE(grid.KeyDown(Key::Delete, 0));
    EXPECT_FALSE(grid.KeyDown(Key::Left, 0));
    EXPECT_EQ(grid.EditText(), "1c");
}

TEST_F(GridTest, EscapeAbandonsTheEditAndThenTheRow) {
    At(1, 3);
    Type("x");
    Notes();
    EXPECT_TRUE(grid.NavigationKey(Key::Escape, 0));
    EXPECT_THAT(Notes(), ElementsAre("EditModeChange off"));
    EXPECT_TRUE(grid.NavigationKey(Key::Escape, 0));
    EXPECT_THAT(Notes(), ElementsAre("AbandonRow 1"));
    At(0, 3);
    EXPECT_FALSE(grid.NavigationKey(Key::Escape, 0));
    EXPECT_FALSE(grid.NavigationKey(Key::Enter, 0));
}

TEST_F(GridTest, KeysWithAltAreNotTheGrids) {
    At(1, 3);
    EXPECT_FALSE(grid.KeyDown(Key::Down, platform::kAlt));
    EXPECT_FALSE(grid.KeyDown(Key::F5, 0));
    EXPECT_EQ(Cell(), "1 3");
}

TEST_F(GridTest, AnInputMethodsDigitsAndSignsAreTakenInTheirPlainForms) {
    At(1, 4);
    for (const char32_t character : std::u32string_view(U"－１，２３４。５０")) {
        EXPECT_TRUE(grid.KeyPress(character));
    }
    EXPECT_EQ(grid.EditText(), "-1,234.50");
    grid.CancelEdit();
    grid.BeginEdit();
    grid.ReplaceEditText("　１２．５");
    EXPECT_EQ(grid.EditText(), " 12.5");
    grid.CancelEdit();
    At(1, 1);
    grid.BeginEdit();
    grid.ReplaceEditText("２００４／６－１");
    EXPECT_EQ(grid.EditText(), "2004/6-1");
    grid.CancelEdit();
    EXPECT_FALSE(grid.TakesCharacter(U'Ａ'));
}

TEST_F(GridTest, ATextKeepsTheWidthOfItsLetters) {
    At(1, 3);
    grid.BeginEdit();
    grid.ReplaceEditText("１号楼。");
    EXPECT_EQ(grid.EditText(), "１号楼。");
}

}  // namespace
}  // namespace kelvane::controls
