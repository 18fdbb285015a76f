// Opening, ending and abandoning the edit of a cell.
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(GridTest, OpeningACellIsPrecededByTheEditCheck) {
    At(1, 2);
    EXPECT_TRUE(grid.BeginEdit());
    EXPECT_THAT(Notes(), ElementsAre("EditCheck 1 2", "EditModeChange on"));
    EXPECT_EQ(grid.EditState(), 1);
    EXPECT_EQ(grid.EditText(), "1b");
    EXPECT_TRUE(grid.BeginEdit());
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridTest, AnEditIsStoredThenValidatedThenAnnounced) {
    At(1, 2);
    grid.BeginEdit();
    Notes();
    grid.ReplaceEditText("new");
    EXPECT_EQ(grid.Text(1, 2), "1b");
    EXPECT_EQ(grid.FinishEdit(), GridAnswer::Accept);
    EXPECT_THAT(Notes(), ElementsAre("CellValidate new 1 2 cell=new", "CellChanged 1 2 1b>new",
                                     "EditModeChange off"));
    EXPECT_EQ(Row(1), "1a|new|1c|1d");
    EXPECT_EQ(grid.EditState(), 0);
    EXPECT_EQ(grid.EditText(), "");
    EXPECT_TRUE(grid.RowTouched());
}

TEST_F(GridTest, TheTextThatValidationLeavesIsTheOneKept) {
    At(1, 1);
    validated = "2004-01-02";
    grid.BeginEdit();
    grid.ReplaceEditText("2004.1.2");
    Notes();
    grid.FinishEdit();
    EXPECT_THAT(Notes(), ElementsAre("CellValidate 2004.1.2 1 1 cell=2004.1.2",
                                     "CellChanged 1 1 1a>2004-01-02", "EditModeChange off"));
    EXPECT_EQ(grid.Text(1, 1), "2004-01-02");
}

TEST_F(GridTest, TypingTheTextThatWasThereIsValidatedButNoChange) {
    At(1, 2);
    grid.BeginEdit();
    grid.ReplaceEditText("1b");
    Notes();
    grid.FinishEdit();
    EXPECT_THAT(Notes(), ElementsAre("CellValidate 1b 1 2 cell=1b", "EditModeChange off"));
    EXPECT_TRUE(grid.RowTouched());
}

TEST_F(GridTest, AnEditInWhichNothingWasTypedJustEnds) {
    At(1, 2);
    grid.BeginEdit();
    Notes();
    EXPECT_EQ(grid.FinishEdit(), GridAnswer::Accept);
    EXPECT_THAT(Notes(), ElementsAre("EditModeChange off"));
    EXPECT_FALSE(grid.RowTouched());
    EXPECT_EQ(grid.FinishEdit(), GridAnswer::Accept);
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridTest, ARefusedCellStaysOpenWithItsText) {
    At(1, 2);
    cellAnswer = GridAnswer::Refuse;
    grid.BeginEdit();
    grid.ReplaceEditText("bad");
    Notes();
    EXPECT_EQ(grid.FinishEdit(), GridAnswer::Refuse);
    EXPECT_THAT(Notes(), ElementsAre("CellValidate bad 1 2 cell=bad", "refused 1 2"));
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(grid.EditText(), "bad");
    EXPECT_EQ(grid.Text(1, 2), "bad");
    EXPECT_FALSE(grid.RowTouched());

    cellAnswer = GridAnswer::Accept;
    grid.ReplaceEditText("good");
    EXPECT_EQ(grid.FinishEdit(), GridAnswer::Accept);
    EXPECT_THAT(Notes(), ElementsAre("CellValidate good 1 2 cell=good", "CellChanged 1 2 1b>good",
                                     "EditModeChange off"));
}

TEST_F(GridTest, AnUndecidedAnswerAccepts) {
    At(1, 4);
    cellAnswer = GridAnswer::Undecided;
    grid.BeginEdit();
    grid.ReplaceEditText("5");
    EXPECT_EQ(grid.FinishEdit(), GridAnswer::Accept);
    EXPECT_EQ(grid.Text(1, 4), "5");
}

TEST_F(GridTest, AbandoningAnEditBringsTheOldTextBack) {
    At(1, 2);
    cellAnswer = GridAnswer::Refuse;
    grid.BeginEdit();
    grid.ReplaceEditText("bad");
    grid.FinishEdit();
    Notes();
    grid.CancelEdit();
    EXPECT_THAT(Notes(), ElementsAre("EditModeChange off"));
    EXPECT_EQ(Row(1), "1a|1b|1c|1d");
    EXPECT_FALSE(grid.RowTouched());
    grid.CancelEdit();
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridTest, ACellThatCannotBeTypedIntoRefusesAndRaisesNothing) {
    Lock(1, 2);
    At(1, 2);
    EXPECT_FALSE(grid.BeginEdit());
    EXPECT_THAT(Notes(), ElementsAre("refused 1 2"));

    At(0, 2);
    EXPECT_FALSE(grid.BeginEdit());
    EXPECT_THAT(Notes(), ElementsAre("refused 0 2"));

    At(1, 0);
    EXPECT_FALSE(grid.BeginEdit());
    EXPECT_THAT(Notes(), ElementsAre("refused 1 0"));

    grid.SetReadOnly(true);
    At(1, 3);
    EXPECT_FALSE(grid.BeginEdit());
    EXPECT_THAT(Notes(), ElementsAre("refused 1 3"));
    grid.ReplaceEditText("x");
    EXPECT_EQ(Row(1), "1a|1b|1c|1d");
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(GridTest, ATextThatIsTooLongIsCutWithABeep) {
    At(1, 2);
    grid.BeginEdit();
    Notes();
    grid.ReplaceEditText("一二三四五");
    EXPECT_THAT(Notes(), IsEmpty());
    grid.ReplaceEditText("一二三四五六");
    EXPECT_THAT(Notes(), ElementsAre("Beep"));
    EXPECT_EQ(grid.EditText(), "一二三四五");
}

TEST_F(GridTest, TabsAndLineBreaksInAnEditBecomeBlanks) {
    At(1, 3);
    grid.BeginEdit();
    grid.ReplaceEditText("a\tb\r\nc");
    EXPECT_EQ(grid.EditText(), "a b  c");
}

TEST_F(GridTest, AValidationThatFailsRefuses) {
    At(1, 2);
    throwing = true;
    grid.BeginEdit();
    grid.ReplaceEditText("x");
    EXPECT_EQ(grid.FinishEdit(), GridAnswer::Refuse);
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_THAT(form.trapped, ElementsAre("Grid_CellValidate: no check"));
}

TEST_F(GridTest, TheReferenceButtonPutsItsValueIntoTheCell) {
    At(1, 2);
    EXPECT_TRUE(grid.CanPressReference());
    EXPECT_TRUE(grid.PressReference());
    EXPECT_THAT(Notes(), ElementsAre("EditModeChange on", "CellReference 1b 1 2",
                                     "CellValidate ref 1 2 cell=ref", "EditModeChange off"));
    EXPECT_EQ(grid.Text(1, 2), "ref");
    EXPECT_TRUE(grid.RowTouched());
}

TEST_F(GridTest, TheReferenceButtonThatHandsTheSameValueBackChangesNothing) {
    At(1, 2);
    referenced = "1b";
    EXPECT_TRUE(grid.PressReference());
    EXPECT_THAT(Notes(),
                ElementsAre("EditModeChange on", "CellReference 1b 1 2", "EditModeChange off"));
    EXPECT_FALSE(grid.RowTouched());
}

TEST_F(GridTest, TheReferenceButtonOfAnOpenCellLeavesItOpenWithTheSameValue) {
    At(1, 2);
    grid.BeginEdit();
    grid.ReplaceEditText("typed");
    Notes();
    referenced = "typed";
    EXPECT_TRUE(grid.PressReference());
    EXPECT_THAT(Notes(), ElementsAre("CellReference typed 1 2"));
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(grid.EditText(), "typed");
}

TEST_F(GridTest, AnEmptyReferencedValueEmptiesTheCell) {
    At(1, 2);
    referenced = "";
    grid.PressReference();
    EXPECT_EQ(Row(1), "1a||1c|1d");
}

TEST_F(GridTest, AReferencedValueCanBeRefused) {
    At(1, 2);
    cellAnswer = GridAnswer::Refuse;
    EXPECT_TRUE(grid.PressReference());
    EXPECT_THAT(Notes(), ElementsAre("EditModeChange on", "CellReference 1b 1 2",
                                     "CellValidate ref 1 2 cell=ref", "refused 1 2"));
    EXPECT_TRUE(grid.IsEditing());
    EXPECT_EQ(grid.EditText(), "ref");
    grid.CancelEdit();
    EXPECT_EQ(grid.Text(1, 2), "1b");
}

TEST_F(GridTest, AReferenceButtonThatIsNotThereCannotBePressed) {
    At(1, 1);
    EXPECT_FALSE(grid.PressReference());
    At(0, 2);
    EXPECT_FALSE(grid.PressReference());
    Lock(1, 2);
    At(1, 2);
    EXPECT_FALSE(grid.CanPressReference());
    EXPECT_FALSE(grid.PressReference());
    grid.SetReadOnly(true);
    At(2, 2);
    EXPECT_FALSE(grid.PressReference());
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridTest, AReferenceThatFailsLeavesTheCellAsItWas) {
    At(1, 2);
    throwing = true;
    grid.PressReference();
    EXPECT_THAT(Notes(),
                ElementsAre("EditModeChange on", "CellReference 1b 1 2", "EditModeChange off"));
    EXPECT_THAT(form.trapped, ElementsAre("Grid_CellReference: no list"));
    EXPECT_EQ(grid.Text(1, 2), "1b");
}

TEST_F(GridTest, ADropDownListIsFilledEachTimeItOpens) {
    At(1, 3);
    EXPECT_THAT(grid.OpenList(), ElementsAre("one", ""));
    EXPECT_THAT(grid.OpenList(), ElementsAre("one", ""));
    EXPECT_THAT(Notes(), ElementsAre("ComboDropDown 1 3", "ComboDropDown 1 3"));
    At(1, 2);
    EXPECT_THAT(grid.OpenList(), IsEmpty());
    At(0, 3);
    EXPECT_THAT(grid.OpenList(), IsEmpty());
    EXPECT_THAT(Notes(), IsEmpty());
}

TEST_F(GridTest, AChosenItemIsAnEditOfTheCell) {
    At(1, 3);
    EXPECT_TRUE(grid.ChooseListItem("one"));
    EXPECT_THAT(Notes(),
                ElementsAre("EditCheck 1 3", "EditModeChange on", "CellValidate one 1 3 cell=one",
                            "CellChanged 1 3 1c>one", "EditModeChange off"));
    Lock(1, 3);
    EXPECT_FALSE(grid.ChooseListItem("two"));
    EXPECT_EQ(grid.Text(1, 3), "one");
    Lock(2, 4);
    At(2, 3);
    cellAnswer = GridAnswer::Refuse;
    EXPECT_FALSE(grid.ChooseListItem("two"));
}

}  // namespace
}  // namespace kelvane::controls
