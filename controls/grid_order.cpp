// The grid's views: its rows in the order of a column, and without those that a filter puts aside.
// The rows themselves move, so that everywhere else a row's number is its place on the screen.
#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <utility>

#include "controls/grid.h"
#include "controls/joined_cells.h"
#include "platform/blanks.h"
#include "platform/money.h"

namespace kelvane::controls {

namespace {

// What a row is sorted by. Texts that are no number or date come behind those that are.
struct SortKey {
    enum class Kind { Number, Text, Blank };
    Kind kind = Kind::Blank;
    std::int64_t number = 0;
    std::string_view text;
};

std::optional<std::int64_t> AmountIn(std::string_view text) {
    try {
        return platform::Money::FromText(text).Units();
    } catch (const platform::MoneyTextError&) {
        return std::nullopt;
    } catch (const platform::MoneyOverflow&) {
        return std::nullopt;
    }
}

// Year, month and day as they stand, whatever is between them.
std::optional<std::int64_t> DayIn(std::string_view text) {
    constexpr std::string_view kDigits = "0123456789";
    constexpr std::size_t kMaxDigits = 4;
    constexpr int kParts = 3;
    std::int64_t day = 0;
    for (int part = 0; part < kParts; ++part) {
        const std::size_t length = std::min(text.find_first_not_of(kDigits), text.size());
        if (length == 0 || length > kMaxDigits) return std::nullopt;
        std::int64_t number = 0;
        for (const char digit : text.substr(0, length)) number = number * 10 + (digit - '0');
        day = day * 100 + number;
        const bool ends = length == text.size();
        if (ends != (part == kParts - 1)) return std::nullopt;
        text.remove_prefix(ends ? length : length + 1);
    }
    return day;
}

SortKey KeyOf(std::string_view cell, InputKind kind) {
    const std::string_view text = platform::WithoutOuterBlanks(cell);
    if (text.empty()) return {};
    std::optional<std::int64_t> number;
    if (kind == InputKind::Number) number = AmountIn(text);
    if (kind == InputKind::Date) number = DayIn(text);
    if (number) return {SortKey::Kind::Number, *number, {}};
    return {SortKey::Kind::Text, 0, text};
}

// Less than 0 when `left` comes first, 0 for equal ones; blank ones are last either way.
int Compare(const SortKey& left, const SortKey& right, bool descending) {
    const bool blank = left.kind == SortKey::Kind::Blank;
    if (blank != (right.kind == SortKey::Kind::Blank)) return blank ? 1 : -1;
    int order = 0;
    if (left.kind != right.kind) {
        order = left.kind < right.kind ? -1 : 1;
    } else if (left.kind == SortKey::Kind::Number) {
        order = left.number < right.number ? -1 : left.number > right.number ? 1 : 0;
    } else {
        order = left.text.compare(right.text);
    }
    return descending ? -order : order;
}

}  // namespace

void Grid::MarkFound(int row, int col) {
    Assign(mFoundRow, row);
    Assign(mFoundCol, col);
}

bool Grid::IsFilteredBy(int col) const {
    return std::find(mFilteredColumns.begin(), mFilteredColumns.end(), col) !=
           mFilteredColumns.end();
}

bool Grid::MayRearrange() {
    return !mSource && (!mEditing || FinishEdit() == GridAnswer::Accept);
}

// Lets `change` move rows; the current one, if it is still there, stays the current one.
void Grid::Rearrange(const std::function<void()>& change) {
    const bool hasCurrent = mRow >= mFixedRows && mRow < Rows();
    const int place = hasCurrent ? RowAt(mRow).place : -1;
    change();
    const auto current =
        std::find_if(mRows.begin() + std::min(mFixedRows, Rows()), mRows.end(),
                     [&](const GridRow& row) { return hasCurrent && row.place == place; });
    mRow = current == mRows.end() ? 0 : static_cast<int>(current - mRows.begin());
    if (mRow == 0) mRowTouched = false;
    mSelectionEnd = mCol;
    mSelection.End();
    mMarkedRow = 0;
    mRefused = {};
    mFoundRow = 0;
    mTopRow = mFixedRows;
    Touch();
    ShowCurrent();
    if (ViewChange) Raise("ViewChange", ViewChange);
}

void Grid::SortShown() {
    struct Keyed {
        SortKey key;
        int place;
        std::size_t row;
    };
    const auto first = static_cast<std::size_t>(std::min(mFixedRows, Rows()));
    std::vector<Keyed> order;
    order.reserve(mRows.size() - first);
    for (std::size_t row = first; row < mRows.size(); ++row) {
        const SortKey key =
            mSortColumn < 0 ? SortKey()
                            : KeyOf(CellIn(mRows[row].cells, mSortColumn), Input(mSortColumn).kind);
        order.push_back({key, mRows[row].place, row});
    }
    std::sort(order.begin(), order.end(), [this](const Keyed& left, const Keyed& right) {
        const int compared = Compare(left.key, right.key, mSortDescending);
        return compared != 0 ? compared < 0 : left.place < right.place;
    });
    std::vector<GridRow> sorted;
    sorted.reserve(order.size());
    for (const Keyed& each : order) sorted.push_back(std::move(mRows[each.row]));
    std::move(sorted.begin(), sorted.end(), mRows.begin() + static_cast<std::ptrdiff_t>(first));
}

void Grid::BringBack() {
    mRows.insert(mRows.end(), std::make_move_iterator(mAside.begin()),
                 std::make_move_iterator(mAside.end()));
    mAside = {};
    mFilteredColumns.clear();
    SumColumn(mSummedColumn);
}

bool Grid::SortRows(int col, bool descending) {
    ColumnAt(col);
    if (!MayRearrange()) return false;
    mSortColumn = col;
    mSortDescending = descending;
    Rearrange([this] { SortShown(); });
    return true;
}

bool Grid::UnsortRows() {
    if (!MayRearrange()) return false;
    mSortColumn = -1;
    Rearrange([this] { SortShown(); });
    return true;
}

bool Grid::FilterRows(int col, const std::function<bool(int row)>& keeps) {
    ColumnAt(col);
    if (!MayRearrange()) return false;
    std::vector<bool> kept(mRows.size(), true);
    for (int row = mFixedRows; row < Rows(); ++row) {
        kept[static_cast<std::size_t>(row)] = keeps(row);
    }
    if (!IsFilteredBy(col)) mFilteredColumns.push_back(col);
    Rearrange([&] {
        std::vector<GridRow> shown;
        for (std::size_t row = 0; row < mRows.size(); ++row) {
            (kept[row] ? shown : mAside).push_back(std::move(mRows[row]));
        }
        mRows = std::move(shown);
        SumColumn(mSummedColumn);
    });
    return true;
}

bool Grid::UnfilterRows() {
    if (!MayRearrange()) return false;
    Rearrange([this] {
        BringBack();
        SortShown();
    });
    return true;
}

bool Grid::HasRowData(int data) const {
    const auto hasData = [data](const GridRow& row) { return row.data == data; };
    const auto first = mRows.begin() + std::min<std::ptrdiff_t>(mFixedRows, std::ssize(mRows));
    return std::any_of(first, mRows.end(), hasData) ||
           std::any_of(mAside.begin(), mAside.end(), hasData);
}

void Grid::EndViews() {
    if (mSortColumn < 0 && !IsFiltered()) return;
    mSortColumn = -1;
    Rearrange([this] {
        BringBack();
        SortShown();
    });
}

}  // namespace kelvane::controls
