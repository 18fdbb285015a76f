// The window itself: its controls, opening and closing it, what the operator does in it.
#include "ui/summary/tie_out_window.h"

#include <utility>

#include "controls/grid_size_actions.h"
#include "controls/place.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "entries/failure_reason.h"
#include "entries/ledger/ledger_reading.h"
#include "ui/common/grid_actions.h"
#include "ui/common/toolbar_form.h"
#include "ui/common/trap_scope.h"
#include "ui/common/window_layout.h"
#include "ui/summary/summary_entries.h"

namespace kelvane::ui {

using entries::TieOutLine;
using entries::TieOutOutcome;
using platform::Key;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kButtonHeight = 375;
constexpr int kButtonWidth = 1350;
constexpr int kNotesWidth = 1650;
constexpr int kLabelHeight = 300;
constexpr int kWidth = 15000;
constexpr int kHeight = 8700;
constexpr int kMinWidth = 11250;
constexpr int kMinHeight = 4800;

constexpr std::string_view kComparing = "TieOutAccount";

}  // namespace

frmTieOut::frmTieOut(std::string trial, std::string map, const IsListed& isListed)
    : Form("frmTieOut"),
      lblCounts(*this, "lblCounts"),
      cmdOpen(*this, "cmdOpen"),
      cmdNotes(*this, "cmdNotes"),
      cmdAgain(*this, "cmdAgain"),
      lblFiles(*this, "lblFiles"),
      GridTieOut(*this, "GridTieOut"),
      Printing(*this, GridTieOut, [] { return std::string(entries::kTieOutTitle); }),
      cmdSign(*this, "cmdSign"),
      cmdAll(*this, "cmdAll"),
      cmdShow(*this, "cmdShow"),
      cmdClose(*this, "cmdClose"),
      mTrial(std::move(trial)),
      mMap(std::move(map)),
      mIsListed(isListed) {
    SetCaption(entries::kTieOutTitle);
    SetIconPicture(kPictureWindow);
    SetSize(kWidth, kHeight);
    SetMinSize(kMinWidth, kMinHeight);
    NameControls();
    cmdOpen.Click = [this] { ShowOpenOnly(!mIsOpenOnly); };
    cmdNotes.Click = [this] { ShowNotes(!mShowsNotes); };
    cmdAgain.Click = [this] { CompareAgain(); };
    cmdSign.Click = [this] { WriteSignOff(); };
    cmdAll.Click = [this] { ShowAllEntries(); };
    cmdShow.Click = [this] { ShowEntries(); };
    cmdClose.Click = [this] { Unload(); };
    GridTieOut.CellDoubleClick = [this](int row, int /*col*/) {
        if (row >= GridTieOut.FixedRows()) cmdShow.Press();
    };
    AddGridActions(*this, GridTieOut);
    AddButtonActions(*this, {&cmdShow, &cmdAll, &cmdOpen, &cmdNotes, &cmdAgain});
    Printing.AddActions();
    AddButtonActions(*this, {&cmdSign});
    controls::AddGridSizeActions(*this, GridTieOut);
}

void frmTieOut::NameControls() {
    GridTieOut.SetSpokenName("核对结果");
    cmdOpen.SetCaption("只看不符");
    cmdOpen.SetStroke({platform::KeyOfCharacter(U'L'), platform::kCtrl});
    cmdNotes.SetCaption("表格说明");
    cmdAgain.SetCaption("重新核对");
    cmdAgain.SetStroke({Key::F5});
    cmdSign.SetCaption("签字表…");
    cmdSign.SetVisible(data::gServices->writeSignOff != nullptr);
    cmdAll.SetCaption("全部期初");
    cmdShow.SetCaption("查看期初");
    cmdShow.SetDefault(true);
    cmdClose.SetCaption("关闭");
    cmdClose.SetCancel(true);
}

std::optional<std::int64_t> frmTieOut::Ask() {
    mAnswer.reset();
    const TrapScope trapped([this](std::string_view place) {
        std::string sentence(place == kComparing ? "核对时出错，没有核对出来。"
                                                 : SentenceOfWork(place));
        SetNotice(sentence += entries::ReasonOfFailure());
    });
    data::gServices->windows->ShowModal(*this);
    return mAnswer;
}

void frmTieOut::Form_Load() {
    CompareAgain();
    RestoreLayout(mKeptLayout, Name());
    Centre(*this);
    GridTieOut.SetFocus();
}

void frmTieOut::Form_Resize() {
    const int right = ScaleWidth() - kMargin;
    const int buttons = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(cmdAgain, right - kButtonWidth, kMargin, kButtonWidth, kButtonHeight);
    PlaceControl(cmdNotes, cmdAgain.Left() - kMargin - kNotesWidth, kMargin, kNotesWidth,
                 kButtonHeight);
    PlaceControl(cmdOpen, cmdNotes.Left() - kMargin - kButtonWidth, kMargin, kButtonWidth,
                 kButtonHeight);
    PlaceControl(lblFiles, kMargin, kMargin + (kButtonHeight - kLabelHeight) / 2,
                 cmdOpen.Left() - 2 * kMargin, kLabelHeight);
    const int counts = kButtonHeight + 2 * kMargin;
    PlaceControl(lblCounts, kMargin, counts, right - kMargin, kLabelHeight);
    PlaceControl(cmdSign, Printing.Place(kMargin, buttons), buttons, kButtonWidth, kButtonHeight);
    int left = right;
    for (controls::Button* button : {&cmdClose, &cmdShow, &cmdAll}) {
        left -= kButtonWidth;
        PlaceControl(*button, left, buttons, kButtonWidth, kButtonHeight);
        left -= kMargin;
    }
    const int top = counts + kLabelHeight + kMargin;
    PlaceControl(GridTieOut, kMargin, top, right - kMargin, buttons - kMargin - top);
    GridTieOut.ShowCurrent();
}

// The widths of these columns are not for those of another list.
void frmTieOut::Form_Unload() {
    GridTieOut.RestoreColumnWidths();
    mKeptLayout.Keep();
}

// Nothing of an earlier comparison is left when this one fails.
void frmTieOut::CompareAgain() {
    const TieOutLine* before = Current();
    const std::vector<std::string> place =
        before == nullptr ? std::vector<std::string>() : before->texts;
    mResult.reset();
    mLines.clear();
    mTold.clear();
    mRefused = 0;
    mShowsNotes = false;
    SetNotice("");
    try {
        Compare();
    } catch (const platform::TableRefused& refused) {
        mTold = {{{}, refused.what()}};
        mRefused = 1;
    } catch (...) {
        data::ReportTrapped(kComparing);
    }
    Fill();
    for (int row = 1; !place.empty() && row < GridTieOut.Rows(); ++row) {
        const bool isIt =
            GridTieOut.Text(row, 0) == place[0] && GridTieOut.Text(row, 1) == place[1];
        if (isIt) GridTieOut.MoveTo(row, 0);
    }
}

void frmTieOut::Compare() {
    platform::TableImport& service = *data::gServices->tableImport;
    const auto trial = service.OpenFile(mTrial);
    const auto map = service.OpenFile(mMap);
    const entries::LedgerTables tables = entries::ReadLedgerTables(*trial, *map);
    mRefused = tables.findings.size();
    for (const auto& each : tables.findings) mTold.push_back({each.place, each.finding.text});
    for (const auto& each : tables.notes) mTold.push_back({each.place, each.text});
    if (mRefused > 0) return;
    mResult = entries::TieOutAccount(tables.trial, tables.map);
    mLines = entries::TieOutLines(*mResult);
}

void frmTieOut::ShowOpenOnly(bool only) {
    mIsOpenOnly = only;
    mShowsNotes = false;
    Fill();
}

void frmTieOut::ShowNotes(bool shown) {
    mShowsNotes = shown;
    Fill();
}

// What is signed is what the window shows.
void frmTieOut::WriteSignOff() {
    CompareAgain();
    if (!mResult) return;
    try {
        if (data::gServices->writeSignOff(mTrial, mMap)) data::ShowInformation("签字表已写成。");
    } catch (...) {
        data::ReportTrapped("WriteToFile");
    }
}

void frmTieOut::ShowEntries() {
    const TieOutLine* line = Current();
    if (line == nullptr) return;
    const bool isRow = line->outcome <= TieOutOutcome::LedgerLacksAccount;
    if (isRow && !mResult->rows[line->at].candidates.empty()) {
        ShowList(NameOf(*line) + "，金额等于差额的", mResult->rows[line->at].candidates);
    } else {
        ShowAllEntries();
    }
}

void frmTieOut::ShowAllEntries() {
    const TieOutLine* line = Current();
    if (line == nullptr) return;
    const auto identities = EntriesOf(*line);
    if (identities.empty()) {
        data::ShowInformation(NameOf(*line) + " 没有对应的期初。");
    } else {
        ShowList(NameOf(*line), identities);
    }
}

void frmTieOut::ShowList(const std::string& name, const std::vector<std::int64_t>& identities) {
    mAnswer = AskInEntries(*this, name, identities, mIsListed);
    if (mAnswer) Unload();
}

void frmTieOut::Form_KeyDown(Key& key, int shift) {
    if (key != Key::Enter || shift != 0 || ActiveControl() != &GridTieOut) return;
    key = Key::None;
    cmdShow.Press();
}

void frmTieOut::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
