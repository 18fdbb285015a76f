#include "ui/common/entry_columns.h"

#include <array>
#include <string>

#include "data/login_context.h"
#include "entries/entry.h"
#include "ui/common/list_layout.h"

namespace kelvane::ui {

using controls::Alignment;
using controls::Grid;
using controls::InputKind;
using enum entries::EntryColumn;

namespace {

// Columns 4, 5 and 6 take their headers, and 5 and 6 their widths, from the item class. With more
// than two keyword fields column 5 has its width but no header. Dates and amounts have no greatest
// length: cut short, they would be other dates and amounts.
constexpr std::array kColumns{
    ListColumn{0, "", 0, Alignment::Left, {}, false, false},
    ListColumn{kDateColumn, "日期", 1300, Alignment::Left, {InputKind::Date, 0}, false, false},
    ListColumn{
        kCenterColumn, "责任中心", 1200, Alignment::Left, {InputKind::Text, 60}, true, false},
    ListColumn{kItemColumn, "项目编号", 1200, Alignment::Left, {InputKind::Text, 60}, true, false},
    ListColumn{kItemNameColumn, "", 2500, Alignment::Left, {InputKind::Text, 255}, false, false},
    ListColumn{kKey1Column, "", 0, Alignment::Left, {InputKind::Text, 60}, false, true},
    ListColumn{kKey2Column, "", 0, Alignment::Left, {InputKind::Text, 60}, false, true},
    ListColumn{kElementColumn, "要素", 1500, Alignment::Left, {InputKind::Text, 255}, true, false},
    ListColumn{kDigestColumn, "摘要", 1500, Alignment::Left, {InputKind::Text, 255}, false, false},
    ListColumn{kAmountColumn,
               "未结转期初",
               1500,
               Alignment::Right,
               {InputKind::Number, 0, 2, true},
               true,
               false},
};
constexpr int kKeywordWidth = 1500;

}  // namespace

void LayOutEntryGrid(Grid& grid) {
    std::string itemNameCaption;
    const auto caption = data::gEnv->DataAccess().Query(platform::StatementText(
        "select ctext from fitemstructure where cfield_name='citemname' and citem_class='97'"));
    if (!caption->EndOfFile()) itemNameCaption = caption->Field(0).ToText();

    grid.SetRows(0);
    grid.SetCols(kEntryColumnCount);
    grid.SetRows(2);
    grid.SetFixedRows(1);
    grid.SetFixedCols(1);
    StyleList(grid);
    LayOutColumns(grid, kColumns);
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

}  // namespace kelvane::ui
