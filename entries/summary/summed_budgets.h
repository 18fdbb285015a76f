// Budgets beside sums: which rows of a summary have one, and all budgets of the version in control,
// read at once.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entries/summary/exact_sum.h"
#include "entries/summary/summary_fields.h"
#include "platform/database.h"

namespace kelvane::entries {

// How many of the fields, from the first, come to one item and one element; none when these are not
// both among them.
std::optional<std::size_t> PairLevel(std::span<const SummaryField> fields);

class SummedBudgets {
public:
    // Reads them, over gConn. Throws platform::DatabaseError and its kin.
    void Read();

    // What GetItemBudget() says of item and element: the budget where they are controlled, none
    // where they are not and where it cannot be told, which is noted.
    std::optional<ExactSum> Find(std::string_view itemCode, std::string_view elementCode);

    // Why budgets are missing.
    const std::vector<std::string>& Notes() const { return mNotes; }

private:
    struct Line {
        bool isReadable = false;
        std::optional<ExactSum> budget;
    };
    using Pair = std::pair<std::string, std::string>;

    static Line LineIn(const platform::RecordSet& row);

    std::map<Pair, Line> mLines;  // by texts as the account compares them
    std::vector<std::string> mNotes;
};

}  // namespace kelvane::entries
