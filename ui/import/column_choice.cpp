#include "ui/import/column_choice.h"

#include <algorithm>
#include <utility>

#include "data/text_conversion.h"

namespace kelvane::ui {

using entries::TableColumn;
using platform::TableCell;
using platform::TableRow;

void ColumnChoice::Take(std::vector<TableRow> rows,
                        const std::optional<entries::GivenColumns>& known) {
    mRows = std::move(rows);
    mWidth = 0;
    for (const TableRow& row : mRows) {
        if (!row.cells.empty()) mWidth = std::max(mWidth, row.cells.back().column);
    }
    OfferColumns();
    ProposeTitleRow();
    ProposePlaces();
    if (!known) return;
    mTitleRow = known->titleRow;
    for (std::size_t at = 0; at < mColumns.size(); ++at) {
        mPlaces[at] = known->places[static_cast<std::size_t>(mColumns[at].column)].column;
    }
}

void ColumnChoice::OfferColumns() {
    mColumns.clear();
    for (const TableColumn& column : mShape.columns) {
        if (column.column <= entries::kRowNumberColumn || IsNamed(column)) {
            mColumns.push_back(column);
        }
    }
    std::ranges::sort(mColumns, {}, &TableColumn::column);
    mPlaces.assign(mColumns.size(), 0);
}

bool ColumnChoice::IsNamed(const TableColumn& column) const {
    return std::ranges::any_of(mRows, [&](const TableRow& row) {
        return std::ranges::any_of(row.cells, [&](const TableCell& cell) {
            const TableColumn* known = entries::FindColumn(mShape, cell.text);
            return known != nullptr && known->column == column.column;
        });
    });
}

// The row that has most of the titles; the first one when none has any.
void ColumnChoice::ProposeTitleRow() {
    std::ptrdiff_t most = -1;
    mTitleRow = 0;
    for (const TableRow& row : mRows) {
        const std::ptrdiff_t known = std::ranges::count_if(row.cells, [&](const TableCell& cell) {
            return entries::FindColumn(mShape, cell.text) != nullptr;
        });
        if (known <= most) continue;
        most = known;
        mTitleRow = row.number;
    }
}

void ColumnChoice::ProposePlaces() {
    const TableRow* titles = Titles();
    if (titles == nullptr) return;
    for (const TableCell& cell : titles->cells) {
        const TableColumn* known = entries::FindColumn(mShape, cell.text);
        for (std::size_t at = 0; at < mColumns.size(); ++at) {
            if (known != nullptr && mColumns[at].column == known->column && mPlaces[at] == 0) {
                mPlaces[at] = cell.column;
            }
        }
    }
}

std::vector<int> ColumnChoice::Rows() const {
    std::vector<int> numbers;
    for (const TableRow& row : mRows) numbers.push_back(row.number);
    return numbers;
}

void ColumnChoice::SetTitleRow(int number) {
    mTitleRow = number;
    if (std::ranges::all_of(mPlaces, [](int place) { return place == 0; })) ProposePlaces();
}

const TableRow* ColumnChoice::Titles() const {
    const auto found = std::ranges::find(mRows, mTitleRow, &TableRow::number);
    return mTitleRow == 0 || found == mRows.end() ? nullptr : &*found;
}

std::string ColumnChoice::NameOf(int place) const {
    if (place == 0) return {};
    const TableRow* titles = Titles();
    const std::string title = titles == nullptr ? std::string() : titles->At(place).text;
    return ColumnLetters(place) + (title.empty() ? "" : " " + data::Trim(title));
}

int ColumnChoice::PlaceNamed(std::string_view text) const {
    for (int place = 1; place <= mWidth; ++place) {
        if (text == NameOf(place) || text == ColumnLetters(place)) return place;
    }
    return 0;
}

std::string ColumnChoice::SampleOf(int place) const {
    for (const TableRow& row : mRows) {
        const TableCell& cell = row.At(place);
        if (row.number <= mTitleRow || cell.kind == platform::CellKind::Blank) continue;
        const bool isDate = cell.kind == platform::CellKind::Date && cell.date.IsValid();
        return isDate ? cell.date.DateText('-') : cell.text;
    }
    return {};
}

entries::GivenColumns ColumnChoice::Given() const {
    const TableRow* titles = Titles();
    entries::GivenColumns given{mTitleRow, {}};
    given.places.resize(static_cast<std::size_t>(mShape.columnCount));
    for (std::size_t at = 0; at < mColumns.size(); ++at) {
        given.places[static_cast<std::size_t>(mColumns[at].column)] = {
            mPlaces[at],
            titles == nullptr ? std::string() : entries::PlainTitle(titles->At(mPlaces[at]).text)};
    }
    return given;
}

std::string ColumnLetters(int column) {
    constexpr int kLetters = 26;
    std::string letters;
    for (; column > 0; column = (column - 1) / kLetters) {
        letters.insert(letters.begin(), static_cast<char>('A' + (column - 1) % kLetters));
    }
    return letters;
}

}  // namespace kelvane::ui
