#include "ui/find/find_dialog.h"

#include "tests/support/memory_record_set.h"
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using platform::Key;
using support::MemoryRecordSet;
using testing::ElementsAre;
using testing::IsEmpty;

class FindDialogTest : public EntryListTest {
protected:
    FindDialogTest() {
        Open();
        dialog.Load();
        Form().bClickOk = Form().ExecCom = false;
        log.statements.clear();
    }
    ~FindDialogTest() override { dialog.Unload(); }

    frmFind& dialog = GetFindForm();
};

TEST_F(FindDialogTest, OpensEmptyWithTheKeywordsNames) {
    EXPECT_EQ(dialog.TxtCode.Text(), "");
    EXPECT_EQ(dialog.ComdRef.Picture(), 108);
    EXPECT_EQ(dialog.Label2.Caption(), "标段");
    EXPECT_TRUE(dialog.ComKey1.Enabled());
    EXPECT_FALSE(dialog.ComKey2.Visible());
    EXPECT_EQ(windows.helpFile, "host\\help\\项目管理.chm");
    EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtCode);
    EXPECT_EQ(dialog.Left(), (1920 * 15 - dialog.Width()) / 2);
    EXPECT_EQ(dialog.Top(), (1080 * 15 - dialog.Height()) / 2);
}

TEST_F(FindDialogTest, WithoutACodeItStays) {
    dialog.CmdOK.SetFocus();
    dialog.CmdOK.Press();
    EXPECT_TRUE(dialog.IsLoaded());
    EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtCode);
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 项目不能为空！"));
    EXPECT_FALSE(Form().bClickOk);
}

TEST_F(FindDialogTest, OkHandsEverythingOverUntested) {
    dialog.Unload();
    windows.acts.emplace_back([this](controls::Form& /*shown*/) {
        dialog.TxtCode.SetText("没有");
        dialog.ComKey1.SetText("甲");
        dialog.ComKey2.SetText("乙");
        dialog.CmdOK.Press();
        EXPECT_FALSE(dialog.IsLoaded());
    });
    Form().FindEntry();
    EXPECT_TRUE(Form().bClickOk);
    EXPECT_TRUE(Form().ExecCom);
    EXPECT_EQ(Form().FindItemCode, "没有");
    EXPECT_EQ(Form().FindKeyCode1, "甲");
    EXPECT_EQ(Form().FindKeyCode2, "乙");
    EXPECT_THAT(log.Lines(), IsEmpty());
    dialog.Load();
    EXPECT_EQ(dialog.TxtCode.Text() + dialog.ComKey1.Text() + dialog.ComKey2.Text(), "");
    EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtCode);
}

TEST_F(FindDialogTest, CancelAndItsKey) {
    Form().ExecCom = true;
    dialog.KeyUp(Key::F4, platform::kCtrl | platform::kShift);
    EXPECT_TRUE(dialog.IsLoaded());
    dialog.KeyUp(Key::F4, platform::kCtrl);
    EXPECT_FALSE(dialog.IsLoaded());
    windows.acts.emplace_back([this](controls::Form& /*shown*/) { dialog.CmdCancel.Press(); });
    Form().FindEntry();
    EXPECT_FALSE(Form().ExecCom);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(FindDialogTest, TheItemListKnowsEveryItem) {
    data::gRefByCenter = true;
    references.choose = [] {
        return std::make_unique<MemoryRecordSet>(
            std::vector<std::string>{"cItemCode", "citemname"},
            std::vector<MemoryRecordSet::Row>{support::TextRow({"P02", "二号楼"})});
    };
    dialog.KeyDown(Key::F2, 0);
    EXPECT_FALSE(data::gRefByCenter);
    EXPECT_EQ(dialog.TxtCode.Text(), "P02");
    EXPECT_EQ(references.created, 1);
    dialog.ComdRef.SetFocus();
    dialog.KeyDown(Key::F2, 0);
    dialog.CmdOK.SetFocus();
    dialog.KeyDown(Key::F2, 0);
    EXPECT_EQ(references.created, 2);
    references.choose = nullptr;
    dialog.ComdRef.Press();
    EXPECT_EQ(dialog.TxtCode.Text(), "P02");
}

TEST_F(FindDialogTest, KeywordListsStandSideBySide) {
    data::gItemKeyCount = 2;
    data::gItemKeyField2 = "楼号";
    Run("insert into fitemss97sub(citemcode,标段,楼号) values('P01','二标段','5')");
    dialog.Unload();
    dialog.Load();
    dialog.TxtCode.SetText("P01");
    dialog.ComKey1.Open();
    EXPECT_THAT(dialog.ComKey1.Items(), ElementsAre("一标段", "二标段"));
    EXPECT_THAT(dialog.ComKey2.Items(), ElementsAre("", "5"));
    dialog.ComKey1.SetListIndex(1);
    dialog.ComKey2.Open();
    EXPECT_EQ(dialog.ComKey1.ListIndex(), 1);
    EXPECT_EQ(dialog.ComKey1.Text(), "二标段");
    dialog.ComKey2.SetListIndex(1);
    dialog.ComKey1.Open();
    EXPECT_EQ(dialog.ComKey2.Text(), "5");
}

TEST_F(FindDialogTest, OneKeywordFillsOneList) {
    dialog.TxtCode.SetText("P02");
    dialog.ComKey1.Open();
    EXPECT_THAT(log.Lines(),
                ElementsAre("gEnv: select cItemCode from Fitemss97",
                            "gConn: select * from fitemss97sub where cItemCode = 'P02'"));
    EXPECT_THAT(dialog.ComKey1.Items(), ElementsAre("二标段"));
    EXPECT_THAT(dialog.ComKey2.Items(), IsEmpty());
}

TEST_F(FindDialogTest, AnUnknownCodeIsEmptiedWithTheLists) {
    dialog.TxtCode.SetText("P02");
    dialog.ComKey1.Open();
    dialog.ComKey1.SetListIndex(0);
    dialog.TxtCode.SetText("p02");
    dialog.ComKey1.SetFocus();
    bool ok = true;
    dialog.RefreshKeywordLists(ok);
    EXPECT_FALSE(ok);
    EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 所填项目不存在! "));
    EXPECT_EQ(dialog.TxtCode.Text(), "");
    EXPECT_THAT(dialog.ComKey1.Items(), IsEmpty());
    EXPECT_EQ(dialog.ComKey1.Text(), "");
    EXPECT_EQ(dialog.ActiveControl(), &dialog.TxtCode);
}

TEST_F(FindDialogTest, ListsWithoutAKeywordFieldTestTheCodeAndStayEmpty) {
    for (const std::int16_t count : std::vector<std::int16_t>{0, 3}) {
        data::gItemKeyCount = count;
        dialog.Unload();
        dialog.Load();
        dialog.TxtCode.SetText("P02");
        dialog.ComKey2.Open();
        EXPECT_THAT(Messages(), IsEmpty());
        EXPECT_THAT(dialog.ComKey2.Items(), IsEmpty());
        dialog.TxtCode.SetText("P99");
        dialog.ComKey2.Open();
        EXPECT_THAT(Messages(), ElementsAre("[提示信息|information] 所填项目不存在! ")) << count;
        EXPECT_EQ(dialog.TxtCode.Text(), "") << count;
        windows.messages.clear();
    }
}

TEST_F(FindDialogTest, OnlyAClassWithOneKeywordHidesTheSecond) {
    const int height = dialog.Height();
    EXPECT_FALSE(dialog.Label3.Visible());
    EXPECT_FALSE(dialog.ComKey2.Visible());
    for (const std::int16_t count : std::vector<std::int16_t>{0, 2, 3}) {
        data::gItemKeyCount = count;
        dialog.Unload();
        dialog.Load();
        EXPECT_TRUE(dialog.Label3.Visible()) << count;
        EXPECT_TRUE(dialog.ComKey2.Visible()) << count;
        EXPECT_GT(dialog.CmdOK.Top(), dialog.ComKey2.Top() + dialog.ComKey2.Height()) << count;
        EXPECT_GT(dialog.Height(), height) << count;
    }
    data::gItemKeyCount = 1;
    dialog.Unload();
    dialog.Load();
    EXPECT_FALSE(dialog.ComKey2.Visible());
    EXPECT_EQ(dialog.Height(), height);
    EXPECT_GT(dialog.CmdOK.Top(), dialog.ComKey1.Top() + dialog.ComKey1.Height());
    EXPECT_LE(dialog.CmdOK.Top() + dialog.CmdOK.Height(), dialog.ScaleHeight());
}

TEST_F(FindDialogTest, WithoutACodeTheListsStay) {
    dialog.ComKey1.AddItem("甲");
    bool ok = true;
    dialog.RefreshKeywordLists(ok);
    EXPECT_FALSE(ok);
    EXPECT_THAT(dialog.ComKey1.Items(), ElementsAre("甲"));
    EXPECT_THAT(log.Lines(), IsEmpty());
}

TEST_F(FindDialogTest, AListThatCannotBeReadIsNamedInTheEntryList) {
    dialog.TxtCode.SetText("P02");
    log.failing = "select * from fitemss97sub";
    dialog.ComKey1.Open();
    EXPECT_THAT(diagnostics.places, ElementsAre("ComKey1_DropDown"));
    EXPECT_EQ(Form().Notice(), "读取关键字列表时出错。");
    EXPECT_TRUE(dialog.IsLoaded());
}

}  // namespace
}  // namespace kelvane::ui
