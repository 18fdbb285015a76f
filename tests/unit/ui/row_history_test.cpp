// The steps of a row's changes, and the ways out of it.
#include <gtest/gtest.h>

#include "ui/common/row_history.h"

namespace kelvane::ui {
namespace {

using WayOut = RowHistory::WayOut;

constexpr int kRow = 7;

RowState State(const char* cells, std::int16_t detail = 0) {
    return {.cells = cells, .waiting = {}, .detail = detail};
}

class RowHistoryTest : public testing::Test {
protected:
    void Edit(const RowState& before, const RowState& after, int col = 1) {
        history.BeginEdit(kRow, before);
        history.EndEdit(col, after);
    }
    RowHistory history;
};

TEST_F(RowHistoryTest, GivesBackStepByStep) {
    Edit(State("a"), State("b"), 1);
    Edit(State("b"), State("c"), 2);
    EXPECT_TRUE(history.HasSteps(kRow));
    auto step = history.TakeLastStep();
    EXPECT_EQ(step.before.cells, "b");
    EXPECT_EQ(step.col, 2);
    step = history.TakeLastStep();
    EXPECT_EQ(step.before.cells, "a");
    EXPECT_FALSE(history.HasSteps(kRow));
}

TEST_F(RowHistoryTest, GivesBackAllAtOnce) {
    Edit(State("a"), State("b"));
    Edit(State("b"), State("c"));
    EXPECT_EQ(history.BeforeSteps(kRow)->cells, "a");
    EXPECT_EQ(history.TakeAllSteps().cells, "a");
    EXPECT_EQ(history.BeforeSteps(kRow), nullptr);
}

TEST_F(RowHistoryTest, AnEditThatChangedNothingIsNoStep) {
    Edit(State("a"), State("a"));
    EXPECT_FALSE(history.HasSteps(kRow));
    history.EndEdit(1, State("b"));  // an end without a beginning
    EXPECT_FALSE(history.HasSteps(kRow));
}

TEST_F(RowHistoryTest, LinesAndDetailKindAreChangesToo) {
    RowState with = State("a");
    with.waiting.script = platform::StatementText("delete");
    Edit(State("a"), with);
    EXPECT_TRUE(history.HasSteps(kRow));
    history.Forget();
    with = State("a");
    with.waiting.texts = {"M01"};
    Edit(State("a"), with);
    EXPECT_TRUE(history.HasSteps(kRow));
    history.Forget();
    Edit(State("a"), State("a", 1));
    EXPECT_TRUE(history.HasSteps(kRow));
}

TEST_F(RowHistoryTest, KnowsOneRowAtATime) {
    Edit(State("a"), State("b"));
    EXPECT_FALSE(history.HasSteps(kRow + 1));
    history.KeepOnly(kRow);
    EXPECT_TRUE(history.HasSteps(kRow));
    history.BeginEdit(kRow + 1, State("x"));
    EXPECT_FALSE(history.HasSteps(kRow));
    history.EndEdit(1, State("y"));
    EXPECT_TRUE(history.HasSteps(kRow + 1));
    history.KeepOnly(kRow);
    EXPECT_FALSE(history.HasSteps(kRow + 1));
}

TEST_F(RowHistoryTest, AWayOutEndsWithTheNextChange) {
    history.Offer(kRow, WayOut::Free);
    EXPECT_EQ(history.WayOutOf(kRow), WayOut::Free);
    EXPECT_EQ(history.WayOutOf(kRow + 1), WayOut::Checked);
    Edit(State("a"), State("a"));
    EXPECT_EQ(history.WayOutOf(kRow), WayOut::Free);
    Edit(State("a"), State("b"));
    EXPECT_EQ(history.WayOutOf(kRow), WayOut::Checked);
}

TEST_F(RowHistoryTest, DeletedLinesAreMissingWhereNoneWait) {
    Edit(State("a"), State("b"));
    EXPECT_FALSE(history.LinesAreMissing(State("a", 1)));
    history.LinesWereDeleted();
    EXPECT_TRUE(history.LinesAreMissing(State("a", 1)));
    EXPECT_FALSE(history.LinesAreMissing(State("a", 0)));
    RowState waiting = State("a", 1);
    waiting.waiting.script = platform::StatementText("delete");
    EXPECT_FALSE(history.LinesAreMissing(waiting));
    history.Forget();
    EXPECT_FALSE(history.LinesAreMissing(State("a", 1)));
}

TEST_F(RowHistoryTest, AfterASaveInDoubtWhatIsStoredIsNotKnown) {
    Edit(State("a"), State("b"));
    history.SaveInDoubt(kRow);
    EXPECT_TRUE(history.IsInDoubt(kRow));
    EXPECT_FALSE(history.HasSteps(kRow));
    Edit(State("b"), State("c"));
    EXPECT_TRUE(history.IsInDoubt(kRow));
    EXPECT_TRUE(history.HasSteps(kRow));
}

}  // namespace
}  // namespace kelvane::ui
