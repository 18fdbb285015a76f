// Commands, keys and the search of the entry list.
#include "tests/unit/ui/entry_list_fixture.h"
#include "ui/detail_editor/detail_editor.h"
#include "ui/find/find_dialog.h"

namespace kelvane::ui {
namespace {

using platform::kAlt;
using platform::kCtrl;
using platform::Key;
using platform::kShift;
using testing::ElementsAre;
using testing::IsEmpty;

class EntryCommandsTest : public EntryListTest {
protected:
    // Whether the window's code took the key.
    bool KeyDownIsTaken(Key key, int shift = 0) { return Form().OfferKeyDown(key, shift); }
    bool CharacterIsTaken(char32_t character) { return Form().OfferKeyPress(character); }
    void Click(std::string_view key) { Form().Toolbar1_ButtonClick(*Form().Toolbar1.Button(key)); }
    // The find dialog is left with these values.
    void FindFor(const std::string& code, const std::string& key1 = "",
                 const std::string& key2 = "") {
        windows.acts.emplace_back([=](controls::Form& form) {
            auto& dialog = dynamic_cast<frmFind&>(form);
            dialog.TxtCode.SetText(code);
            dialog.ComKey1.SetText(key1);
            dialog.ComKey2.SetText(key2);
            dialog.CmdOK.Press();
        });
        Form().FindEntry();
    }
};

// Buttons.

TEST_F(EntryCommandsTest, HelpSendsItsKey) {
    Open();
    Click("Help");
    EXPECT_THAT(windows.sentKeys, ElementsAre("{f1}"));
}

TEST_F(EntryCommandsTest, AKeyOutsideTheTableRunsNothingAndStillRefreshes) {
    Open();
    Form().Toolbar1.Button("Add")->SetEnabled(false);
    const auto shown = [this] { return Form().CTBCtrl1.Items()[4].enabled; };
    ASSERT_TRUE(shown());
    Form().Toolbar1_ButtonClick(Form().Toolbar1.Buttons()[3]);
    EXPECT_FALSE(shown());
}

TEST_F(EntryCommandsTest, WhileACellIsOpenOnlySomeCommandsRun) {
    Open();
    Go(1, kDigestColumn);
    List().BeginEdit();
    Form().Toolbar1.Button("Add")->SetEnabled(false);
    const auto refreshed = [this] { return !Form().CTBCtrl1.Items()[4].enabled; };
    for (const char* key : {"Print", "DataOut", "Add", "Delete", "Exit"}) {
        Click(key);
        EXPECT_FALSE(refreshed()) << key;
    }
    EXPECT_TRUE(Form().IsLoaded());
    EXPECT_EQ(List().Rows(), 4);
    Click("Help");
    EXPECT_TRUE(refreshed());
    EXPECT_TRUE(List().IsEditing());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EntryCommandsTest, DeleteNeedsItsButtonAndASavedRow) {
    Open();
    Click("Delete");
    Form().AddEntryRow();
    Click("Delete");
    List().SetRow(1);
    Form().Toolbar1.Buttons()[5].SetEnabled(false);
    Click("Delete");
    EXPECT_THAT(Messages(), IsEmpty());
    Form().Toolbar1.Buttons()[5].SetEnabled(true);
    Click("Delete");
    EXPECT_THAT(Messages(), ElementsAre("[删除确认|none] 是否删除当前行？ (yes/NO)"));
}

TEST_F(EntryCommandsTest, ExitUnloadsWithTheReminder) {
    Open();
    Click("Exit");
    EXPECT_FALSE(Form().IsLoaded());
    EXPECT_THAT(Messages(),
                ElementsAre("[提示信息|exclamation] "
                            "如果你修改了项目期初的数据，请重新做分配计算，以免计算结果出现数据错"
                            "误！"));
}

TEST_F(EntryCommandsTest, WithoutElementsNoRowIsAdded) {
    Open();
    Run("delete from PM_ItemElement");
    Click("Add");
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_THAT(log.Lines(), ElementsAre("gEnv: select count(*) from PM_ItemElement"));
    EXPECT_THAT(Messages(),
                ElementsAre("[提示信息|information] 不存在可用的项目要素，请先设置项目要素！"));
}

TEST_F(EntryCommandsTest, ANewRowIsGreyWhereNothingIsTyped) {
    Open();
    Go(1, kDateColumn);
    Click("Add");
    EXPECT_EQ(List().Row(), 4);
    EXPECT_EQ(List().Col(), kElementColumn);
    EXPECT_EQ(List().RowText(4), "\t2004-06-30\t\t\t\t\t\t\t\t");
    EXPECT_EQ(List().RowData(4), 0);
    for (int col = kDateColumn; col <= kAmountColumn; ++col) {
        EXPECT_EQ(List().IsLocked(4, col), col >= kItemNameColumn && col <= kKey2Column) << col;
    }
}

TEST_F(EntryCommandsTest, ARowThatIsRefusedKeepsNewRowsAway) {
    Open();
    Go(1, kDigestColumn);
    List().SetText(1, kDigestColumn, "");
    Click("Add");
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_EQ(List().Row(), 1);
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 摘要不能为空"));
}

TEST_F(EntryCommandsTest, SelectRowMakesItCurrent) {
    Open();
    EXPECT_TRUE(Form().SelectRow(2));
    EXPECT_EQ(List().Row(), 2);
}

// Keys that go down.

TEST_F(EntryCommandsTest, F2ChecksAndSendsTheKeysThatOpenTheCell) {
    Open();
    Go(1, kElementColumn);
    EXPECT_TRUE(KeyDownIsTaken(Key::F2));
    EXPECT_THAT(windows.sentKeys, ElementsAre(" ", "{f2}"));
    EXPECT_THAT(log.Lines(), ElementsAre("gConn: select * from PM_ItemElement"));
    // The blank that arrives opens the cell, the key of the window's own does no more.
    Form().KeyPress(U' ');
    EXPECT_TRUE(List().IsEditing());
    EXPECT_TRUE(KeyDownIsTaken(Key::F2));
    EXPECT_TRUE(List().IsEditing());
    // The next one is the operator's.
    EXPECT_FALSE(KeyDownIsTaken(Key::F2));
}

TEST_F(EntryCommandsTest, F2OpensAnAmountOfLinesThatTakesNoCharacter) {
    Open();
    Go(2, kAmountColumn);
    EXPECT_TRUE(KeyDownIsTaken(Key::F2));
    Form().KeyPress(U' ');
    EXPECT_FALSE(List().IsEditing());
    EXPECT_EQ(windows.beeps, 1);
    EXPECT_TRUE(KeyDownIsTaken(Key::F2));
    EXPECT_TRUE(List().IsEditing());
}

TEST_F(EntryCommandsTest, F2LeavesLockedAndOpenCellsAndRefusedOnes) {
    Open();
    Go(1, kItemNameColumn);
    EXPECT_FALSE(KeyDownIsTaken(Key::F2));
    Go(3, kAmountColumn);
    EXPECT_FALSE(KeyDownIsTaken(Key::F2));
    Go(1, kDigestColumn);
    List().BeginEdit();
    EXPECT_FALSE(KeyDownIsTaken(Key::F2));
    List().CancelEdit();
    log.statements.clear();
    Go(1, kCenterColumn);
    Run("delete from PM_DutyCenter");
    EXPECT_FALSE(KeyDownIsTaken(Key::F2));
    EXPECT_THAT(windows.sentKeys, IsEmpty());
    EXPECT_THAT(Messages(),
                ElementsAre("[提示信息|information] 责任中心不存在，请先设置责任中心！"));
}

TEST_F(EntryCommandsTest, TheItemColumnTakesF2AndTheBlankAlone) {
    Open();
    Go(1, kItemColumn);
    for (const Key key : {Key::A, Key::D0, Key::Delete, Key::Backspace, Key::Left, Key::Enter}) {
        EXPECT_TRUE(KeyDownIsTaken(key)) << static_cast<int>(key);
    }
    EXPECT_TRUE(KeyDownIsTaken(Key::Down, platform::kAlt));
    EXPECT_FALSE(KeyDownIsTaken(Key::Space));
    EXPECT_FALSE(KeyDownIsTaken(Key::F1));
    List().SetRow(0);
    EXPECT_FALSE(KeyDownIsTaken(Key::A));
    List().SetRow(1);
    Form().cmdRef.SetFocus();
    EXPECT_FALSE(KeyDownIsTaken(Key::A));
}

TEST_F(EntryCommandsTest, DeleteLeavesAmountsOfLinesAlone) {
    Open();
    Go(2, kAmountColumn);
    EXPECT_TRUE(KeyDownIsTaken(Key::Delete));
    EXPECT_FALSE(KeyDownIsTaken(Key::Backspace));
    List().SetText(2, kElementColumn, "");
    EXPECT_FALSE(KeyDownIsTaken(Key::Delete));
    List().SetText(2, kElementColumn, "材料费");
    Go(1, kAmountColumn);
    EXPECT_FALSE(KeyDownIsTaken(Key::Delete));
}

TEST_F(EntryCommandsTest, AnOpenAmountOfLinesLosesNoCharacter) {
    Open();
    const Key cut = platform::KeyOfCharacter(U'X');
    const Key wipe = platform::KeyOfCharacter(U'U');
    const Key paste = platform::KeyOfCharacter(U'V');
    const auto erasers = {std::pair{Key::Backspace, 0},
                          {Key::Backspace, kCtrl},
                          {cut, kCtrl},
                          {paste, kCtrl},
                          {wipe, kCtrl},
                          {Key::Insert, kShift},
                          {Key::Delete, 0}};
    Go(2, kAmountColumn);
    List().BeginEdit();
    for (const auto& [key, shift] : erasers) {
        EXPECT_TRUE(KeyDownIsTaken(key, shift)) << static_cast<int>(key);
    }
    // Delete is discarded without a beep.
    EXPECT_EQ(windows.beeps, 6);
    for (const Key key : {cut, paste, Key::Insert, Key::Left}) {
        EXPECT_FALSE(KeyDownIsTaken(key)) << static_cast<int>(key);
    }
    for (const char32_t letter : {U'A', U'C'}) {
        EXPECT_FALSE(KeyDownIsTaken(platform::KeyOfCharacter(letter), kCtrl));
    }
    List().CancelEdit();
    Go(1, kAmountColumn);
    List().BeginEdit();
    for (const auto& [key, shift] : erasers) {
        EXPECT_FALSE(KeyDownIsTaken(key, shift)) << static_cast<int>(key);
    }
    EXPECT_EQ(windows.beeps, 6);
}

TEST_F(EntryCommandsTest, CtrlEnterPressesTheDetailButton) {
    Open();
    Go(3, kAmountColumn);
    ASSERT_TRUE(Form().cmdRef.Visible());
    std::vector<std::string> shown;
    windows.acts.emplace_back([&](controls::Form& form) {
        const auto& editor = dynamic_cast<frmQCEdit&>(form);
        shown.push_back(form.Name());
        EXPECT_TRUE(editor.bReadOnly);
        EXPECT_TRUE(editor.bEquipment);
    });
    EXPECT_FALSE(KeyDownIsTaken(Key::Enter));
    EXPECT_TRUE(KeyDownIsTaken(Key::Enter, kCtrl));
    EXPECT_THAT(shown, ElementsAre("frmQCEdit"));
    EXPECT_FALSE(GetDetailEditorForm().bReadOnly);
    Go(1, kAmountColumn);
    EXPECT_FALSE(KeyDownIsTaken(Key::Enter, kCtrl));
}

TEST_F(EntryCommandsTest, TheDetailButtonTakesNothingBackAndReturnsTheFocus) {
    Open();
    Go(3, kAmountColumn);
    Form().cmdRef.SetFocus();
    windows.acts.emplace_back(
        [](controls::Form& form) { dynamic_cast<frmQCEdit&>(form).RetValue = "1.00"; });
    Form().cmdRef.Press();
    EXPECT_EQ(List().Text(3, kAmountColumn), "80.00");
    EXPECT_TRUE(Form().mDetailSql.IsEmpty());
    EXPECT_EQ(Form().ActiveControl(), &List());
}

// Characters.

TEST_F(EntryCommandsTest, CharactersAreLookedAtInAmountsAlone) {
    Open();
    Go(2, kAmountColumn);
    EXPECT_TRUE(CharacterIsTaken(U'1'));
    EXPECT_EQ(windows.beeps, 1);
    Go(2, kDigestColumn);
    EXPECT_FALSE(CharacterIsTaken(U'1'));
    Go(1, kAmountColumn);
    EXPECT_FALSE(CharacterIsTaken(U'1'));
    EXPECT_THAT(Messages(), IsEmpty());
    List().SetText(1, kElementColumn, "");
    EXPECT_FALSE(CharacterIsTaken(U'1'));
    EXPECT_THAT(Messages(), ElementsAre("[项目管理|information] 请先填充要素"));
    List().SetText(1, kElementColumn, "人工费");
    List().SetRow(0);
    EXPECT_FALSE(CharacterIsTaken(U'1'));
    EXPECT_EQ(windows.beeps, 1);
}

// Keys that come up.

TEST_F(EntryCommandsTest, HotKeysNeedExactlyTheirShiftState) {
    Open();
    Go(1, kDateColumn);
    for (const int shift : {0, kShift, kAlt, kCtrl | kShift, kCtrl | kAlt}) {
        for (const Key key : {Key::I, Key::D, Key::P, Key::F4}) Form().KeyUp(key, shift);
    }
    EXPECT_EQ(List().Rows(), 4);
    EXPECT_TRUE(Form().IsLoaded());
    EXPECT_THAT(Messages(), IsEmpty());

    Form().KeyUp(Key::D, kCtrl);
    EXPECT_THAT(Messages(), ElementsAre("[删除确认|none] 是否删除当前行？ (yes/NO)"));
    Form().KeyUp(Key::I, kCtrl);
    EXPECT_EQ(List().Rows(), 5);
    Form().Toolbar1.Button("Add")->SetEnabled(false);
    Form().Toolbar1.Button("Delete")->SetEnabled(false);
    Form().KeyUp(Key::I, kCtrl);
    Form().KeyUp(Key::D, kCtrl);
    EXPECT_EQ(List().Rows(), 5);
    EXPECT_EQ(Messages().size(), 1U);
    for (const int shift : {0, kShift, kCtrl}) {
        windows.acts.emplace_back([](controls::Form& form) { form.Unload(); });
        Form().KeyUp(Key::F3, shift);
        EXPECT_THAT(windows.acts, IsEmpty());
    }
    Form().KeyUp(Key::F4, kCtrl);
    EXPECT_FALSE(Form().IsLoaded());
}

// The search.

TEST_F(EntryCommandsTest, ADialogThatIsNotLeftByOkSearchesNothing) {
    Open();
    Go(1, kDigestColumn);
    Form().ExecCom = true;
    Form().bClickOk = true;
    Form().FindItemCode = "P03";
    windows.acts.emplace_back([](controls::Form& form) { form.Unload(); });
    Form().FindEntry();
    EXPECT_FALSE(Form().bClickOk);
    EXPECT_EQ(List().Row(), 1);
    windows.acts.emplace_back(
        [](controls::Form& form) { dynamic_cast<frmFind&>(form).CmdCancel.Press(); });
    Form().FindEntry();
    EXPECT_FALSE(Form().ExecCom);
    EXPECT_EQ(List().Row(), 1);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(EntryCommandsTest, TheFoundRowIsMarkedWholeAndHasTheFocus) {
    Open();
    Go(1, kDigestColumn);
    Form().cmdRef.SetFocus();
    FindFor("P02", "二标段");
    EXPECT_EQ(List().Row(), 2);
    EXPECT_EQ(List().Col(), kDateColumn);
    EXPECT_EQ(List().SelectionEnd(), kAmountColumn);
    EXPECT_EQ(Form().ActiveControl(), &List());
    EXPECT_EQ(List().TopRow(), 1);
}

TEST_F(EntryCommandsTest, ARowOutOfSightComesToTheTop) {
    Open();
    for (int row = 4; row < 60; ++row) List().AddItem("\t\t\tP0" + std::to_string(row));
    FindFor("P055");
    EXPECT_EQ(List().Row(), 55);
    EXPECT_EQ(List().TopRow(), 55);
    FindFor("P056");
    EXPECT_EQ(List().TopRow(), 55);
}

TEST_F(EntryCommandsTest, NothingFoundLeavesTheCurrentRow) {
    Open();
    Go(2, kDigestColumn);
    for (const char* code : {"P09", "p02", "P0"}) FindFor(code);
    FindFor("P02", "一标段");
    FindFor("P02", "", "5");
    EXPECT_EQ(List().Row(), 2);
    EXPECT_EQ(List().Col(), kDigestColumn);
    EXPECT_THAT(Messages(), testing::Each("[提示信息|information] 没有找到符合条件的数据"));
    EXPECT_EQ(Messages().size(), 5U);
}

TEST_F(EntryCommandsTest, AnEmptyItemMatchesAnyCodeAnEmptyKeywordOfTheSearchAnyRow) {
    Open();
    Form().FindItemCode = "P09";
    Form().FindKeyCode1 = Form().FindKeyCode2 = "";
    List().SetText(2, kItemColumn, " ");
    EXPECT_TRUE(Form().MatchesSearch(2));
    Form().FindKeyCode1 = "一标段";
    EXPECT_FALSE(Form().MatchesSearch(2));
    List().SetText(2, kKey1Column, " 一标段 ");
    EXPECT_TRUE(Form().MatchesSearch(2));
    List().SetText(2, kKey1Column, "");
    EXPECT_FALSE(Form().MatchesSearch(2));
    Form().FindKeyCode1 = "";
    Form().FindKeyCode2 = "5";
    EXPECT_FALSE(Form().MatchesSearch(2));
    List().SetText(2, kItemColumn, " P09 ");
    Form().FindKeyCode2 = "";
    EXPECT_TRUE(Form().MatchesSearch(2));
}

TEST_F(EntryCommandsTest, RowsThatAreNotShownAreNoCandidates) {
    Open();
    List().AddItem("\t\t\tP02");
    List().SetRowHeight(2, 0);
    FindFor("P02");
    EXPECT_EQ(List().Row(), 4);
}

TEST_F(EntryCommandsTest, ARowThatMayNotBeLeftKeepsTheSearchAway) {
    Open();
    Go(1, kDigestColumn);
    Type("");
    EXPECT_TRUE(List().IsEditing());
    for (const char* code : {"P02", "P01"}) {
        FindFor(code);
        EXPECT_EQ(List().Row(), 1);
        EXPECT_EQ(List().Col(), kDigestColumn);
        EXPECT_EQ(List().SelectionEnd(), kDigestColumn) << code;
    }
    EXPECT_THAT(Messages(), testing::Each("[提示信息|information] 摘要不能为空"));
    List().ReplaceEditText("改");
    FindFor("P02");
    EXPECT_EQ(List().Row(), 2);
    EXPECT_THAT(Read("select cDigest from PM_ItemQC where iEleVid = 1"), ElementsAre("改"));
}

// Closing with something unsaved.

TEST_F(EntryCommandsTest, AChangedRowIsSavedBeforeTheWindowGoes) {
    Open();
    Go(1, kDigestColumn);
    List().BeginEdit();
    List().ReplaceEditText("改");
    EXPECT_TRUE(Form().Unload(controls::UnloadMode::CloseBox));
    EXPECT_THAT(Read("select cDigest from PM_ItemQC where iEleVid = 1"), ElementsAre("改"));
    EXPECT_EQ(Messages().size(), 1U);
}

TEST_F(EntryCommandsTest, ARefusedRowIsGivenUpOnlyWhenTheOperatorSaysSo) {
    Open();
    Form().AddEntryRow();
    const int row = List().Rows() - 1;
    Go(row, kDigestColumn);
    Type("新");
    windows.answers = {platform::MessageAnswer::No};
    EXPECT_FALSE(Form().Unload());
    EXPECT_TRUE(Form().IsLoaded());
    EXPECT_EQ(List().Text(row, kDigestColumn), "新");
    windows.answers = {platform::MessageAnswer::Yes};
    EXPECT_TRUE(Form().Unload());
    EXPECT_EQ(Messages()[1], "[项目管理|question] 数据尚未保存,确认退出吗? (YES/no)");
    EXPECT_THAT(Read("select count(*) from PM_ItemQC"), ElementsAre("3"));
}

}  // namespace
}  // namespace kelvane::ui
