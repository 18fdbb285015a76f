// Moving the current cell and leaving rows.
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(GridTest, MovingInARowEntersTheCell) {
    At(1, 1);
    EXPECT_TRUE(grid.MoveTo(1, 3));
    EXPECT_THAT(Notes(), ElementsAre("EnterCell 1 3"));
    EXPECT_EQ(grid.SelectionEnd(), 3);
    EXPECT_TRUE(grid.MoveTo(1, 3));
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridTest, MovingEndsAnEditFirst) {
    At(1, 2);
    grid.BeginEdit();
    grid.ReplaceEditText("new");
    Notes();
    EXPECT_TRUE(grid.MoveTo(2, 1));
    EXPECT_THAT(Notes(), ElementsAre("CellValidate new 1 2 cell=new", "CellChanged 1 2 1b>new",
                                     "EditModeChange off", "RowValidate 1 2", "EnterCell 2 1"));
}

TEST_F(GridTest, ARefusedEditKeepsTheCurrentCell) {
    At(1, 2);
    grid.BeginEdit();
    grid.ReplaceEditText("bad");
    cellAnswer = GridAnswer::Refuse;
    Notes();
    EXPECT_FALSE(grid.MoveTo(2, 1));
    EXPECT_THAT(Notes(), ElementsAre("CellValidate bad 1 2 cell=bad", "refused 1 2"));
    EXPECT_EQ(Cell(), "1 2");
    EXPECT_TRUE(grid.IsEditing());
}

TEST_F(GridTest, AnUnchangedRowIsValidatedWhenItIsLeft) {
    At(1, 2);
    EXPECT_TRUE(grid.MoveTo(3, 2));
    EXPECT_THAT(Notes(), ElementsAre("RowValidate 1 2", "EnterCell 3 2"));
}

TEST_F(GridTest, NoRowIsLeftFromTheHeader) {
    EXPECT_EQ(Cell(), "0 0");
    EXPECT_TRUE(grid.MoveTo(1, 1));
    EXPECT_THAT(Notes(), ElementsAre("EnterCell 1 1"));
}

TEST_F(GridTest, ARowThatCannotBeTheCurrentOneIsRefused) {
    At(2, 1);
    grid.BeginEdit();
    Notes();
    for (const int row : {0, -1, grid.Rows()}) {
        EXPECT_FALSE(grid.MoveTo(row, 2)) << row;
        EXPECT_THAT(Notes(), IsEmpty()) << row;
        EXPECT_EQ(Cell(), "2 1") << row;
        EXPECT_TRUE(grid.IsEditing()) << row;
    }
    grid.CancelEdit();
    grid.SetFixedRows(2);
    EXPECT_FALSE(grid.MoveTo(1, 2));
    EXPECT_EQ(Cell(), "2 1");
}

TEST_F(GridTest, KeysToTheSideMakeTheFirstRowCurrentWhereNoneIs) {
    for (const platform::Key key :
         {platform::Key::Left, platform::Key::Right, platform::Key::Home, platform::Key::End}) {
        grid.SetRow(0);
        EXPECT_TRUE(grid.KeyDown(key, 0));
        EXPECT_EQ(grid.Row(), 1);
    }
}

TEST_F(GridTest, ARefusedRowKeepsTheOperatorInTheColumnHandedBack) {
    At(1, 2);
    rowAnswer = GridAnswer::Refuse;
    rowColumn = 4;
    EXPECT_FALSE(grid.MoveTo(2, 2));
    EXPECT_THAT(Notes(), ElementsAre("RowValidate 1 2", "EnterCell 1 4", "refused 1 4"));
    EXPECT_EQ(Cell(), "1 4");
    EXPECT_FALSE(grid.MoveTo(2, 2));
    EXPECT_THAT(Notes(), ElementsAre("RowValidate 1 4", "refused 1 4"));
}

TEST_F(GridTest, AColumnThatCannotBeReturnedToIsIgnored) {
    At(1, 2);
    rowAnswer = GridAnswer::Refuse;
    for (const int column : {-1, 99}) {
        rowColumn = column;
        EXPECT_FALSE(grid.MoveTo(2, 2));
        EXPECT_EQ(Cell(), "1 2");
    }
}

TEST_F(GridTest, ARowThatFailsToBeValidatedIsNotLeft) {
    At(1, 2);
    throwing = true;
    EXPECT_FALSE(grid.MoveTo(2, 2));
    EXPECT_THAT(Notes(), ElementsAre("RowValidate 1 2", "refused 1 2"));
    EXPECT_THAT(form.trapped, ElementsAre("Grid_RowValidate: no save"));
}

TEST_F(GridTest, ARowThatNothingCanBeTypedIntoIsLeftWithoutValidation) {
    LockRow(1);
    At(1, 2);
    EXPECT_TRUE(grid.MoveTo(2, 2));
    EXPECT_THAT(Notes(), ElementsAre("EnterCell 2 2"));
    grid.SetReadOnly(true);
    EXPECT_TRUE(grid.MoveTo(3, 2));
    EXPECT_THAT(Notes(), ElementsAre("EnterCell 3 2"));
    grid.SetReadOnly(false);
    Lock(3, 2);
    EXPECT_TRUE(grid.MoveTo(2, 2));
    EXPECT_THAT(Notes(), ElementsAre("RowValidate 3 2", "EnterCell 2 2"));
}

TEST_F(GridTest, LeavingARowInPlaceForgetsThatItWasChanged) {
    At(1, 2);
    grid.BeginEdit();
    grid.ReplaceEditText("x");
    Notes();
    EXPECT_TRUE(grid.LeaveRow());
    EXPECT_THAT(Notes(), ElementsAre("CellValidate x 1 2 cell=x", "CellChanged 1 2 1b>x",
                                     "EditModeChange off", "RowValidate 1 2"));
    EXPECT_FALSE(grid.RowTouched());
    EXPECT_EQ(Cell(), "1 2");
}

TEST_F(GridTest, MovingIsKeptInsideTheColumns) {
    EXPECT_TRUE(grid.MoveTo(3, 99));
    EXPECT_EQ(Cell(), "3 4");
    EXPECT_TRUE(grid.MoveTo(1, 0));
    EXPECT_EQ(Cell(), "1 1");
    grid.SetRows(1);
    EXPECT_FALSE(grid.MoveTo(1, 1));
}

TEST_F(GridTest, ARowThatValidationRemovesCannotBeReturnedTo) {
    At(2, 2);
    grid.RowValidate = [this](GridAnswer& answer, int row, int&) {
        grid.RemoveItem(row);
        answer = GridAnswer::Accept;
    };
    EXPECT_TRUE(grid.MoveTo(3, 2));
    EXPECT_EQ(Cell(), "2 2");
    EXPECT_EQ(Row(2), "3a|3b|3c|3d");
}

TEST_F(GridTest, MovingByCodeRaisesViewChangeAlone) {
    At(1, 1);
    grid.SetRow(2);
    grid.SetCol(3);
    EXPECT_THAT(Notes(), ElementsAre("ViewChange", "ViewChange"));
    EXPECT_EQ(Cell(), "2 3");
    grid.SetRow(2);
    grid.SetCol(3);
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridTest, MovingByCodeEndsAnEditAndStaysWhenThatIsRefused) {
    At(1, 2);
    grid.BeginEdit();
    grid.ReplaceEditText("bad");
    cellAnswer = GridAnswer::Refuse;
    grid.SetRow(2);
    EXPECT_EQ(Cell(), "1 2");
    cellAnswer = GridAnswer::Accept;
    Notes();
    grid.SetCol(3);
    EXPECT_THAT(Notes(), ElementsAre("CellValidate bad 1 2 cell=bad", "CellChanged 1 2 1b>bad",
                                     "EditModeChange off", "ViewChange"));
    EXPECT_EQ(Cell(), "1 3");
}

TEST_F(GridTest, SettingTheColumnTakesTheSelectionBack) {
    At(1, 1);
    grid.SetSelectionEnd(4);
    EXPECT_EQ(grid.SelectionEnd(), 4);
    grid.SetCol(1);
    EXPECT_EQ(grid.SelectionEnd(), 1);
}

TEST_F(GridTest, CellsOutsideTheGridCannotBeMadeCurrentByCode) {
    EXPECT_THROW(grid.SetRow(4), std::out_of_range);
    EXPECT_THROW(grid.SetRow(-1), std::out_of_range);
    EXPECT_THROW(grid.SetCol(5), std::out_of_range);
    grid.SetRow(0);
    EXPECT_EQ(grid.Row(), 0);
}

}  // namespace
}  // namespace kelvane::controls
