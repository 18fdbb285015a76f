// The window itself: its controls, opening and closing it, what the operator does in it.
#include "ui/check/check_window.h"

#include <algorithm>

#include "controls/grid_size_actions.h"
#include "controls/place.h"
#include "data/login_context.h"
#include "ui/common/failure_texts.h"
#include "ui/common/grid_actions.h"
#include "ui/common/listed_entries.h"
#include "ui/common/toolbar_form.h"
#include "ui/common/trap_scope.h"
#include "ui/common/window_layout.h"

namespace kelvane::ui {

using platform::kCtrl;
using platform::Key;
using platform::KeyOfCharacter;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kButtonHeight = 375;
constexpr int kButtonWidth = 1350;
constexpr int kLabelHeight = 300;
constexpr int kWidth = 14400;
constexpr int kHeight = 8700;
constexpr int kMinWidth = 7500;
constexpr int kMinHeight = 4800;

}  // namespace

frmCheck& GetCheckForm() {
    static frmCheck form;
    return form;
}

frmCheck::frmCheck()
    : Form("frmCheck"),
      lblCounts(*this, "lblCounts"),
      cmdErrors(*this, "cmdErrors"),
      cmdAgain(*this, "cmdAgain"),
      GridFindings(*this, "GridFindings"),
      lblText1(*this, "lblText1"),
      lblText2(*this, "lblText2"),
      lblText3(*this, "lblText3"),
      cmdGo(*this, "cmdGo"),
      cmdClose(*this, "cmdClose") {
    SetCaption("检查期初");
    SetIconPicture(kPictureWindow);
    SetSize(kWidth, kHeight);
    SetMinSize(kMinWidth, kMinHeight);
    GridFindings.SetSpokenName("检查结果");
    cmdAgain.SetCaption("重新检查");
    cmdAgain.SetStroke({Key::F5});
    cmdGo.SetCaption("到该行期初");
    cmdGo.SetDefault(true);
    cmdClose.SetCaption("关闭");
    cmdClose.SetCancel(true);
    NameErrorsButton();
    cmdErrors.Click = [this] { ShowErrorsOnly(!GridFindings.IsFiltered()); };
    cmdAgain.Click = [this] { CheckAgain(); };
    cmdGo.Click = [this] { GoToEntry(); };
    cmdClose.Click = [this] { Unload(); };
    GridFindings.CellDoubleClick = [this](int row, int /*col*/) {
        if (row >= GridFindings.FixedRows()) GoToEntry();
    };
    GridFindings.HeaderClick = [this](int col) { mViews.NextOrder(col); };
    GridFindings.EnterCell = [this] { ShowText(); };
    GridFindings.ViewChange = [this] { ShowText(); };
    GridFindings.EndView = [this] {
        const bool ended = mViews.End();
        NameErrorsButton();
        return ended;
    };
    AddGridActions(*this, GridFindings);
    AddActions();
    controls::AddGridSizeActions(*this, GridFindings);
}

void frmCheck::AddActions() {
    AddAction({.caption = cmdGo.Caption(),
               .inMenu = true,
               .startsGroup = true,
               .possible = [this] { return cmdGo.Enabled(); },
               .run = [this] { cmdGo.Press(); }});
    AddAction({.stroke = {KeyOfCharacter(U'L'), kCtrl},
               .caption = "只看错误、看所有的",
               .inMenu = true,
               .possible = [this] { return cmdErrors.Enabled(); },
               .run = [this] { cmdErrors.Press(); }});
    AddAction(
        {.stroke = cmdAgain.Stroke(), .caption = cmdAgain.Caption(), .inMenu = true, .run = [this] {
             cmdAgain.Press();
         }});
}

std::optional<std::int64_t> frmCheck::Ask(const IsListed& isListed) {
    mAnswer.reset();
    mIsListed = isListed;
    const TrapScope trapped(
        [this](std::string_view /*place*/) { SetNotice(std::string(kWorkFailed)); });
    data::gServices->windows->ShowModal(*this);
    return mAnswer;
}

void frmCheck::Form_Load() {
    LayOut();
    RestoreLayout(mKeptLayout, Name());
    Centre(*this);
    CheckAgain();
    GridFindings.SetFocus();
}

void frmCheck::Form_Resize() {
    const int right = ScaleWidth() - kMargin;
    const int buttons = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(cmdAgain, right - kButtonWidth, kMargin, kButtonWidth, kButtonHeight);
    PlaceControl(cmdErrors, cmdAgain.Left() - kMargin - kButtonWidth, kMargin, kButtonWidth,
                 kButtonHeight);
    PlaceControl(lblCounts, kMargin, kMargin + (kButtonHeight - kLabelHeight) / 2,
                 cmdErrors.Left() - 2 * kMargin, kLabelHeight);
    PlaceControl(cmdClose, right - kButtonWidth, buttons, kButtonWidth, kButtonHeight);
    PlaceControl(cmdGo, cmdClose.Left() - kMargin - kButtonWidth, buttons, kButtonWidth,
                 kButtonHeight);
    int text = buttons - kMargin;
    for (controls::Label* label : {&lblText3, &lblText2, &lblText1}) {
        text -= kLabelHeight;
        PlaceControl(*label, kMargin, text, right - kMargin, kLabelHeight);
    }
    const int top = kButtonHeight + 2 * kMargin;
    PlaceControl(GridFindings, kMargin, top, right - kMargin, text - kMargin - top);
    if (GridFindings.Cols() > kCheckText) FitText();
    GridFindings.ShowCurrent();
    ShowText();
}

void frmCheck::Form_Unload() {
    if (const entries::CheckFinding* finding = Current()) {
        mLastIdentity = finding->identity;
        mLastText = finding->finding.text;
    }
    mKeptLayout.Keep();
}

void frmCheck::ShowErrorsOnly(bool only) {
    mViews.Unfilter();
    int row = GridFindings.Rows() - 1;
    while (row > 0 && !GridFindings.HasFault(row, kCheckSeverity)) --row;
    if (only && row > 0) mViews.FilterBy(kCheckSeverity, GridFindings.Text(row, kCheckSeverity));
    NameErrorsButton();
    ShowText();
}

void frmCheck::GoToEntry() {
    const entries::CheckFinding* finding = Current();
    if (finding == nullptr || !MayGoToEntry(finding->identity, mIsListed)) return;
    mAnswer = finding->identity;
    Unload();
}

std::string frmCheck::Hint() const {
    return mViews.Text();
}

std::string frmCheck::Figures() const {
    const int rows = GridFindings.Rows() - GridFindings.FixedRows();
    if (GridFindings.Row() < GridFindings.FixedRows()) return {};
    return "第 " + std::to_string(GridFindings.Row()) + " 行，共 " + std::to_string(rows) + " 行";
}

// Enter goes to the entry wherever the focus is but on a button: nothing can be typed here.
void frmCheck::Form_KeyDown(Key& key, int shift) {
    if (key != Key::Enter || shift != 0 || ActiveControl() != &GridFindings) return;
    key = Key::None;
    cmdGo.Press();
}

void frmCheck::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
