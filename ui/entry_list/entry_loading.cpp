// Opening the list: layout, re-sum of entries kept in detail, loading, the entry lock, new rows.
#include "data/login_context.h"
#include "data/messages.h"
#include "entries/opening_period.h"
#include "ui/common/entry_columns.h"
#include "ui/common/window_layout.h"
#include "ui/entry_list/entry_grid.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using data::gEnv;
using platform::StatementText;

void frmPeriodItem::Form_Load() {
    ResetToDesign();
    // They were read at the login, before this window could hear of a failure.
    if (data::gNumPointsFailed) mFailureNotice.Failed("LoadNumPoints");
    SetIconPicture(kPictureWindow);
    data::gServices->windows->SetHelpFile(HelpFilePath());
    data::gToolbarStyle = ReadToolbarStyle() == 1 ? 0 : 1;
    ApplyToolbarStyle(*this);
    CTBCtrl1.Refresh();
    data::LoadPmStartDate();
    data::LoadItemKeyFields();
    LoadEntryGrid();
    SetupToolbar();
    cmdRef.SetPicture(kPictureReference);
    CaptureGridLayout();
    // After that: columns of the operator's own widths are printed as they are shown.
    RestoreLayout(mKeptLayout, Name());
}

void frmPeriodItem::AllowEntry(bool allowed) {
    Toolbar1.Button("Add")->SetEnabled(allowed);
    Toolbar1.Button("Delete")->SetEnabled(allowed);
    GridPeriodItem.SetReadOnly(!allowed);
}

// The window is one instance: what an earlier opening left is undone.
void frmPeriodItem::ResetToDesign() {
    ForgetSaved();
    mFailureNotice.Clear();
    // A list that cannot be loaded must not show the entries of an earlier opening.
    GridPeriodItem.SetRows(0);
    GridPeriodItem.SetCols(kEntryColumnCount);
    GridPeriodItem.SetRows(1);
    GridPeriodItem.SetRowTouched(false);
    CloseSearchStrip();
    mViews.Forget();
    mNote.clear();
    HideDetailButton();
    for (controls::ToolbarButton& button : Toolbar1.Buttons()) button.SetEnabled(true);
    // Until it is known whether entries may be made: the opening can fail before that.
    AllowEntry(false);
    CTBCtrl1.Refresh();
    mWaiting.Forget();
    mHistory.Forget();
    mRefusal.clear();
    mStore.ForgetDoubts();
    mPickedItem.Forget();
    mSendingOpenKeys = false;
}

void frmPeriodItem::LoadEntryGrid() {
    try {
        mElementDetails = {};
        mCenterNames.Forget();
        LayOutEntryGrid(GridPeriodItem);
        entries::EntryStore::ReSum(gEnv->DataAccess());
        FillEntryGrid(GridPeriodItem, mElementDetails);
        LockEntryRows(GridPeriodItem);
        CTBCtrl1.Refresh();
    } catch (...) {
        data::ReportTrapped("LoadEntryGrid");
    }
}

void frmPeriodItem::SetupToolbar() {
    AllowEntry(true);
    try {
        ShowButtonImages();
        DisableMissingCommands();
        if (!entries::LocksOfList().empty()) AllowEntry(false);
    } catch (...) {
        data::ReportTrapped("SetupToolbar");
    }
    CTBCtrl1.Refresh();
}

void frmPeriodItem::AddEntryRow() {
    try {
        const auto count =
            gEnv->DataAccess().Query(StatementText("select count(*) from PM_ItemElement"));
        if (count->Field(0).ToInteger() == 0) {
            data::ShowInformation("不存在可用的项目要素，请先设置项目要素！");
            return;
        }
        const std::string date = entries::OpeningBound().AddDays(-1).DateText('-');
        controls::Grid& grid = GridPeriodItem;
        // The new row becomes the current one, so the present one is left first.
        if (!grid.LeaveRow()) return;
        if (grid.Row() >= 1) grid.SetCol(kElementColumn);
        const int row = grid.AddItem("\t" + date);
        PaintLocked(GridPeriodItem, row, kItemNameColumn, kKey2Column);
        grid.SetRow(row);
        grid.ShowCurrent();
    } catch (...) {
        data::ReportTrapped("AddEntryRow");
    }
}

bool frmPeriodItem::SelectRow(int row) {
    GridPeriodItem.SetRow(row);
    return true;
}

std::int16_t frmPeriodItem::ElementDetailFlag(int row) const {
    return mElementDetails.FlagOf(GridPeriodItem.RowData(row));
}

}  // namespace kelvane::ui
