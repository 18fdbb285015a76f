#include "ui/find/find_dialog.h"

#include "controls/place.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "data/reference_queries.h"
#include "ui/common/reference_pick.h"
#include "ui/common/toolbar_form.h"
#include "ui/common/window_layout.h"

namespace kelvane::ui {

using controls::ComboBox;
using platform::Key;

namespace {

constexpr int kWidth = 5400;
constexpr int kHeight = 3150;
constexpr int kFrameRoom = 1740;
constexpr int kButtonTop = 2055;
// What a line of the dialog takes.
constexpr int kLine = 495;
constexpr int kLabelLeft = 240;
constexpr int kFieldLeft = 1560;
constexpr int kFieldWidth = 3060;
constexpr int kFieldHeight = 345;

}  // namespace

frmFind& GetFindForm() {
    static frmFind form;
    return form;
}

frmFind::frmFind()
    : Form("frmFind"),
      FrameBack(*this, "FrameBack"),
      Label1(*this, "Label1"),
      TxtCode(*this, "TxtCode"),
      ComdRef(*this, "ComdRef"),
      Label2(*this, "Label2"),
      ComKey1(*this, "ComKey1"),
      Label3(*this, "Label3"),
      ComKey2(*this, "ComKey2"),
      CmdOK(*this, "CmdOK"),
      CmdCancel(*this, "CmdCancel") {
    SetCaption("定位");
    SetResizable(false);
    SetSize(kWidth, kHeight);
    PlaceControl(FrameBack, 120, 120, 5040, kFrameRoom);
    PlaceControl(Label1, kLabelLeft, 330, 1260, 270);
    PlaceControl(TxtCode, kFieldLeft, 285, kFieldWidth, kFieldHeight);
    PlaceControl(ComdRef, kFieldLeft + kFieldWidth + 45, 285, 345, kFieldHeight);
    PlaceControl(Label2, kLabelLeft, 825, 1260, 270);
    PlaceControl(ComKey1, kFieldLeft, 780, kFieldWidth, kFieldHeight);
    PlaceControl(Label3, kLabelLeft, 1320, 1260, 270);
    PlaceControl(ComKey2, kFieldLeft, 1275, kFieldWidth, kFieldHeight);
    PlaceControl(CmdOK, 2640, kButtonTop, 1170, 420);
    PlaceControl(CmdCancel, 3960, kButtonTop, 1170, 420);
    Label1.SetCaption("项目编号");
    ComdRef.SetSpokenName("参照");
    CmdOK.SetCaption("确定");
    CmdOK.SetDefault(true);
    CmdCancel.SetCaption("取消");
    CmdCancel.SetCancel(true);
    ComdRef.SetStroke({Key::F2});
    ComdRef.Click = [this] { ComdRef_Click(); };
    ComKey1.DropDown = [this] { ComKey1_DropDown(); };
    ComKey2.DropDown = [this] { ComKey2_DropDown(); };
    CmdOK.Click = [this] { CmdOK_Click(); };
    CmdCancel.Click = [this] { CmdCancel_Click(); };
}

std::optional<FindAnswer> frmFind::Ask() {
    mAnswer.reset();
    data::gServices->windows->ShowModal(*this);
    return mAnswer;
}

void frmFind::Form_Load() {
    TxtCode.SetText("");
    ComKey1.Clear();
    ComKey2.Clear();
    const int keywords = data::gItemKeyCount;
    const bool first = keywords == 1 || keywords == 2;
    Label2.SetCaption(first ? data::gItemKeyField1 : "关键字一");
    Label3.SetCaption(keywords == 2 ? data::gItemKeyField2 : "关键字二");
    OfferSecondKeyword(keywords != 1);
    ComdRef.SetPicture(kPictureReference);
    ComdRef.SetEnabled(static_cast<bool>(data::gServices->createReferenceList));
    data::gServices->windows->SetHelpFile(HelpFilePath());
}

// A class with one keyword has nothing to look for in the second: the lines below it move up.
void frmFind::OfferSecondKeyword(bool offered) {
    const int saved = offered ? 0 : kLine;
    Label3.SetVisible(offered);
    ComKey2.SetVisible(offered);
    FrameBack.SetHeight(kFrameRoom - saved);
    CmdOK.SetTop(kButtonTop - saved);
    CmdCancel.SetTop(kButtonTop - saved);
    SetSize(kWidth, kHeight - saved);
}

void frmFind::Form_Resize() {
    Centre(*this);
}

void frmFind::Form_KeyDown(Key& key, int /*shift*/) {
    if (key != Key::F2 || (ActiveControl() != &TxtCode && ActiveControl() != &ComdRef)) return;
    if (ComdRef.Enabled()) ComdRef_Click();
}

void frmFind::Form_KeyUp(Key& key, int shift) {
    if (key == Key::F4 && shift == platform::kCtrl) CmdCancel_Click();
}

std::vector<controls::KeyLine> frmFind::OwnKeys() const {
    return {{"F2", "打开项目参照"}, {"Ctrl+F4", CmdCancel.Caption()}};
}

void frmFind::ComdRef_Click() {
    data::gRefByCenter = false;
    std::string code = TxtCode.Text();
    std::string description;
    SelectReference(kItemReference, code, description, TxtCode.Text());
    TxtCode.SetText(code);
}

void frmFind::RefreshKeeping(ComboBox& kept) {
    const int index = kept.ListIndex();
    bool ok = false;
    RefreshKeywordLists(ok);
    kept.SetListIndex(index);
}

void frmFind::ComKey1_DropDown() {
    RefreshKeeping(ComKey2);
}

void frmFind::ComKey2_DropDown() {
    RefreshKeeping(ComKey1);
}

void frmFind::CmdOK_Click() {
    if (TxtCode.Text().empty()) {
        data::ShowInformation("项目不能为空！");
        TxtCode.SetFocus();
        return;
    }
    mAnswer = {TxtCode.Text(), ComKey1.Text(), ComKey2.Text()};
    Unload();
}

void frmFind::CmdCancel_Click() {
    mAnswer.reset();
    Unload();
}

void frmFind::RefreshKeywordLists(bool& ok) {
    ok = false;
    if (TxtCode.Text().empty()) return;
    data::gRefByCenter = false;
    const bool known = data::ItemInDutyCenter(TxtCode.Text());
    if (!known) {
        data::ShowInformation("所填项目不存在! ");
        TxtCode.SetText("");
    }
    ComKey1.Clear();
    ComKey2.Clear();
    if (known) {
        FillKeywordLists();
    } else {
        TxtCode.SetFocus();
    }
    ok = known;
}

void frmFind::FillKeywordLists() {
    const int keywords = data::gItemKeyCount;
    if (keywords != 1 && keywords != 2) return;
    platform::StatementText statement("select * from fitemss97sub where cItemCode = '");
    statement.Inside(TxtCode.Text()) << "'";
    const auto items = data::gConn->OpenRecordSet(statement);
    for (; !items->EndOfFile(); items->MoveNext()) {
        ComKey1.AddItem(items->Field(data::gItemKeyField1).ToText());
        if (keywords == 2) ComKey2.AddItem(items->Field(data::gItemKeyField2).ToText());
    }
}

void frmFind::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
