#include "ui/entry_list/entry_grid.h"

#include <algorithm>
#include <array>
#include <memory>
#include <string>

#include "data/login_context.h"
#include "data/number_format.h"
#include "entries/announced_queries.h"
#include "entries/entry.h"
#include "entries/opening_period.h"
#include "entries/unreadable_rows.h"

namespace kelvane::ui {

using controls::Alignment;
using controls::ColumnInput;
using controls::Grid;
using controls::InputKind;
using data::gEnv;
using platform::RecordSet;
using platform::StatementText;
using platform::Value;
using enum entries::EntryColumn;

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

// Columns 4, 5 and 6 take their headers, and 5 and 6 their widths, from the item class. With more
// than two keyword fields column 5 has its width but no header. Dates and amounts have no greatest
// length: cut short, they would be other dates and amounts.
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

void AppendEntry(Grid& grid, ElementDetails& details, const RecordSet& entry,
                 const StatementText& elementQuery) {
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
    details.Add(identity, static_cast<std::int16_t>(detail));
    const int row = grid.AddItem(cells);
    grid.SetRowHeight(row, kRowHeight);
    grid.SetRowData(row, identity);
}

std::string UnreadableEntries(const entries::UnreadableRows& found) {
    return "有 " + std::to_string(found.count) + " 行期初的日期或金额无法识别，第一行是期初编号 " +
           found.firstIdentity + "。";
}

void AppendEntries(Grid& grid, ElementDetails& details, RecordSet& rows) {
    const auto codes = entries::ReadAll(rows, ElementCode);
    entries::AnnouncedQueries elements(gEnv->DataAccess(), codes.size(), [&](std::size_t i) {
        return ElementOf(i < codes.size() ? codes[i] : ElementCode(rows));
    });
    details.Reserve(static_cast<std::size_t>(rows.RecordCount()));
    try {
        for (; !rows.EndOfFile(); rows.MoveNext()) {
            AppendEntry(grid, details, rows, elements.Next());
        }
    } catch (...) {
        // From the row that failed on.
        entries::TellUnreadableRows(rows, {"mQC"}, {"dDate"}, UnreadableEntries);
    }
}

}  // namespace

void LayOutEntryGrid(Grid& grid) {
    std::string itemNameCaption;
    const auto caption = Query(StatementText(
        "select ctext from fitemstructure where cfield_name='citemname' and citem_class='97'"));
    if (!caption->EndOfFile()) itemNameCaption = caption->Field(0).ToText();

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
    grid.SumColumn(kAmountColumn);
    grid.SetText(0, kItemNameColumn, itemNameCaption);
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

void FillEntryGrid(Grid& grid, ElementDetails& details) {
    const auto rows = Query(StatementText(
        "select PM_ItemQC.iEleVid,PM_ItemQC.dDate,PM_ItemQC.cItemCode,fitemss97.citemname,"
        "cKeyCode1,cKeyCode2,cCenterCode,cDigest,cElementCode,mQC from PM_ItemQC inner join "
        "fitemss97 on fitemss97.citemcode = PM_ItemQC.cItemCode order by PM_ItemQC.cItemCode "
        "asc"));
    AppendEntries(grid, details, *rows);
}

void PaintLocked(Grid& grid, int row, int firstCol, int lastCol) {
    for (int col = firstCol; col <= lastCol; ++col) {
        grid.SetCellColor(row, col, data::gColorLocked);
    }
}

void LockEntryRows(Grid& grid) {
    for (int row = 1; row < grid.Rows(); ++row) {
        PaintLocked(grid, row, kItemNameColumn, kKey2Column);
    }
    const int rows = grid.Rows();
    entries::AnnouncedQueries settlements(
        gEnv->DataAccess(), static_cast<std::size_t>(std::max(rows - 1, 0)), [&](std::size_t i) {
            const int row = static_cast<int>(i) + 1;
            return entries::SettlementQuery(grid.Text(row, kItemColumn),
                                            grid.Text(row, kKey1Column),
                                            grid.Text(row, kKey2Column));
        });
    for (int row = 1; row < rows; ++row) {
        if (entries::IsSettled(settlements.Next()))
            PaintLocked(grid, row, kDateColumn, kAmountColumn);
    }
}

}  // namespace kelvane::ui
