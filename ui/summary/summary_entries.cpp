#include "ui/summary/summary_entries.h"

#include <utility>

#include "controls/grid_size_actions.h"
#include "controls/place.h"
#include "data/login_context.h"
#include "entries/summary/shown_entries.h"
#include "ui/common/entry_columns.h"
#include "ui/common/figures.h"
#include "ui/common/grid_actions.h"
#include "ui/common/list_layout.h"
#include "ui/common/listed_entries.h"
#include "ui/common/toolbar_form.h"
#include "ui/common/window_layout.h"

namespace kelvane::ui {

using platform::Key;

namespace {

// Measures in twips.
constexpr int kMargin = 120;
constexpr int kButtonHeight = 375;
constexpr int kButtonWidth = 1350;
constexpr int kLabelHeight = 300;
constexpr int kIdentityWidth = 900;
constexpr int kLeastAmount = 1500;
constexpr int kWidth = 14400;
constexpr int kHeight = 7200;
constexpr int kMinWidth = 6000;
constexpr int kMinHeight = 3600;

}  // namespace

frmSummaryEntries::frmSummaryEntries(const std::string& name,
                                     std::span<const std::int64_t> identities,
                                     const IsListed& isListed)
    : Form("frmSummaryEntries"),
      lblCounts(*this, "lblCounts"),
      GridEntries(*this, "GridEntries"),
      cmdGo(*this, "cmdGo"),
      cmdClose(*this, "cmdClose"),
      mIsListed(isListed) {
    SetCaption("期初：" + name);
    SetIconPicture(kPictureWindow);
    SetSize(kWidth, kHeight);
    SetMinSize(kMinWidth, kMinHeight);
    cmdGo.SetCaption("到该行期初");
    cmdGo.SetDefault(true);
    cmdClose.SetCaption("返回");
    cmdClose.SetCancel(true);
    cmdGo.Click = [this] { GoToEntry(); };
    cmdClose.Click = [this] { Unload(); };
    GridEntries.CellDoubleClick = [this](int row, int /*col*/) {
        if (row >= GridEntries.FixedRows()) GoToEntry();
    };
    AddGridActions(*this, GridEntries);
    AddAction({.caption = cmdGo.Caption(),
               .inMenu = true,
               .startsGroup = true,
               .possible = [this] { return cmdGo.Enabled(); },
               .run = [this] { cmdGo.Press(); }});
    controls::AddGridSizeActions(*this, GridEntries);
    LayOut();
    const std::size_t gone = Fill(identities);
    std::string counts = "期初 " + std::to_string(GridEntries.Rows() - 1) + " 行";
    if (gone > 0) counts += "，另有 " + std::to_string(gone) + " 行在汇总以后被删除";
    lblCounts.SetCaption(counts + "。");
    cmdGo.SetEnabled(GridEntries.Rows() > 1);
}

void frmSummaryEntries::LayOut() {
    LayOutEntryGrid(GridEntries);
    GridEntries.SetReadOnly(true);
    GridEntries.SetText(0, 0, "编号");
    GridEntries.SetColumnWidth(0, kIdentityWidth);
    GridEntries.SetColumnAlignment(0, controls::Alignment::Right);
    GridEntries.SetFixedRowAlignment(0, controls::Alignment::Center);
}

std::size_t frmSummaryEntries::Fill(std::span<const std::int64_t> identities) {
    for (const auto& [identity, entry] : entries::ReadShownEntries(identities)) {
        std::vector<std::string> texts(entry.cells.begin(), entry.cells.end());
        texts.front() = std::to_string(identity);
        const int row = GridEntries.AddItem(CellsOf(texts));
        if (std::in_range<int>(identity)) GridEntries.SetRowData(row, static_cast<int>(identity));
        mIdentities.push_back(identity);
    }
    FitWholeColumn(GridEntries, entries::kAmountColumn, kLeastAmount, 0);
    return identities.size() - mIdentities.size();
}

std::optional<std::int64_t> frmSummaryEntries::Ask() {
    mAnswer.reset();
    data::gServices->windows->ShowModal(*this);
    return mAnswer;
}

void frmSummaryEntries::Form_Load() {
    RestoreLayout(mKeptLayout, Name());
    Centre(*this);
    GridEntries.SetFocus();
    if (GridEntries.Rows() > 1) GridEntries.MoveTo(1, entries::kDateColumn);
}

void frmSummaryEntries::Form_Resize() {
    const int right = ScaleWidth() - kMargin;
    const int buttons = ScaleHeight() - kMargin - kButtonHeight;
    PlaceControl(lblCounts, kMargin, kMargin, right - kMargin, kLabelHeight);
    PlaceControl(cmdClose, right - kButtonWidth, buttons, kButtonWidth, kButtonHeight);
    PlaceControl(cmdGo, cmdClose.Left() - kMargin - kButtonWidth, buttons, kButtonWidth,
                 kButtonHeight);
    const int top = kLabelHeight + 2 * kMargin;
    PlaceControl(GridEntries, kMargin, top, right - kMargin, buttons - kMargin - top);
    GridEntries.ShowCurrent();
}

void frmSummaryEntries::Form_Unload() {
    mKeptLayout.Keep();
}

void frmSummaryEntries::GoToEntry() {
    const int row = GridEntries.Row();
    if (row < 1) return;
    const std::int64_t identity = mIdentities.at(static_cast<std::size_t>(row) - 1);
    if (!MayGoToEntry(identity, mIsListed)) return;
    mAnswer = identity;
    Unload();
}

std::string frmSummaryEntries::Figures() const {
    return FiguresOf(GridEntries);
}

void frmSummaryEntries::Form_KeyDown(Key& key, int shift) {
    if (key != Key::Enter || shift != 0 || ActiveControl() != &GridEntries) return;
    key = Key::None;
    cmdGo.Press();
}

std::optional<std::int64_t> AskInEntries(controls::Form& window, const std::string& name,
                                         std::span<const std::int64_t> identities,
                                         const IsListed& isListed) {
    std::optional<frmSummaryEntries> entries;
    try {
        entries.emplace(name, identities, isListed);
        window.SetNotice("");
    } catch (...) {
        data::ReportTrapped("ReadShownEntries");
        return std::nullopt;
    }
    return entries->Ask();
}

void frmSummaryEntries::Trapped(std::string_view place, std::string_view detail) noexcept {
    data::ReportTrapped(place, detail);
}

}  // namespace kelvane::ui
