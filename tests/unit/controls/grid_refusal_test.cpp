// What a refusal leaves behind: a marked cell, and a text that the next character replaces.
#include "tests/unit/controls/grid_fixture.h"

namespace kelvane::controls {
namespace {

using platform::Key;

class GridRefusalTest : public GridTest {
protected:
    using Place = Grid::Place;
    static constexpr Place kNone{};

    void Refuse(int row, int col, std::string_view text) {
        At(row, col);
        cellAnswer = GridAnswer::Refuse;
        Type(text);
        grid.FinishEdit();
        cellAnswer = GridAnswer::Accept;
    }
};

TEST_F(GridRefusalTest, ARefusedTextIsReplacedByWhatIsTypedNext) {
    Refuse(1, 2, "bad");
    EXPECT_EQ(grid.EditText(), "bad");
    EXPECT_EQ(grid.EditRefusals(), 1);
    Type("ok");
    EXPECT_EQ(grid.EditText(), "ok");
    grid.FinishEdit();
    EXPECT_EQ(grid.Text(1, 2), "ok");
}

TEST_F(GridRefusalTest, BackspaceTakesARefusedTextAwayAtOnce) {
    Refuse(1, 2, "bad");
    grid.KeyDown(Key::Backspace, 0);
    EXPECT_EQ(grid.EditText(), "");
    Type("ok");
    grid.KeyDown(Key::Backspace, 0);
    EXPECT_EQ(grid.EditText(), "o");
}

TEST_F(GridRefusalTest, EachRefusalSelectsTheTextAgain) {
    Refuse(1, 2, "bad");
    cellAnswer = GridAnswer::Refuse;
    grid.FinishEdit();
    EXPECT_EQ(grid.EditRefusals(), 2);
    Type("x");
    EXPECT_EQ(grid.EditText(), "x");
}

TEST_F(GridRefusalTest, AGivenUpTextIsNotSelectedInTheNextCell) {
    Refuse(1, 2, "bad");
    grid.CancelEdit();
    EXPECT_EQ(grid.RefusedCell(), kNone);
    At(1, 3);
    grid.BeginEdit();
    Type("x");
    EXPECT_EQ(grid.EditText(), "1cx");
}

TEST_F(GridRefusalTest, TheRefusedCellIsMarkedUntilItsTextIsChanged) {
    Refuse(1, 2, "bad");
    EXPECT_EQ(grid.RefusedCell(), (Place{1, 2}));
    Type("o");
    EXPECT_EQ(grid.RefusedCell(), kNone);
    cellAnswer = GridAnswer::Refuse;
    grid.FinishEdit();
    EXPECT_EQ(grid.RefusedCell(), (Place{1, 2}));
    cellAnswer = GridAnswer::Accept;
    EXPECT_TRUE(grid.MoveTo(1, 3));
    EXPECT_EQ(grid.RefusedCell(), kNone);
}

TEST_F(GridRefusalTest, AMarkThatTheWindowSetsStaysUntilTheRowIsLeftOrChanged) {
    At(1, 2);
    grid.MarkRefused(1, 4);
    grid.MoveTo(1, 3);
    grid.BeginEdit();
    grid.CancelEdit();
    EXPECT_EQ(grid.RefusedCell(), (Place{1, 4}));
    grid.MoveTo(2, 3);
    EXPECT_EQ(grid.RefusedCell(), kNone);
    grid.MarkRefused(2, Grid::kWholeRow);
    grid.SetRow(1);
    EXPECT_EQ(grid.RefusedCell(), kNone);
    grid.MarkRefused(1, 4);
    Type("z");
    EXPECT_EQ(grid.RefusedCell(), kNone);
}

TEST_F(GridRefusalTest, ALeaveThatIsTriedAgainBeginsWithoutAMark) {
    At(1, 2);
    grid.MarkRefused(1, 4);
    rowAnswer = GridAnswer::Refuse;
    EXPECT_FALSE(grid.MoveTo(2, 2));
    EXPECT_EQ(grid.RefusedCell(), kNone);
}

TEST_F(GridRefusalTest, TheMarkMovesAndGoesWithItsRow) {
    At(3, 2);
    grid.MarkRefused(3, 4);
    grid.RemoveItem(1);
    EXPECT_EQ(grid.RefusedCell(), (Place{2, 4}));
    grid.RemoveItem(2);
    EXPECT_EQ(grid.RefusedCell(), kNone);
}

}  // namespace
}  // namespace kelvane::controls
