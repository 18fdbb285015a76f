#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "entries/ledger/code_pattern.h"
#include "entries/ledger/ledger_tables.h"

namespace kelvane::entries {

using platform::TableReader;

namespace {

struct PatternColumn {
    int column;
    std::string MappedAccount::*pattern;
};
constexpr std::array kPatterns{PatternColumn{kItemColumn, &MappedAccount::item},
                               PatternColumn{kElementColumn, &MappedAccount::element},
                               PatternColumn{kCenterColumn, &MappedAccount::center}};

TableShape MapShape() {
    TableShape shape;
    shape.columnCount = kLedgerAccountColumn + 1;
    shape.firstMark = kLedgerAccountColumn;
    shape.secondMark = kItemColumn;
    shape.otherMarks = {kElementColumn, kCenterColumn};
    shape.columns = {
        {kLedgerAccountColumn, CellUse::Code, true, {"科目", "科目编码", "科目代码"}},
        {kItemColumn, CellUse::Code, false, {"项目编号"}},
        {kElementColumn, CellUse::Text, false, {"要素"}},
        {kCenterColumn, CellUse::Code, false, {"责任中心"}},
    };
    IndexTitles(shape);
    return shape;
}

class MapBuilding {
public:
    MapBuilding(const TableReader& reader, BulkTable table)
        : mReader(reader), mTable(std::move(table)) {}

    MapReading Run(const TableShape& shape) {
        if (mTable.titleRow > 0) TellMissing(shape);
        for (const BulkRow& row : mTable.rows) TakeRow(row);
        std::ranges::stable_sort(mTable.findings, {}, &PlacedFinding::row);
        mReading.findings = std::move(mTable.findings);
        mReading.notes = std::move(mTable.notes);
        return std::move(mReading);
    }

private:
    void TellMissing(const TableShape& shape) {
        for (const TableColumn& column : shape.columns) {
            if (mTable.places[static_cast<std::size_t>(column.column)].column > 0) continue;
            Note(mTable.titleRow, 0, "没有列“" + column.titles.front() + "”，各行都不限这一项");
        }
    }

    void TakeRow(const BulkRow& row) {
        const auto text = [&](int column) -> const std::string& {
            return row.texts[static_cast<std::size_t>(column)];
        };
        MappedAccount line;
        line.account = AccountOf(text(kLedgerAccountColumn));
        if (line.account.empty() && !IsRefused(row.number, kLedgerAccountColumn)) {
            Find(row.number, kLedgerAccountColumn, Found(Rule::LedgerAccountEmpty));
        }
        if (line.account.find('*') != std::string::npos) {
            Note(row.number, kLedgerAccountColumn,
                 "科目“" + line.account + "”中的“*”不代表任何编码，科目须逐个写明");
        }
        for (const PatternColumn& each : kPatterns) {
            line.*each.pattern = PatternOf(text(each.column));
            if (IsPattern(line.*each.pattern)) continue;
            Find(row.number, each.column, Found(Rule::LedgerPattern, line.*each.pattern));
        }
        TellUnreached(row.number, line);
        mReading.map.push_back(std::move(line));
        mRows.push_back(row.number);
    }

    void TellUnreached(int row, const MappedAccount& line) {
        const auto earlier = std::ranges::find_if(
            mReading.map, [&](const MappedAccount& each) { return CoversAll(each, line); });
        if (earlier == mReading.map.end()) return;
        const auto place = static_cast<std::size_t>(earlier - mReading.map.begin());
        const bool isSame = CoversAll(line, *earlier);
        Note(row, 0,
             std::string(isSame ? "与第 " : "用不到：第 ") + std::to_string(mRows[place]) +
                 (isSame ? " 行的条件相同，以在前的一行（科目" : " 行（科目") + earlier->account +
                 (isSame ? "）为准" : "）已经包括了这一行的所有期初"));
    }

    bool IsRefused(int row, int column) const {
        const int place = mTable.places[static_cast<std::size_t>(column)].column;
        return std::ranges::any_of(mTable.findings, [&](const PlacedFinding& each) {
            return each.row == row && each.column == place;
        });
    }
    void Find(int row, int column, Finding finding) {
        mTable.findings.push_back(Placed(mReader, mTable, row, column, std::move(finding)));
    }
    void Note(int row, int column, std::string text) {
        mTable.notes.push_back({PlaceOf(mReader, mTable, row, column), std::move(text)});
    }

    const TableReader& mReader;
    BulkTable mTable;
    MapReading mReading;
    std::vector<int> mRows;
};

}  // namespace

MapReading ReadLedgerMap(TableReader& reader, const CodeProposal& propose) {
    const TableShape shape = MapShape();
    BulkTable table =
        ReadBulkTable(reader, shape, {.hidden = HiddenRows::Take, .propose = propose});
    return MapBuilding(reader, std::move(table)).Run(shape);
}

}  // namespace kelvane::entries
