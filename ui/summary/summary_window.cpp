// The window itself: its controls, opening and closing it, what the operator does in it.
#include "ui/summary/summary_window.h"

#include "controls/grid_size_actions.h"
#include "controls/place.h"
#include "data/login_context.h"
#include "entries/failure_reason.h"
#include "ui/common/grid_actions.h"
#include "ui/common/toolbar_form.h"
#include "ui/common/trap_scope.h"
#include "ui/common/window_layout.h"
#include "ui/summary/summary_entries.h"

namespace kelvane::ui {

using platform::Key;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kButtonHeight = 375;
constexpr int kButtonWidth = 1350;
constexpr int kTieOutWidth = 1650;
constexpr int kLabelHeight = 300;
constexpr int kByWidth = 900;
constexpr int kFieldHeight = 330;
constexpr int kFieldWidth = 1500;
constexpr int kWidth = 14400;
constexpr int kHeight = 8700;
constexpr int kMinWidth = 11250;
constexpr int kMinHeight = 4800;

constexpr std::array<const char*, FieldChoice::kPlaces> kPlaceNames{
    "汇总依据一", "汇总依据二", "汇总依据三", "汇总依据四", "汇总依据五"};

constexpr std::string_view kSumming = "SummarizeAccount";

}  // namespace

frmSummary& GetSummaryForm() {
    static frmSummary form;
    return form;
}

frmSummary::frmSummary()
    : Form("frmSummary"),
      lblBy(*this, "lblBy"),
      cboField1(*this, "cboField1"),
      cboField2(*this, "cboField2"),
      cboField3(*this, "cboField3"),
      cboField4(*this, "cboField4"),
      cboField5(*this, "cboField5"),
      cmdAgain(*this, "cmdAgain"),
      lblCounts(*this, "lblCounts"),
      GridSummary(*this, "GridSummary"),
      Printing(*this, GridSummary, [this] { return Title(); }),
      cmdTieOut(*this, "cmdTieOut"),
      cmdShow(*this, "cmdShow"),
      cmdClose(*this, "cmdClose") {
    SetCaption("期初汇总");
    SetIconPicture(kPictureWindow);
    SetSize(kWidth, kHeight);
    SetMinSize(kMinWidth, kMinHeight);
    lblBy.SetCaption("汇总依据");
    for (std::size_t place = 0; place < mFields.size(); ++place) {
        controls::ComboBox& field = *mFields[place];
        field.SetSpokenName(kPlaceNames[place]);
        field.AddItem("");
        for (const auto& each : entries::DeclaredSummaryFields()) field.AddItem(each.caption);
        field.Change = [this, place] { cboField_Change(place); };
    }
    GridSummary.SetSpokenName("汇总结果");
    cmdAgain.SetCaption("重新汇总");
    cmdAgain.SetStroke({Key::F5});
    cmdTieOut.SetCaption("与总账核对…");
    cmdTieOut.SetEnabled(false);
    cmdShow.SetCaption("查看期初");
    cmdShow.SetDefault(true);
    cmdClose.SetCaption("关闭");
    cmdClose.SetCancel(true);
    cmdAgain.Click = [this] { SummarizeAgain(); };
    cmdTieOut.Click = [this] { CompareWithLedger(); };
    cmdShow.Click = [this] { ShowEntries(); };
    cmdClose.Click = [this] { Unload(); };
    GridSummary.CellDoubleClick = [this](int row, int /*col*/) {
        if (row >= GridSummary.FixedRows()) ShowEntries();
    };
    AddGridActions(*this, GridSummary);
    AddButtonActions(*this, {&cmdShow, &cmdAgain});
    Printing.AddActions();
    AddButtonActions(*this, {&cmdTieOut});
    controls::AddGridSizeActions(*this, GridSummary);
}

std::optional<std::int64_t> frmSummary::Ask(const IsListed& isListed) {
    mAnswer.reset();
    mIsListed = isListed;
    const TrapScope trapped([this](std::string_view place) { TellFailure(place); });
    data::gServices->windows->ShowModal(*this);
    return mAnswer;
}

void frmSummary::TellFailure(std::string_view place) {
    std::string sentence(place == kSumming ? "汇总时出错，没有汇总出来。" : SentenceOfWork(place));
    SetNotice(sentence += entries::ReasonOfFailure());
}

void frmSummary::Form_Load() {
    ShowChoice();
    SummarizeAgain();
    RestoreLayout(mKeptLayout, Name());
    Centre(*this);
    GridSummary.SetFocus();
}

void frmSummary::Form_Resize() {
    const int right = ScaleWidth() - kMargin;
    const int buttons = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(lblBy, kMargin, kMargin + (kButtonHeight - kLabelHeight) / 2, kByWidth,
                 kLabelHeight);
    int left = kMargin + kByWidth;
    for (controls::ComboBox* field : mFields) {
        PlaceControl(*field, left, kMargin + (kButtonHeight - kFieldHeight) / 2, kFieldWidth,
                     kFieldHeight);
        left += kFieldWidth + kMargin;
    }
    PlaceControl(cmdAgain, right - kButtonWidth, kMargin, kButtonWidth, kButtonHeight);
    const int counts = kButtonHeight + 2 * kMargin;
    PlaceControl(lblCounts, kMargin, counts, right - kMargin, kLabelHeight);
    left = Printing.Place(kMargin, buttons);
    PlaceControl(cmdTieOut, left, buttons, kTieOutWidth, kButtonHeight);
    PlaceControl(cmdClose, right - kButtonWidth, buttons, kButtonWidth, kButtonHeight);
    PlaceControl(cmdShow, cmdClose.Left() - kMargin - kButtonWidth, buttons, kButtonWidth,
                 kButtonHeight);
    const int top = counts + kLabelHeight + kMargin;
    PlaceControl(GridSummary, kMargin, top, right - kMargin, buttons - kMargin - top);
    GridSummary.ShowCurrent();
}

// The widths of these columns are not for those of another choice.
void frmSummary::Form_Unload() {
    GridSummary.RestoreColumnWidths();
    mKeptLayout.Keep();
}

// A text that names no field waits until it does, or until another field is chosen.
void frmSummary::cboField_Change(std::size_t place) {
    if (mIsShowingChoice) return;
    const std::string& text = mFields.at(place)->Text();
    const auto field = SummaryFieldNamed(text);
    if (!field && !text.empty()) return;
    const auto before = mChoice.Fields();
    mChoice.Set(place, field);
    ShowChoice();
    if (mChoice.Fields() != before) SummarizeAgain();
}

void frmSummary::AllowCommands() {
    const bool hasRows = GridSummary.Rows() > 1;
    cmdShow.SetEnabled(hasRows);
    Printing.Allow(hasRows);
    cmdTieOut.SetEnabled(data::gServices->tableImport != nullptr);
}

void frmSummary::ShowEntries() {
    const entries::SummaryRow* row = Current();
    if (row == nullptr) return;
    mAnswer = AskInEntries(*this, NameOf(*row), row->identities, mIsListed);
    if (mAnswer) Unload();
}

std::string frmSummary::Hint() const {
    const entries::SummaryRow* row = Current();
    return row == nullptr ? "" : NameOf(*row);
}

std::string frmSummary::Figures() const {
    if (GridSummary.Row() < 1) return {};
    return "第 " + std::to_string(GridSummary.Row()) + " 行，共 " +
           std::to_string(GridSummary.Rows() - 1) + " 行";
}

void frmSummary::Form_KeyDown(Key& key, int shift) {
    if (key != Key::Enter || shift != 0 || ActiveControl() != &GridSummary) return;
    key = Key::None;
    cmdShow.Press();
}

void frmSummary::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
