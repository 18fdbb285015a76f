// The window itself: its controls, opening it on what is to be imported, closing it.
#include "ui/import/import_window.h"

#include <algorithm>
#include <utility>

#include "controls/grid_size_actions.h"
#include "controls/place.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "entries/failure_reason.h"
#include "ui/common/entry_columns.h"
#include "ui/common/grid_actions.h"
#include "ui/common/questions.h"
#include "ui/common/toolbar_form.h"
#include "ui/common/window_layout.h"

namespace kelvane::ui {

using platform::kCtrl;
using platform::Key;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kButtonHeight = 375;
constexpr int kButtonWidth = 1200;
constexpr int kWideButton = 1650;
constexpr int kLabelHeight = 300;
constexpr int kLinesHeight = 2100;
constexpr int kWidth = 14400;
constexpr int kHeight = 8700;
constexpr int kMinWidth = 7500;
constexpr int kMinHeight = 5400;

constexpr const char* kCopiedSource = "剪贴板";

// What of a table is not read, though it is no fault.
std::string NotRead(const std::vector<entries::TableNote>& notes) {
    if (notes.empty()) return {};
    const std::string more = notes.size() > 1 ? "等 " + std::to_string(notes.size()) + " 处" : "";
    return "（" + notes.front().text + more + "）";
}

}  // namespace

frmImport::frmImport()
    : Form("frmImport"),
      lblSource(*this, "lblSource"),
      cmdErrors(*this, "cmdErrors"),
      cmdColumns(*this, "cmdColumns"),
      GridRows(*this, "GridRows"),
      lblLines(*this, "lblLines"),
      GridLines(*this, "GridLines"),
      cmdImport(*this, "cmdImport"),
      cmdCancel(*this, "cmdCancel") {
    SetCaption("导入期初");
    SetIconPicture(kPictureWindow);
    SetSize(kWidth, kHeight);
    SetMinSize(kMinWidth, kMinHeight);
    NameErrorsButton();
    cmdColumns.SetCaption("对应列…");
    lblLines.SetCaption("当前行的明细");
    GridLines.SetSpokenName(lblLines.Caption());
    cmdImport.SetCaption("录入");
    cmdImport.SetStroke({Key::Enter, kCtrl});
    cmdCancel.SetCaption("取消");
    cmdCancel.SetCancel(true);
    cmdErrors.Click = [this] { ShowErrorsOnly(!GridRows.IsFiltered()); };
    cmdColumns.Click = [this] { AssignColumns(); };
    cmdImport.Click = [this] { Enter(); };
    cmdCancel.Click = [this] { Unload(); };
    WireGrids();
    AddGridActions(*this, GridRows);
    AddActions();
    controls::AddGridSizeActions(*this, GridRows);
}

std::optional<ImportAnswer> frmImport::Import(const ImportRequest& request) {
    mAnswer.reset();
    if (Read(request)) data::gServices->windows->ShowModal(*this);
    return mAnswer;
}

// False when there is nothing to show; the operator has been told why, or gave it up himself.
bool frmImport::Read(const ImportRequest& request) {
    platform::TableImport& service = *data::gServices->tableImport;
    bool read = false;
    RunTold([&] {
        if (request.file.empty()) {
            mSource = kCopiedSource;
            mReader = service.OpenCopied(request.copied);
            mHash = service.HashOfText(request.copied);
        } else {
            mSource = request.file;
            mReader = service.OpenFile(request.file);
            mHash = service.HashOfFile(request.file);
        }
        if (!MayImportAgain()) return;
        LayOutRows();
        LayOutLines();
        entries::OriginOf(*mReader);
        mReading.emplace(*mReader, entries::TitlesOfAccount(), request.file.empty());
        read = TakeTables(false);
    });
    return read;
}

// Runs what reads tables; an error is told, and what was there stays.
void frmImport::RunTold(const std::function<void()>& work) {
    try {
        work();
    } catch (const platform::TableRefused& refused) {
        data::ShowInformation(refused.what());
    } catch (const std::exception& failed) {
        data::ReportTrapped("ImportEntries");
        const std::string reason = entries::ReasonOfFailure();
        data::ShowInformation("没有读入：" + (reason.empty() ? failed.what() : reason));
    }
}

// What was imported before is not imported again by mistake.
bool frmImport::MayImportAgain() {
    const auto journal = data::gServices->tableImport->OpenJournal();
    mFormer = entries::FormerImports(mHash, *journal);
    return mFormer.empty() ||
           data::AskQuestion(mFormer.back() + "。要再导入一次吗？", data::kModuleCaption,
                             platform::MessageIcon::Question, platform::MessageAnswer::No);
}

bool frmImport::TakeTables(bool byHand) {
    auto tables = mReading->Read(byHand);
    if (!tables) return false;
    mSheet.Take(tables->table, tables->lines ? &*tables->lines : nullptr);
    mTotals = std::move(tables->totals);
    lblSource.SetCaption("来自：" + mSource + NotRead(tables->table.notes));
    if (mSheet.Entries().empty() && mSheet.File().strayLines.empty()) {
        data::ShowInformation("没有可以导入的行。");
        return false;
    }
    mKnown = std::make_unique<entries::FileMasterData>(mAccount);
    mIsChanged = false;
    FillRows();
    CheckAll();
    return true;
}

void frmImport::Form_Load() {
    RestoreLayout(mKeptLayout, Name());
    Centre(*this);
    GridRows.SetFocus();
    if (GridRows.Rows() > 1) GridRows.MoveTo(1, entries::kDateColumn);
}

void frmImport::Form_Resize() {
    const int right = ScaleWidth() - kMargin;
    const int buttons = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(cmdColumns, right - kButtonWidth, kMargin, kButtonWidth, kButtonHeight);
    PlaceControl(cmdErrors, cmdColumns.Left() - kMargin - kWideButton, kMargin, kWideButton,
                 kButtonHeight);
    PlaceControl(lblSource, kMargin, kMargin + (kButtonHeight - kLabelHeight) / 2,
                 cmdErrors.Left() - 2 * kMargin, kLabelHeight);
    PlaceControl(cmdCancel, right - kButtonWidth, buttons, kButtonWidth, kButtonHeight);
    PlaceControl(cmdImport, cmdCancel.Left() - kMargin - kButtonWidth, buttons, kButtonWidth,
                 kButtonHeight);
    const bool lines = mSheet.HasLines();
    lblLines.SetVisible(lines);
    GridLines.SetVisible(lines);
    const int top = kButtonHeight + 2 * kMargin;
    int bottom = buttons - kMargin;
    if (lines) {
        PlaceControl(GridLines, kMargin, bottom - kLinesHeight, right - kMargin, kLinesHeight);
        PlaceControl(lblLines, kMargin, GridLines.Top() - kLabelHeight, right - kMargin,
                     kLabelHeight);
        bottom = lblLines.Top() - kMargin / 2;
    }
    PlaceControl(GridRows, kMargin, top, right - kMargin, bottom - top);
    GridRows.ShowCurrent();
}

// What was corrected by hand is not given up without a question.
void frmImport::Form_QueryUnload(bool& cancel, controls::UnloadMode /*mode*/) {
    GridRows.FinishEdit();
    GridLines.FinishEdit();
    if (!mAnswer && mIsChanged) cancel = !AskToLeaveUnsaved();
}

void frmImport::Form_Unload() {
    mKeptLayout.Keep();
}

void frmImport::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
