// What the operator does in the two grids: pick lists, and what becomes of a cell that was edited.
#include <algorithm>

#include "data/login_context.h"
#include "data/messages.h"
#include "data/text_conversion.h"
#include "entries/detail_line.h"
#include "ui/common/item_pick.h"
#include "ui/common/reference_pick.h"
#include "ui/import/import_window.h"

namespace kelvane::ui {

using controls::Grid;
using controls::GridDropList;

namespace {

// The code, or the description, of what is picked from a list; `value` stays when nothing is.
void Pick(std::int16_t kind, bool description, std::string& value) {
    std::string code;
    std::string name;
    SelectReference(kind, code, name, value);
    const std::string& picked = description ? name : code;
    if (!picked.empty()) value = picked;
}

}  // namespace

void frmImport::WireGrids() {
    for (Grid* grid : {&GridRows, &GridLines}) {
        grid->Beep = [] { data::gServices->windows->Beep(); };
    }
    GridRows.EnterCell = [this] { FollowRow(); };
    GridRows.ViewChange = [this] { FollowRow(); };
    GridRows.EndView = [this] {
        const bool filtered = GridRows.IsFiltered();
        if (filtered) ShowErrorsOnly(false);
        return filtered;
    };
    GridRows.CellReference = [this](std::string& value, int row, int col) {
        PickForRow(value, row, col);
    };
    GridRows.ComboDropDown = [this](int row, int col, GridDropList& list) {
        const auto items = col == entries::kOperationColumn
                               ? std::vector<std::string>{"", std::string(entries::kDeletionMark)}
                               : KeywordsOfItem(GridRows.Text(row, entries::kCenterColumn),
                                                GridRows.Text(row, entries::kItemColumn), col);
        for (const std::string& item : items) list.AddItem(item);
    };
    // What was typed is kept at once: no row waits to be left.
    GridRows.EditModeChange = [this](bool editing) {
        if (editing) return;
        GridRows.SetRowTouched(false);
        TakeRow(GridRows.Row());
    };
    GridLines.CellReference = [this](std::string& value, int /*row*/, int col) {
        PickForLine(value, col);
    };
    GridLines.EditModeChange = [this](bool editing) {
        if (editing) return;
        GridLines.SetRowTouched(false);
        TakeLine(GridLines.Row());
    };
}

// The lines are those of the current row.
void frmImport::FollowRow() {
    if (!mIsFilling && (mShownRow != GridRows.Row() || mShownEntry != CurrentEntry())) FillLines();
}

void frmImport::PickForRow(std::string& value, int row, int col) {
    if (col == entries::kCenterColumn) return Pick(kCenterReference, false, value);
    if (col == entries::kElementColumn) return Pick(kElementReference, true, value);
    if (col != entries::kItemColumn) return;
    const std::string center = data::Trim(GridRows.Text(row, entries::kCenterColumn));
    if (!HasCenterForItem(center)) return;
    const auto item = PickItemOfCenter(center, value);
    if (!item) return;
    value = item->code;
    GridRows.SetText(row, entries::kItemNameColumn, item->name);
    GridRows.SetText(row, entries::kKey1Column, item->key1);
    GridRows.SetText(row, entries::kKey2Column, item->key2);
}

// Which list it is depends on the entry's element.
void frmImport::PickForLine(std::string& value, int col) {
    if (col != entries::kLineCodeColumn || mShownEntry == ImportSheet::kNoEntry) return;
    const std::string element = data::Trim(mSheet.EntryText(mShownEntry, entries::kElementColumn));
    const auto detail = mKnown->ElementDetail(element);
    if (!detail || *detail == 0) {
        return data::ShowInformation("要素“" + element + "”没有明细。");
    }
    const bool equipment = entries::KindOfDetail(*detail) == entries::DetailKind::Equipment;
    Pick(equipment ? kEquipmentReference : kInventoryReference, false, value);
}

void frmImport::TakeRow(int row) {
    const std::size_t entry = EntryOf(row);
    if (entry == ImportSheet::kNoEntry) return;
    const auto take = [&](int col) {
        return mSheet.SetEntryText(entry, col, GridRows.Text(row, col));
    };
    bool changed = false;
    for (int col = entries::kDateColumn; col < entries::kRowNumberColumn; ++col) {
        if (!take(col)) continue;
        changed = true;
        if (col != entries::kItemColumn) continue;
        // A name that belonged to the code before would be wrong beside the new one.
        const std::string name =
            mKnown->ItemName(data::Trim(mSheet.EntryText(entry, entries::kItemColumn)));
        if (!name.empty()) GridRows.SetText(row, entries::kItemNameColumn, data::Trim(name));
    }
    changed = take(entries::kOperationColumn) || changed;
    const bool moved = take(entries::kRowNumberColumn);
    if (!changed && !moved) return;
    mIsChanged = true;
    ShowRow(row);
    if (moved) Refill();
    CheckAll();
}

void frmImport::TakeLine(int row) {
    const auto& lines = mSheet.Lines(mShownEntry);
    if (row < 1 || static_cast<std::size_t>(row) > lines.size()) return;
    const auto line = static_cast<std::size_t>(row) - 1;
    const auto take = [&](int col) {
        return mSheet.SetLineText(mShownEntry, line, col, GridLines.Text(row, col));
    };
    bool changed = false;
    for (int col = entries::kLineCodeColumn; col < GridLines.Cols(); ++col) {
        changed = take(col) || changed;
    }
    const bool moved = take(entries::kLineRowNumberColumn);
    if (!changed && !moved) return;
    mIsChanged = true;
    if (moved) {
        Refill();
    } else {
        ShowLine(row);
    }
    CheckAll();
}

}  // namespace kelvane::ui
