#include "entries/bulk/table_reading.h"

#include <algorithm>
#include <set>
#include <utility>
#include <variant>

#include "entries/bulk/merged_rows.h"
#include "entries/bulk/title_row.h"

namespace kelvane::entries {

using platform::CellKind;
using platform::TableCell;
using platform::TableReader;
using platform::TableRow;

namespace {

bool IsBlank(const TableCell& cell) {
    return cell.kind == CellKind::Blank ||
           (cell.kind == CellKind::Text && PlainTitle(cell.text).empty());
}

class Reading {
public:
    Reading(TableReader& reader, const TableShape& shape, const TableReading& how)
        : mReader(reader), mShape(shape), mHow(how) {}

    BulkTable Run();

private:
    bool TakeRow(const TableRow& row);
    void TakeEntry(const TableRow& row);
    bool HasContent(const TableRow& row) const;
    void NoteUntitled(const TableRow& row);
    void TellAbove();
    void TellHidden();
    int PlaceOfColumn(const TableColumn& column) const {
        return mTable.places[static_cast<std::size_t>(column.column)].column;
    }

    TableReader& mReader;
    const TableShape& mShape;
    const TableReading& mHow;
    BulkTable mTable;
    std::vector<int> mAbove;
    std::set<int> mTitled;
    std::set<int> mUntitled;
    int mFirstHidden = 0;
};

// False ends the reading.
bool Reading::TakeRow(const TableRow& row) {
    if (mHow.columns) {
        if (row.number <= mTable.titleRow) return true;
    } else if (mTable.titleRow == 0) {
        if (row.position > kLastTitleRow) return false;
        if (!IsTitleRow(row, mShape)) {
            mAbove.push_back(row.number);
            return true;
        }
        TellAbove();
        for (const TableCell& cell : row.cells) {
            if (!IsBlank(cell)) mTitled.insert(cell.column);
        }
        return TakeTitles(mReader, row, mShape, mTable);
    }
    if (!mHow.columns) NoteUntitled(row);
    if (!HasContent(row)) return true;
    if (row.hidden && mTable.hiddenRows++ == 0) mFirstHidden = row.number;
    if (!row.hidden || mHow.hidden == HiddenRows::Take) TakeEntry(row);
    return true;
}

bool Reading::HasContent(const TableRow& row) const {
    return std::any_of(mShape.columns.begin(), mShape.columns.end(), [&](const TableColumn& each) {
        const int place = PlaceOfColumn(each);
        return place > 0 && !IsBlank(row.At(place));
    });
}

void Reading::TakeEntry(const TableRow& row) {
    if (mShape.mostRows > 0 && mTable.rows.size() == mShape.mostRows) {
        throw platform::TableRefused("多于 " + std::to_string(mShape.mostRows) +
                                     " 行，期初没有这么多编号");
    }
    BulkRow& taken = mTable.rows.emplace_back();
    taken.number = row.number;
    taken.texts.resize(static_cast<std::size_t>(mShape.columnCount));
    for (const TableColumn& column : mShape.columns) {
        const int place = PlaceOfColumn(column);
        if (place == 0) continue;
        auto text = TextOfCell(row.At(place), column, mShape.noNumber, mReader.HasTypedCells(),
                               mHow.propose);
        if (auto* finding = std::get_if<Finding>(&text)) {
            mTable.findings.push_back(
                Placed(mReader, mTable, row.number, column.column, std::move(*finding)));
            mTable.findings.back().given = row.At(place).text;
        } else {
            taken.texts[static_cast<std::size_t>(column.column)] =
                std::get<std::string>(std::move(text));
        }
    }
}

// A column without a title is told once it has something in it.
void Reading::NoteUntitled(const TableRow& row) {
    for (const TableCell& cell : row.cells) {
        if (mTitled.contains(cell.column) || IsBlank(cell)) continue;
        if (!mUntitled.insert(cell.column).second) continue;
        mTable.notes.push_back(
            {mReader.Place(mTable.sheet, row.number, cell.column, {}), "没有读入没有标题的列"});
    }
}

void Reading::TellAbove() {
    if (mAbove.empty()) return;
    mTable.notes.push_back({mReader.Place(mTable.sheet, mAbove.front(), 0, {}),
                            "没有读入标题以上的 " + std::to_string(mAbove.size()) + " 行"});
}

void Reading::TellHidden() {
    if (mTable.hiddenRows == 0) return;
    std::string place = mReader.Place(mTable.sheet, mFirstHidden, 0, {});
    const std::string count = std::to_string(mTable.hiddenRows);
    if (mHow.hidden == HiddenRows::Refuse) {
        mTable.findings.push_back(
            {std::move(place), mFirstHidden, 0, {}, Found(Rule::FileHidden, count)});
    } else {
        const bool taken = mHow.hidden == HiddenRows::Take;
        mTable.notes.push_back(
            {std::move(place), (taken ? "读入了隐藏的 " : "没有读入隐藏的 ") + count + " 行"});
    }
}

BulkTable Reading::Run() {
    mTable.sheet = ChooseSheet(mReader, mShape, mHow.sheet, mHow.taken);
    if (mHow.columns) {
        mTable.titleRow = mHow.columns->titleRow;
        mTable.places = mHow.columns->places;
    }
    const auto merged =
        mReader.Read(mTable.sheet, [this](const TableRow& row) { return TakeRow(row); });
    if (mTable.titleRow == 0 && !mHow.columns) {
        mTable.findings.push_back({mReader.Place(mTable.sheet, 0, 0, {}),
                                   0,
                                   0,
                                   {},
                                   Found(Rule::FileNoTitles, TitleMarks(mShape))});
        return std::move(mTable);
    }
    TellHidden();
    FindMergedRows(mReader, merged, mTable);
    if (mHow.columns) {
        // Whatever the titles are: nobody went by them.
        std::erase_if(mTable.findings,
                      [this](const PlacedFinding& each) { return each.row == mTable.titleRow; });
    }
    std::stable_sort(mTable.findings.begin(), mTable.findings.end(),
                     [](const PlacedFinding& a, const PlacedFinding& b) {
                         return std::pair(a.row, a.column) < std::pair(b.row, b.column);
                     });
    return std::move(mTable);
}

}  // namespace

BulkTable ReadBulkTable(TableReader& reader, const TableShape& shape, const TableReading& how) {
    return Reading(reader, shape, how).Run();
}

std::string PlaceOf(const TableReader& reader, const BulkTable& table, int row, int column) {
    return Placed(reader, table, row, column, Finding{}).place;
}

PlacedFinding Placed(const TableReader& reader, const BulkTable& table, int row, int column,
                     Finding finding) {
    BulkTable::Place place;
    if (!table.places.empty()) place = table.places[static_cast<std::size_t>(column)];
    if (finding.column == 0) finding.column = column;
    return {reader.Place(table.sheet, row, place.column, place.title), row, place.column,
            place.title, std::move(finding)};
}

}  // namespace kelvane::entries
