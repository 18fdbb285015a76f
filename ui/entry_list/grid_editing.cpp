// What happens while the operator edits the grid: pick lists, cell and row checks, the detail
// button, and the checks that precede an edit.
#include <utility>

#include "data/login_context.h"
#include "data/messages.h"
#include "data/text_conversion.h"
#include "entries/announced_checks.h"
#include "ui/common/flag_scope.h"
#include "ui/common/item_pick.h"
#include "ui/common/opening_budget.h"
#include "ui/common/reference_pick.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using controls::GridAnswer;
using data::gConn;
using platform::Money;
using platform::StatementText;

namespace {

// Size of the detail button over a locked amount, in twips.
constexpr int kDetailButtonWidth = 300;

}  // namespace

void frmPeriodItem::WireGrid() {
    controls::Grid& grid = GridPeriodItem;
    grid.CellReference = [this](std::string& value, int row, int col) {
        GridPeriodItem_CellReference(value, row, col);
    };
    grid.CellValidate = [this](std::string& text, GridAnswer& answer, int row, int col) {
        GridPeriodItem_CellValidate(text, answer, row, col);
    };
    grid.RowValidate = [this](GridAnswer& answer, int row, int& col) {
        GridPeriodItem_RowValidate(answer, row, col);
    };
    grid.ComboDropDown = [this](int row, int col, controls::GridDropList& list) {
        GridPeriodItem_ComboDropDown(row, col, list);
    };
    grid.TextMayChange = [this](int row, int col) {
        return GridPeriodItem_TextMayChange(row, col);
    };
    grid.EditModeChange = [this](bool editing) { GridPeriodItem_EditModeChange(editing); };
    grid.CellChanged = [this](int row, int col, const std::string& /*before*/,
                              const std::string& /*after*/) {
        GridPeriodItem_CellChanged(row, col);
    };
    grid.EnterCell = [this] { GridPeriodItem_EnterCell(); };
    grid.EditCheck = [this] { GridPeriodItem_EditCheck(); };
    grid.DetailReset = [this] { GridPeriodItem_DetailReset(); };
    grid.ViewChange = [this] { GridPeriodItem_ViewChange(); };
    grid.AbandonRow = [this](int row) { GridPeriodItem_AbandonRow(row); };
    grid.EndView = [this] { return EndView(); };
    grid.HeaderClick = [this](int col) { GridPeriodItem_HeaderClick(col); };
    grid.Beep = [] { data::gServices->windows->Beep(); };
}

void frmPeriodItem::GridPeriodItem_CellReference(std::string& value, int row, int col) {
    if (col == kCenterColumn) {
        std::string code;
        std::string description;
        SelectReference(kCenterReference, code, description, value);
        value = code;
    } else if (col == kItemColumn) {
        data::gRefCenterCode = CellText(row, kCenterColumn);
        if (!HasCenterForItem(data::gRefCenterCode)) return;
        data::gRefByCenter = true;
        value = PickItemWithKeywords(data::gRefCenterCode, row, kItemColumn);
    } else if (col == kElementColumn) {
        std::string code;
        std::string description;
        SelectReference(kElementReference, code, description, value);
        if (!description.empty() && description != CellText(row, col)) value = description;
    } else if (col == kAmountColumn) {
        if (CellText(row, kElementColumn).empty()) {
            TellElementFirst();
            return;
        }
        OpenDetailsFromGrid(value, row);
    }
}

DetailAnswer frmPeriodItem::OpenDetails(int row, bool readOnly) {
    DetailAnswer answer = EditDetails({.kind = entries::KindOfDetail(ElementDetailFlag(row)),
                                       .readOnly = readOnly,
                                       .entry = BudgetedEntryOf(row),
                                       .centerCode = CellText(row, kCenterColumn),
                                       .lines = mWaiting.texts});
    if (answer.exported) mFailureNotice.Succeeded(Work::Export);
    return answer;
}

void frmPeriodItem::OpenDetailsFromGrid(std::string& value, int row) {
    if (ElementDetailFlag(row) == 0) return;
    DetailAnswer answer;
    {
        const FlagScope open(mDetailOpen);
        answer = OpenDetails(row, false);
    }
    if (!answer.total.empty()) value = answer.total;
    if (answer.lines.script.IsEmpty()) return;
    mWaiting = std::move(answer.lines);
    GridPeriodItem.SetRowTouched(true);
}

// Whether an amount is typed or made of detail lines depends on its element.
void frmPeriodItem::TellElementFirst() {
    data::ShowInformation("请先填充要素", data::kModuleCaption);
}

std::string frmPeriodItem::PickItemWithKeywords(const std::string& centerCode, int row, int col) {
    const std::optional<PickedItem> item = PickItemOfCenter(centerCode, CellText(row, kItemColumn));
    if (!item) return "";
    // The item can still be refused or given up: its name and keywords then give way to those of
    // the item that stays.
    mPickedItem.Picked(GridPeriodItem, row, col, item->code, kItemNameColumn, kKey2Column);
    GridPeriodItem.SetText(row, col + 1, item->name);
    if (data::gItemKeyCount > 0) GridPeriodItem.SetText(row, col + 2, item->key1);
    if (data::gItemKeyCount == 2) GridPeriodItem.SetText(row, col + 3, item->key2);
    // With another keyword of the same item the item's cell does not change, but the row does.
    GridPeriodItem.SetRowTouched(true);
    return item->code;
}

void frmPeriodItem::GridPeriodItem_CellValidate(std::string& text, GridAnswer& answer, int row,
                                                int col) {
    data::gRefCenterCode = CellText(row, kCenterColumn);
    if (col == kAmountColumn) return;
    answer = ValidateCell(row, col, true, text) ? GridAnswer::Accept : GridAnswer::Refuse;
}

void frmPeriodItem::GridPeriodItem_RowValidate(GridAnswer& answer, int row, int& col) {
    if (mDetailOpen) return;
    if (mHistory.WayOutOf(HistoryKey(row)) == RowHistory::WayOut::Free) {
        mHistory.Forget();
        answer = GridAnswer::Accept;
        return;
    }
    answer = GridAnswer::Refuse;
    if (!ChecksRow(row, col) || !SaveRow(row, mDetailSql)) return;
    mWaiting.Forget();
    answer = GridAnswer::Accept;
}

bool frmPeriodItem::ChecksRow(int row, int& col) {
    return ChecksCells(row, col) && ChecksBudget(row);
}

bool frmPeriodItem::ChecksCells(int row, int& col) {
    const entries::AnnouncedChecks announced(TextsOf(row));
    for (int column = kDateColumn; column <= kAmountColumn; ++column) {
        std::string text = CellText(row, column);
        if (!ValidateCell(row, column, false, text)) {
            GridPeriodItem.MarkRefused(row, column);
            col = column;
            return false;
        }
    }
    return true;
}

bool frmPeriodItem::ChecksBudget(int row) {
    GridPeriodItem.SetRow(row);
    mRefusal.clear();
    mCheckedBudget.reset();
    const Money amount = Money::FromText(CellText(row, kAmountColumn));
    if (CheckOpeningBudget(amount, mRefusal, &mCheckedBudget)) return true;
    GridPeriodItem.MarkRefused(row, kAmountColumn);
    return false;
}

void frmPeriodItem::RefuseRow(int row, std::string reason) {
    mRefusal = std::move(reason);
    GridPeriodItem.MarkRefused(row, controls::Grid::kWholeRow);
}

void frmPeriodItem::GridPeriodItem_ComboDropDown(int row, int col, controls::GridDropList& list) {
    for (const std::string& keyword :
         KeywordsOfItem(CellText(row, kCenterColumn), CellText(row, kItemColumn), col)) {
        list.AddItem(keyword);
    }
}

void frmPeriodItem::GridPeriodItem_EditModeChange(bool editing) {
    const int row = GridPeriodItem.Row();
    mEditText = editing ? CellText(row, GridPeriodItem.Col()) : "";
    mEditing = editing;
    if (editing) {
        mHistory.BeginEdit(HistoryKey(row), StateOf(row));
        return;
    }
    mPickedItem.EndEdit(GridPeriodItem);
    mHistory.EndEdit(GridPeriodItem.Col(), StateOf(row));
}

void frmPeriodItem::GridPeriodItem_CellChanged(int /*row*/, int col) {
    if (col == kAmountColumn) mWaiting.Forget();
}

void frmPeriodItem::GridPeriodItem_DetailReset() {
    mWaiting.texts.clear();
}

void frmPeriodItem::GridPeriodItem_EditCheck() {
    bool ok = false;
    CheckBeforeEntry(ok);
}

void frmPeriodItem::GridPeriodItem_EnterCell() {
    mNote.clear();
    HideDetailButton();
    EnterRow();
    const int row = GridPeriodItem.Row();
    if (row == 0 || GridPeriodItem.Col() != kAmountColumn) return;
    if (CellText(row, kElementColumn).empty()) {
        TellElementFirst();
        GridPeriodItem.SetCol(kElementColumn);
        return;
    }
    const bool locked = GridPeriodItem.IsLocked(row, kAmountColumn) || GridPeriodItem.ReadOnly();
    if (ElementDetailFlag(row) != 0 && locked) PlaceDetailButton();
}

// Over the right end of the current cell, in front of the grid.
void frmPeriodItem::PlaceDetailButton() {
    const controls::Grid& grid = GridPeriodItem;
    const int cellWidth = grid.Zoomed(grid.ColumnWidth(grid.Col()));
    const int buttonWidth = grid.Zoomed(kDetailButtonWidth);
    cmdRef.SetLeft(grid.Zoomed(grid.CellLeft(grid.Col())) + cellWidth - buttonWidth - 1);
    cmdRef.SetTop(grid.Top() + grid.Zoomed(grid.CellTop(grid.Row())) + 1);
    cmdRef.SetWidth(cellWidth < buttonWidth ? cellWidth : buttonWidth);
    cmdRef.SetHeight(std::max(0, grid.Zoomed(grid.RowHeight(grid.Row())) - 1));
    cmdRef.SetVisible(true);
}

// A button that goes away with the focus on it would leave the keys nowhere.
void frmPeriodItem::HideDetailButton() {
    cmdRef.SetVisible(false);
    if (ActiveControl() == &cmdRef) GridPeriodItem.SetFocus();
}

void frmPeriodItem::GridPeriodItem_ViewChange() {
    mNote.clear();
    if (cmdRef.Visible()) HideDetailButton();
    EnterRow();
}

// A row that was never saved can be given up; a saved one is deleted by its command alone.
void frmPeriodItem::GridPeriodItem_AbandonRow(int row) {
    if (GridPeriodItem.RowData(row) != 0) return GoBackToStored(row);
    if (!AskDelete(row)) return;
    mWaiting.Forget();
    mHistory.Forget();
    GridPeriodItem.RemoveItem(row);
    mFailureNotice.GivenUp(Work::Save);
}

void frmPeriodItem::CheckBeforeEntry(bool& ok) {
    ok = false;
    try {
        const auto anyRow = [](const StatementText& statement) {
            return !gConn->OpenRecordSet(statement)->EndOfFile();
        };
        const int row = GridPeriodItem.Row();
        const char* message = nullptr;
        switch (GridPeriodItem.Col()) {
            case kCenterColumn:
                if (!anyRow(StatementText("select * from PM_DutyCenter"))) {
                    message = "责任中心不存在，请先设置责任中心！";
                }
                break;
            case kItemColumn: {
                data::gRefCenterCode = CellText(row, kCenterColumn);
                StatementText statement(
                    "select PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub "
                    "inner join Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  "
                    "where cCenterCode = '");
                statement.Inside(data::gRefCenterCode) << "'";
                if (!anyRow(statement)) message = "请先输入责任中心，然后再输入项目！";
                break;
            }
            case kElementColumn:
                if (!anyRow(StatementText("select * from PM_ItemElement"))) {
                    message = "项目要素不存在，请先设置项目要素！";
                }
                break;
            case kAmountColumn:
                if (CellText(row, kElementColumn).empty()) {
                    message = "请先输入项目要素，然后再输入期初值！";
                }
                break;
            default:
                break;
        }
        if (message != nullptr) {
            data::ShowInformation(message);
        } else {
            ok = true;
        }
    } catch (...) {
        data::ReportTrapped("CheckBeforeEntry");
    }
}

}  // namespace kelvane::ui
