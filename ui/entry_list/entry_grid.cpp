#include "ui/entry_list/entry_grid.h"

#include <algorithm>
#include <memory>
#include <string>

#include "controls/joined_cells.h"
#include "data/login_context.h"
#include "entries/announced_queries.h"
#include "entries/entry.h"
#include "entries/opening_period.h"
#include "entries/stored_entry.h"
#include "entries/unreadable_rows.h"
#include "ui/common/list_layout.h"

namespace kelvane::ui {

using controls::Grid;
using data::gEnv;
using platform::RecordSet;
using platform::StatementText;
using enum entries::EntryColumn;

namespace {

std::unique_ptr<RecordSet> Query(const StatementText& statement) {
    return gEnv->DataAccess().Query(statement);
}

// The columns of the entries' query. By place: a name would be looked up for every cell.
enum Column {
    kIdentity,
    kDate,
    kItemCode,
    kItemName,
    kKeyCode1,
    kKeyCode2,
    kCenterCode,
    kDigest,
    kElementCode,
    kAmount,
};

std::string ElementCode(const RecordSet& entry) {
    return entry.Field(kElementCode).ToText();
}

StatementText ElementOf(const std::string& code) {
    StatementText statement(
        "select cElementName,iElementDetail from PM_ItemElement where cElementCode = '");
    statement.Inside(code) << "'";
    return statement;
}

ShownElement AskElement(const StatementText& query) {
    const auto element = Query(query);
    if (element->EndOfFile()) return {};
    return {.name = element->Field(0).ToText(),
            .detail = static_cast<std::int16_t>(element->Field(1).ToInteger())};
}

void AppendEntry(Grid& grid, ElementDetails& details, const RecordSet& entry,
                 const StatementText& elementQuery) {
    const ShownElement element = AskElement(elementQuery);
    std::string cells;
    // A tab in a text would move the cells behind it.
    const auto append = [&cells](std::string text) {
        std::replace(text.begin(), text.end(), '\t', ' ');
        cells += '\t';
        cells += text;
    };
    append(entries::DateCell(entry.Field(kDate)));
    for (const Column column : {kCenterCode, kItemCode, kItemName, kKeyCode1, kKeyCode2}) {
        append(entry.Field(column).ToText());
    }
    append(element.name);
    append(entry.Field(kDigest).ToText());
    append(entries::AmountCell(entry.Field(kAmount)));

    const auto identity = static_cast<std::int32_t>(entry.Field(kIdentity).ToInteger());
    details.Add(identity, element.detail);
    const int row = grid.AddItem(cells);
    grid.SetRowHeight(row, kListRowHeight);
    grid.SetRowData(row, identity);
    details.AddName(ElementCode(entry), controls::CellIn(grid.RowCells(row), kElementColumn));
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

ShownElement ReadElement(const std::string& code) {
    return AskElement(ElementOf(code));
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
