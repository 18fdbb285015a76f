// RowFinder: which rows of a list are shown, and in which order: those that contain what the
// operator typed, sorted by a column or as the query gave them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/reference/pick_rows.h"

namespace kelvane::reference {

class RowFinder {
public:
    // `rows` must outlive the finder. All of them are shown at first.
    explicit RowFinder(const PickRows& rows);

    const std::vector<std::size_t>& Shown() const { return mShown; }

    // Shows the rows with `typed` in one of their texts or in a text's pinyin initials, without
    // regard to letter case; blanks at both ends do not count.
    void Narrow(std::string_view typed);

    // Sorts by a column: numbers as numbers, texts by letters or pinyin initials; equal ones stay
    // in the query's order.
    void SortBy(int column, bool descending);

private:
    std::string_view KeyOf(std::size_t row) const;
    void MakeKeys();
    std::vector<bool> FindInAll() const;

    const PickRows& mRows;
    std::string mNeedle;
    std::vector<std::size_t> mOrder;  // every row
    std::vector<std::size_t> mShown;
    // Search keys, made when the operator types for the first time.
    std::string mKeys;
    std::vector<std::size_t> mKeyEnds;
};

}  // namespace kelvane::reference
