#include "adapters/reference/row_finder.h"

#include <algorithm>
#include <numeric>

#include "platform/search_key.h"

namespace kelvane::reference {

namespace {

std::string_view WithoutOuterBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// Orders plain decimals ("-12.5") without a sign.
int CompareMagnitudes(std::string_view left, std::string_view right) {
    const std::size_t leftWhole = std::min(left.find('.'), left.size());
    const std::size_t rightWhole = std::min(right.find('.'), right.size());
    if (leftWhole != rightWhole) return leftWhole < rightWhole ? -1 : 1;
    return left.compare(right);
}

// No number comes first.
bool IsSmaller(std::string_view left, std::string_view right) {
    if (left.empty() || right.empty()) return left.empty() && !right.empty();
    const bool leftNegative = left.front() == '-';
    const bool rightNegative = right.front() == '-';
    if (leftNegative != rightNegative) return leftNegative;
    if (!leftNegative) return CompareMagnitudes(left, right) < 0;
    return CompareMagnitudes(left.substr(1), right.substr(1)) > 0;
}

template <typename Key, typename Smaller>
void Sort(std::vector<std::size_t>& order, const std::vector<Key>& keys, bool descending,
          Smaller smaller) {
    std::stable_sort(order.begin(), order.end(), [&](std::size_t left, std::size_t right) {
        return descending ? smaller(keys[right], keys[left]) : smaller(keys[left], keys[right]);
    });
}

}  // namespace

RowFinder::RowFinder(const PickRows& rows) : mRows(rows), mOrder(rows.Count()) {
    std::iota(mOrder.begin(), mOrder.end(), std::size_t{0});
    mShown = mOrder;
}

void RowFinder::MakeKeys() {
    if (!mKeyEnds.empty()) return;
    mKeyEnds.reserve(mRows.Count());
    for (std::size_t row = 0; row < mRows.Count(); ++row) {
        for (int column = 0; column < mRows.Columns(); ++column) {
            platform::AppendSearchKey(mKeys, mRows.Cell(row, column));
        }
        mKeyEnds.push_back(mKeys.size());
    }
}

std::string_view RowFinder::KeyOf(std::size_t row) const {
    const std::size_t begin = row == 0 ? 0 : mKeyEnds[row - 1];
    return std::string_view(mKeys).substr(begin, mKeyEnds[row] - begin);
}

// The keys lie end to end and a needle holds no end of a key, so all of them are searched as one.
std::vector<bool> RowFinder::FindInAll() const {
    std::vector<bool> found(mRows.Count());
    std::size_t row = 0;
    for (std::size_t at = mKeys.find(mNeedle); at != std::string::npos;
         at = mKeys.find(mNeedle, mKeyEnds[row++])) {
        while (mKeyEnds[row] <= at) ++row;
        found[row] = true;
    }
    return found;
}

void RowFinder::Narrow(std::string_view typed) {
    const std::string folded = platform::FoldText(typed);
    const std::string needle(WithoutOuterBlanks(folded));
    if (needle == mNeedle) return;
    const bool extended = !mNeedle.empty() && needle.find(mNeedle) != std::string::npos;
    mNeedle = needle;
    if (mNeedle.empty()) {
        mShown = mOrder;
        return;
    }
    MakeKeys();
    if (extended) {
        std::erase_if(mShown, [this](std::size_t row) {
            return KeyOf(row).find(mNeedle) == std::string_view::npos;
        });
        return;
    }
    const std::vector<bool> found = FindInAll();
    mShown.clear();
    std::copy_if(mOrder.begin(), mOrder.end(), std::back_inserter(mShown),
                 [&](std::size_t row) { return found[row]; });
}

void RowFinder::SortBy(int column, bool descending) {
    std::iota(mOrder.begin(), mOrder.end(), std::size_t{0});
    if (mRows.IsNumeric(column)) {
        std::vector<std::string_view> keys;
        for (const std::size_t row : mOrder) keys.push_back(mRows.Cell(row, column));
        Sort(mOrder, keys, descending, IsSmaller);
    } else {
        std::vector<std::string> keys;
        for (const std::size_t row : mOrder)
            keys.push_back(platform::SortKey(mRows.Cell(row, column)));
        Sort(mOrder, keys, descending, std::less<>());
    }
    std::vector<bool> shown(mRows.Count());
    for (const std::size_t row : mShown) shown[row] = true;
    mShown.clear();
    std::copy_if(mOrder.begin(), mOrder.end(), std::back_inserter(mShown),
                 [&](std::size_t row) { return shown[row]; });
}

}  // namespace kelvane::reference
