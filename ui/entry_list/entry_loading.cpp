// Opening the list: layout, re-sum of entries kept in detail, loading, the entry lock, new rows.
#include <algorithm>
#include <array>
#include <exception>

#include "data/date_text.h"
#include "data/login_context.h"
#include "data/messages.h"
#include "data/number_format.h"
#include "data/text_conversion.h"
#include "entries/announced_queries.h"
#include "entries/opening_period.h"
#include "ui/entry_list/entry_list.h"

namespace kelvane::ui {

using controls::Alignment;
using controls::ColumnInput;
using controls::InputKind;
using data::gEnv;
using platform::DateTime;
using platform::RecordSet;
using platform::StatementText;
using platform::Value;

namespace {

constexpr int kHeaderHeight = 400;
constexpr int kRowHeight = 300;

struct ColumnLayout {
    int col;
    const char* header;
    int width;
    Alignment alignment;
    ColumnInput input;
    bool reference;
    bool list;
};

// Columns 4, 5 and 6 take their headers, and 5 and 6 their widths, from the item class. More than
// two keyword fields leave no header for the first one, but its width. Dates and amounts have no
// greatest length: cut short, they would be others.
constexpr std::array kColumns{
    ColumnLayout{0, "", 0, Alignment::Left, {}, false, false},
    ColumnLayout{kDateColumn, "日期", 1300, Alignment::Left, {InputKind::Date, 0}, false, false},
    ColumnLayout{
        kCenterColumn, "责任中心", 1200, Alignment::Left, {InputKind::Text, 60}, true, false},
    ColumnLayout{
        kItemColumn, "项目编号", 1200, Alignment::Left, {InputKind::Text, 60}, true, false},
    ColumnLayout{kItemNameColumn, "", 2500, Alignment::Left, {InputKind::Text, 255}, false, false},
    ColumnLayout{kKey1Column, "", 0, Alignment::Left, {InputKind::Text, 60}, false, true},
    ColumnLayout{kKey2Column, "", 0, Alignment::Left, {InputKind::Text, 60}, false, true},
    ColumnLayout{
        kElementColumn, "要素", 1500, Alignment::Left, {InputKind::Text, 255}, true, false},
    ColumnLayout{
        kDigestColumn, "摘要", 1500, Alignment::Left, {InputKind::Text, 255}, false, false},
    ColumnLayout{kAmountColumn,
                 "未结转期初",
                 1500,
                 Alignment::Right,
                 {InputKind::Number, 0, 2, true},
                 true,
                 false},
};
constexpr int kKeywordWidth = 1500;

std::unique_ptr<RecordSet> Query(const StatementText& statement) {
    return gEnv->DataAccess().Query(statement);
}

std::string ElementCode(const RecordSet& entry) {
    return entry.Field("cElementCode").ToText();
}

StatementText ElementOf(const std::string& code) {
    StatementText statement(
        "select cElementName,iElementDetail from PM_ItemElement where cElementCode = '");
    statement.Inside(code) << "'";
    return statement;
}

}  // namespace

void frmPeriodItem::Form_Load() {
    ResetToDesign();
    // The login came before this window, which could not hear of it then.
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
}

void frmPeriodItem::AllowEntry(bool allowed) {
    Toolbar1.Button("Add")->SetEnabled(allowed);
    Toolbar1.Button("Delete")->SetEnabled(allowed);
    GridPeriodItem.SetReadOnly(!allowed);
}

// The window is one instance: what an earlier opening left is undone.
void frmPeriodItem::ResetToDesign() {
    mFailureNotice.Clear();
    // A list that cannot be loaded must not show the entries of an earlier opening.
    GridPeriodItem.SetRows(0);
    GridPeriodItem.SetCols(kEntryColumnCount);
    GridPeriodItem.SetRows(1);
    GridPeriodItem.SetRowTouched(false);
    HideDetailButton();
    for (controls::ToolbarButton& button : Toolbar1.Buttons()) button.SetEnabled(true);
    // Until it is known whether entries may be made: the opening can fail before that.
    AllowEntry(false);
    CTBCtrl1.Refresh();
    mWaiting.Forget();
    mStore.ForgetDoubts();
    mPickedItem.Forget();
    mSendingOpenKeys = false;
}

void frmPeriodItem::LayOutGrid() {
    mItemNameCaption.clear();
    const auto caption = Query(StatementText(
        "select ctext from fitemstructure where cfield_name='citemname' and citem_class='97'"));
    if (!caption->EndOfFile()) mItemNameCaption = caption->Field(0).ToText();

    controls::Grid& grid = GridPeriodItem;
    grid.SetRows(0);
    grid.SetDefaultRowHeight(kRowHeight);
    grid.SetCols(kEntryColumnCount);
    grid.SetRows(2);
    grid.SetFixedRows(1);
    grid.SetFixedCols(1);
    grid.SetBackColor(data::gColorWhite);
    grid.SetFixedColor(data::gColorPink);
    grid.SetLockedColor(data::gColorLocked);
    grid.SetRowHeight(0, kHeaderHeight);
    for (const ColumnLayout& column : kColumns) {
        grid.SetText(0, column.col, column.header);
        grid.SetColumnWidth(column.col, column.width);
        grid.SetColumnAlignment(column.col, column.alignment);
        if (column.col > 0) grid.SetFixedRowAlignment(column.col, Alignment::Center);
        grid.SetColumnInput(column.col, column.input);
        grid.SetColumnReference(column.col, column.reference);
        grid.SetColumnList(column.col, column.list);
    }
    grid.SetText(0, kItemNameColumn, mItemNameCaption);
    const int keywords = data::gItemKeyCount;
    if (keywords > 0) grid.SetColumnWidth(kKey1Column, kKeywordWidth);
    if (keywords == 1 || keywords == 2) {
        grid.SetText(0, kKey1Column, data::gItemKeyField1 + " (关键字)");
    }
    if (keywords == 2) {
        grid.SetText(0, kKey2Column, data::gItemKeyField2 + " (关键字)");
        grid.SetColumnWidth(kKey2Column, kKeywordWidth);
    }
    grid.RemoveItem(1);
    grid.SetRow(0);
    grid.SetCol(1);
    grid.SetTopRow(1);
}

void frmPeriodItem::AppendEntry(const RecordSet& entry, const StatementText& elementQuery) {
    const auto element = Query(elementQuery);
    const bool known = !element->EndOfFile();

    const Value date = entry.Field("dDate");
    const platform::Money amount = entry.Field("mQC").ToMoney();
    std::string cells;
    // A tab in a text would move the cells behind it.
    const auto append = [&cells](std::string text) {
        std::replace(text.begin(), text.end(), '\t', ' ');
        cells += '\t';
        cells += text;
    };
    append(date.IsNull() ? "" : date.ToDateTime().DateText('-'));
    for (const char* name : {"cCenterCode", "citemcode", "citemname", "cKeyCode1", "cKeyCode2"}) {
        append(entry.Field(name).ToText());
    }
    append(known ? element->Field(0).ToText() : "");
    append(entry.Field("cDigest").ToText());
    append(amount.IsZero() ? "0.00" : data::NumFormatText(Value(amount), data::kMoneyKind, true));

    const auto identity = static_cast<std::int32_t>(entry.Field("iEleVid").ToInteger());
    const std::int64_t detail = known ? element->Field(1).ToInteger() : 0;
    mElementDetails.Add(std::to_string(identity), static_cast<std::int16_t>(detail));
    const int row = GridPeriodItem.AddItem(cells);
    GridPeriodItem.SetRowHeight(row, kRowHeight);
    GridPeriodItem.SetRowData(row, identity);
}

void frmPeriodItem::PaintRow(int row, int firstCol, int lastCol) {
    for (int col = firstCol; col <= lastCol; ++col) {
        GridPeriodItem.SetCellColor(row, col, data::gColorLocked);
    }
}

void frmPeriodItem::LockRows() {
    for (int row = 1; row < GridPeriodItem.Rows(); ++row) {
        PaintRow(row, kItemNameColumn, kKey2Column);
    }
    const int rows = GridPeriodItem.Rows();
    entries::AnnouncedQueries settlements(
        gEnv->DataAccess(), static_cast<std::size_t>(std::max(rows - 1, 0)), [&](std::size_t i) {
            const int row = static_cast<int>(i) + 1;
            return entries::SettlementQuery(CellText(row, kItemColumn), CellText(row, kKey1Column),
                                            CellText(row, kKey2Column));
        });
    for (int row = 1; row < rows; ++row) {
        if (entries::IsSettled(settlements.Next())) PaintRow(row, kDateColumn, kAmountColumn);
    }
}

void frmPeriodItem::AppendEntries(RecordSet& rows) {
    const auto codes = entries::ReadAll(rows, ElementCode);
    entries::AnnouncedQueries elements(gEnv->DataAccess(), codes.size(), [&](std::size_t i) {
        return ElementOf(i < codes.size() ? codes[i] : ElementCode(rows));
    });
    mElementDetails.Reserve(static_cast<std::size_t>(rows.RecordCount()));
    for (; !rows.EndOfFile(); rows.MoveNext()) AppendEntry(rows, elements.Next());
}

void frmPeriodItem::LoadEntryGrid() {
    try {
        mElementDetails = {};
        LayOutGrid();
        entries::EntryStore::ReSum(gEnv->DataAccess());
        const auto rows = Query(StatementText(
            "select PM_ItemQC.iEleVid,PM_ItemQC.dDate,PM_ItemQC.cItemCode,fitemss97.citemname,"
            "cKeyCode1,cKeyCode2,cCenterCode,cDigest,cElementCode,mQC from PM_ItemQC inner join "
            "fitemss97 on fitemss97.citemcode = PM_ItemQC.cItemCode order by PM_ItemQC.cItemCode "
            "asc"));
        AppendEntries(*rows);
        LockRows();
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
        if (Query(StatementText("select count(*) from PM_ItemElement"))->Field(0).ToInteger() ==
            0) {
            data::ShowInformation("不存在可用的项目要素，请先设置项目要素！");
            return;
        }
        const std::string date = entries::OpeningBound().AddDays(-1).DateText('-');
        controls::Grid& grid = GridPeriodItem;
        // The new row becomes the current one, so the present one is left first.
        if (!grid.LeaveRow()) return;
        if (grid.Row() >= 1) grid.SetCol(kElementColumn);
        const int row = grid.AddItem("\t" + date);
        PaintRow(row, kItemNameColumn, kKey2Column);
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
    const std::string key = std::to_string(GridPeriodItem.RowData(row));
    constexpr std::int16_t kNoLines = 0;
    return data::CollectionHasKey(key, mElementDetails) ? mElementDetails.Item(key) : kNoLines;
}

}  // namespace kelvane::ui
