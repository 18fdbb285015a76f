// Cells whose text the grid's window keeps from the operator.
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using platform::Key;
using testing::ElementsAre;

class GridGuardTest : public GridTest {
protected:
    // Column 4 and, with its reference button, column 2 of the first row.
    GridGuardTest() {
        grid.TextMayChange = [](int row, int col) { return row != 1 || (col != 4 && col != 2); };
    }
};

TEST_F(GridGuardTest, AnOpenCellKeepsItsText) {
    At(1, 4);
    EXPECT_FALSE(grid.MayChangeText());
    EXPECT_TRUE(grid.BeginEdit());
    Notes();
    grid.ReplaceEditText("9");
    grid.ReplaceEditText("");
    grid.KeyPress(U'5');
    grid.KeyPress(U' ');
    grid.KeyDown(Key::Backspace, 0);
    EXPECT_THAT(Notes(), ElementsAre("Beep", "Beep", "Beep", "Beep", "Beep"));
    EXPECT_EQ(grid.EditText(), "1d");
    EXPECT_EQ(grid.FinishEdit(), GridAnswer::Accept);
    EXPECT_THAT(Notes(), ElementsAre("EditModeChange off"));
    EXPECT_EQ(Row(1), "1a|1b|1c|1d");
    EXPECT_FALSE(grid.RowTouched());
}

TEST_F(GridGuardTest, ACharacterThatWouldChangeItOpensNoCell) {
    At(1, 4);
    EXPECT_TRUE(grid.KeyPress(U'5'));
    EXPECT_TRUE(grid.KeyDown(Key::Delete, 0));
    EXPECT_THAT(Notes(), ElementsAre("Beep", "Beep"));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_TRUE(grid.KeyPress(U' '));
    EXPECT_THAT(Notes(), ElementsAre("EditCheck 1 4", "EditModeChange on"));
    grid.CancelEdit();
    Lock(1, 4);
    Notes();
    EXPECT_TRUE(grid.KeyPress(U'5'));
    EXPECT_THAT(Notes(), ElementsAre("refused 1 4"));
}

TEST_F(GridGuardTest, AListChangesNoGuardedText) {
    grid.TextMayChange = [](int, int col) { return col != 3; };
    At(1, 3);
    EXPECT_FALSE(grid.ChooseListItem("one"));
    EXPECT_THAT(Notes(), ElementsAre("Beep"));
    grid.BeginEdit();
    grid.ChooseListItem("one");
    EXPECT_EQ(grid.Text(1, 3), "1c");
}

TEST_F(GridGuardTest, TheReferenceButtonIsNotAsked) {
    At(1, 2);
    EXPECT_TRUE(grid.PressReference());
    EXPECT_EQ(grid.Text(1, 2), "ref");
    grid.BeginEdit();
    referenced = "two";
    EXPECT_TRUE(grid.PressReference());
    EXPECT_EQ(grid.Text(1, 2), "two");
    Notes();
    cellAnswer = GridAnswer::Refuse;
    referenced = "bad";
    EXPECT_TRUE(grid.PressReference());
    EXPECT_TRUE(grid.IsEditing());
    grid.ReplaceEditText("good");
    EXPECT_EQ(grid.EditText(), "bad");
    grid.CancelEdit();
    EXPECT_EQ(grid.Text(1, 2), "two");
}

TEST_F(GridGuardTest, OtherCellsAreFree) {
    At(2, 4);
    Type("12");
    EXPECT_EQ(grid.EditText(), "12");
    EXPECT_TRUE(grid.MayChangeText());
    grid.FinishEdit();
    EXPECT_EQ(grid.Text(2, 4), "12");
}

TEST_F(GridGuardTest, AQuestionThatFailsRefuses) {
    grid.TextMayChange = [](int, int) -> bool { throw std::runtime_error("no answer"); };
    At(2, 4);
    grid.KeyPress(U'5');
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_THAT(Notes(), ElementsAre("Beep"));
    EXPECT_THAT(form.trapped, ElementsAre("Grid_TextMayChange: no answer"));
}

}  // namespace
}  // namespace kelvane::controls
