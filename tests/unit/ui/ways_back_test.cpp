// The ways back from the changes of an entry's row, and out of it.
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using platform::kCtrl;
using platform::Key;
using support::StatementLog;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

constexpr Key kZ = platform::KeyOfCharacter(U'Z');

class WaysBackTest : public EntryListTest {
protected:
    bool Escape() { return List().NavigationKey(Key::Escape, 0); }
    bool Undo() { return Form().KeyDown(kZ, kCtrl); }
    void Change(int row, int col, std::string_view text) {
        Go(row, col);
        Type(text);
    }
};

TEST_F(WaysBackTest, WithoutAChangeTheKeyIsNotTaken) {
    Open();
    Go(1, kDigestColumn);
    EXPECT_FALSE(Undo());
    Change(1, kDigestColumn, "改");
    List().BeginEdit();
    EXPECT_FALSE(Undo());
    List().CancelEdit();
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kDigestColumn), "人工");
    EXPECT_FALSE(Undo());
}

TEST_F(WaysBackTest, ARowThatWasTakenBackIsNotSavedAtTheClose) {
    Open();
    Change(1, kDigestColumn, "改");
    EXPECT_TRUE(List().RowTouched());
    Undo();
    EXPECT_FALSE(List().RowTouched());
    Change(1, kDigestColumn, "改");
    Escape();
    EXPECT_FALSE(List().RowTouched());
    log.statements.clear();
    Form().Unload();
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(WaysBackTest, ASavedRowHasNothingToUndo) {
    Open();
    Change(1, kDigestColumn, "改");
    EXPECT_TRUE(List().LeaveRow());
    EXPECT_FALSE(Undo());
    EXPECT_THAT(Read("select cDigest from PM_ItemQC where iEleVid = 1"), ElementsAre("改"));
    Change(1, kDigestColumn, "再改");
    Escape();
    EXPECT_EQ(List().Text(1, kDigestColumn), "改");
}

TEST_F(WaysBackTest, ARowThatCouldNotBeSavedGoesBackAndTheNoticeGoes) {
    Open();
    Change(1, kDigestColumn, "改");
    log.failing = "HOLDLOCK";
    EXPECT_FALSE(Go(2, kDateColumn));
    EXPECT_NE(Form().Notice(), "");
    Escape();
    EXPECT_EQ(Form().Notice(), "");
    EXPECT_FALSE(Go(2, kDateColumn));
    Escape();
    EXPECT_TRUE(Go(2, kDateColumn));
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(WaysBackTest, WhatTheDatabaseHoldsAfterASaveInDoubtIsNotClaimed) {
    Open();
    Change(1, kDigestColumn, "改");
    log.lostAnswer = StatementLog::LostAnswer::Saved;
    EXPECT_FALSE(Go(2, kDateColumn));
    Escape();
    EXPECT_EQ(List().Text(1, kDigestColumn), "改");
    EXPECT_EQ(Form().Notice(),
              "上次保存此行时没有收到数据库的答复，不知道保存的是什么，请离开此行再保存一次。");
    Change(1, kDigestColumn, "再改");
    EXPECT_TRUE(Undo());
    EXPECT_EQ(List().Text(1, kDigestColumn), "改");
    EXPECT_TRUE(List().RowTouched());
    log.lostAnswer = StatementLog::LostAnswer::None;
    EXPECT_TRUE(Go(2, kDateColumn));
    EXPECT_EQ(Form().Notice(), "");
    Go(1, kDigestColumn);
    Escape();
    log.statements.clear();
    EXPECT_TRUE(Go(2, kDateColumn));
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(WaysBackTest, TheFreeWayOutIsForOneLeaveOfOneRow) {
    Open();
    Go(1, kDigestColumn);
    Escape();
    // Another row becomes current by code: the way out is gone with the row.
    List().SetRow(2);
    List().SetRow(1);
    log.statements.clear();
    EXPECT_TRUE(Go(2, kDateColumn));
    EXPECT_THAT(log.Lines(), Not(IsEmpty()));
}

TEST_F(WaysBackTest, ANewRowFollowsWithoutAWayOutOfItsOwn) {
    Open();
    Go(1, kDigestColumn);
    Escape();
    Form().AddEntryRow();
    EXPECT_EQ(List().RowData(List().Row()), 0);
    EXPECT_FALSE(Go(1, kDigestColumn));
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 责任中心不能为空"));
}

TEST_F(WaysBackTest, SettledRowsAndLockedListsNeedNoWayOut) {
    Open();
    Go(3, kDigestColumn);
    Escape();
    EXPECT_EQ(Form().Hint(), "");
    Go(1, kDigestColumn);
    List().SetReadOnly(true);
    Escape();
    List().SetReadOnly(false);
    EXPECT_EQ(Form().Hint(), "");
}

TEST_F(WaysBackTest, ADeletedRowLeavesNothingToUndoInTheNext) {
    Open();
    Change(1, kDigestColumn, "改");
    windows.answers = {platform::MessageAnswer::Yes};
    Form().DeleteRow();
    EXPECT_EQ(List().RowData(1), 2);
    EXPECT_FALSE(Undo());
    Escape();
    EXPECT_EQ(List().Text(1, kDigestColumn), "钢材");
}

TEST_F(WaysBackTest, TheSumFollows) {
    Open();
    const auto before = List().Sum().Total();
    Change(1, kAmountColumn, "5");
    EXPECT_NE(List().Sum().Total(), before);
    Undo();
    EXPECT_EQ(List().Sum().Total(), before);
}

TEST_F(WaysBackTest, ACheckThatFailsMarksItsCellWithoutAnOlderReason) {
    Open();
    Change(1, kDigestColumn, "");
    EXPECT_EQ(Form().Hint(), "摘要不能为空   按 Esc 放弃此单元格的更改。");
    List().CancelEdit();
    log.failing = "PM_ItemElement";
    Go(1, kElementColumn);
    EXPECT_EQ(Type("材料费"), controls::GridAnswer::Refuse);
    EXPECT_EQ(List().RefusedCell(), (controls::Grid::Place{1, kElementColumn}));
    EXPECT_EQ(Form().Hint(), "");
    EXPECT_NE(Form().Notice(), "");
    log.failing.clear();
    List().CancelEdit();
}

}  // namespace
}  // namespace kelvane::ui
