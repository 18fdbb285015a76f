// The two grids: the rows of entries, and the detail lines of the current one.
#include <algorithm>

#include "data/login_context.h"
#include "ui/common/entry_columns.h"
#include "ui/common/flag_scope.h"
#include "ui/common/list_layout.h"
#include "ui/import/import_window.h"

namespace kelvane::ui {

using controls::Alignment;
using controls::InputKind;

namespace {

// Measures in twips.
constexpr int kNumberWidth = 700;
constexpr int kLabelWidth = 900;

constexpr int kGridColumns = entries::kOperationColumn + 1;

// Behind the last row: lines of no entry.
constexpr const char* kStrayMark = "—";
constexpr const char* kStrayText = "没有期初的明细";

constexpr ListColumn kLineColumns[] = {
    {0, "行", kNumberWidth, Alignment::Right},
    {entries::kLineRowNumberColumn, "行号", kLabelWidth, Alignment::Left},
    {entries::kLineCodeColumn, "编码", 1800, Alignment::Left, {InputKind::Text, 60}, true},
    {entries::kLineNameColumn, "名称", 2500, Alignment::Left, {InputKind::Text, 255}},
    {entries::kLineModelColumn, "", 0, Alignment::Left},
    {entries::kLineUnitColumn, "", 0, Alignment::Left},
    {entries::kLinePriceColumn, "单价", 1500, Alignment::Right, {InputKind::Number, 0}},
    {entries::kLineQuantityColumn, "数量", 1500, Alignment::Right, {InputKind::Number, 0}},
    {entries::kLineAmountColumn, "余额", 1500, Alignment::Right, {InputKind::Number, 0}},
};

}  // namespace

void frmImport::LayOutRows() {
    LayOutEntryGrid(GridRows);
    GridRows.SetCols(kGridColumns);
    GridRows.SetText(0, 0, "行");
    GridRows.SetColumnWidth(0, kNumberWidth);
    GridRows.SetColumnAlignment(0, Alignment::Right);
    GridRows.SetFixedRowAlignment(0, Alignment::Center);
    GridRows.SetText(0, entries::kRowNumberColumn, "行号");
    GridRows.SetText(0, entries::kOperationColumn, "操作");
    for (const int col : {entries::kRowNumberColumn, entries::kOperationColumn}) {
        GridRows.SetColumnWidth(col, 0);
        GridRows.SetFixedRowAlignment(col, Alignment::Center);
    }
    // An amount is typed, or made of the lines below.
    GridRows.SetColumnReference(entries::kAmountColumn, false);
    const bool hasLists = static_cast<bool>(data::gServices->createReferenceList);
    for (const int col : {entries::kCenterColumn, entries::kItemColumn, entries::kElementColumn}) {
        GridRows.SetColumnReference(col, hasLists);
    }
}

void frmImport::LayOutLines() {
    GridLines.SetRows(0);
    GridLines.SetCols(entries::kLineTableColumnCount);
    GridLines.SetRows(1);
    GridLines.SetFixedCols(1);
    StyleList(GridLines);
    LayOutColumns(GridLines, kLineColumns);
    if (!data::gServices->createReferenceList) {
        GridLines.SetColumnReference(entries::kLineCodeColumn, false);
    }
}

void frmImport::FillRows() {
    const FlagScope filling(mIsFilling);
    ClearRows(GridRows);
    const bool lines = mSheet.HasLines();
    const bool labels = lines || std::ranges::any_of(mSheet.Entries(), [](const auto& each) {
                            return !each.rowNumber.empty();
                        });
    GridRows.SetColumnWidth(entries::kRowNumberColumn, labels ? kLabelWidth : 0);
    GridRows.SetColumnWidth(entries::kOperationColumn, mSheet.HasOperations() ? kLabelWidth : 0);
    for (std::size_t entry = 0; entry < mSheet.Entries().size(); ++entry) AppendRow(entry);
    if (!mSheet.File().strayLines.empty()) {
        const int row = GridRows.AddItem(kStrayMark);
        GridRows.SetText(row, entries::kDigestColumn, kStrayText);
        GridRows.SetRowData(row, -1);
        for (int col = 1; col < kGridColumns; ++col) {
            GridRows.SetCellColor(row, col, data::gColorLocked);
        }
    }
    if (GridRows.Rows() > 1) GridRows.SetRow(1);
    FillLines();
    NameErrorsButton();
    if (IsLoaded()) Form_Resize();
}

// The same after rows came or went; the operator stays where he is.
void frmImport::Refill() {
    const int row = GridRows.Row();
    const int col = GridRows.Col();
    const bool filtered = GridRows.IsFiltered();
    FillRows();
    GridRows.SetRow(std::min(row, GridRows.Rows() - 1));
    GridRows.SetCol(col);
    GridRows.ShowCurrent();
    if (filtered) ShowErrorsOnly(true);
    FollowRow();
}

// A row's data is its entry's place, from 0.
void frmImport::AppendRow(std::size_t entry) {
    const int row = GridRows.AddItem(std::to_string(mSheet.Entries()[entry].row));
    GridRows.SetRowData(row, static_cast<int>(entry));
    ShowRow(row);
}

void frmImport::ShowRow(int row) {
    const std::size_t entry = EntryOf(row);
    if (entry == ImportSheet::kNoEntry) return;
    for (int col = 1; col < kGridColumns; ++col) {
        const std::string text = mSheet.EntryText(entry, col);
        if (GridRows.Text(row, col) != text) GridRows.SetText(row, col, text);
    }
}

void frmImport::FillLines() {
    ClearRows(GridLines);
    mShownEntry = CurrentEntry();
    mShownRow = GridRows.Row();
    if (mShownRow < 1) return;
    const auto& lines = mSheet.Lines(mShownEntry);
    if (lines.empty() && ActiveControl() == &GridLines) GridRows.SetFocus();
    for (const auto& line : lines) {
        const int row = GridLines.AddItem(std::to_string(line.row));
        ShowLine(row);
    }
    MarkLineFaults();
}

void frmImport::ShowLine(int row) {
    const auto line = static_cast<std::size_t>(row) - 1;
    for (int col = 1; col < GridLines.Cols(); ++col) {
        const std::string text = mSheet.LineText(mShownEntry, line, col);
        if (GridLines.Text(row, col) != text) GridLines.SetText(row, col, text);
    }
}

std::size_t frmImport::EntryOf(int row) const {
    if (row < 1 || row >= GridRows.Rows() || GridRows.RowData(row) < 0) {
        return ImportSheet::kNoEntry;
    }
    return static_cast<std::size_t>(GridRows.RowData(row));
}

std::size_t frmImport::CurrentEntry() const {
    return EntryOf(GridRows.Row());
}

}  // namespace kelvane::ui
