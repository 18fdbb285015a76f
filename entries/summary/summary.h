// Counts and sums of the account's entries by the fields that a controller asks for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "entries/summary/exact_sum.h"
#include "entries/summary/summary_fields.h"

namespace kelvane::entries {

// One value of a field: a code (of a keyword field both keywords, of a month "2025-01") and the
// name that belongs to it, as far as there is one. What differs in letter case or in blanks at its
// end alone is one value, spelt as the master data has it, else as the first entry.
struct SummaryValue {
    std::string code;
    std::string name;

    friend bool operator==(const SummaryValue&, const SummaryValue&) = default;
};

// What a version in control grants an item and element, and what entries have used of it.
struct SummaryBudget {
    ExactSum budget;
    ExactSum used;
    ExactSum left;
};

// A group of entries. Its first `values.size()` fields are the same for all of them: with as many
// values as fields it is a group itself, with fewer the subtotal behind its groups, with none the
// grand total, which stands last.
struct SummaryRow {
    std::vector<SummaryValue> values;
    std::size_t entries = 0;
    ExactSum sum;
    // Where the values come to exactly one item and element and no other row has entries of both.
    std::optional<SummaryBudget> budget;
    // Of its entries, ascending. A damaged account may have any.
    std::vector<std::int64_t> identities;
};

struct Summary {
    std::vector<SummaryField> fields;
    std::vector<SummaryRow> rows;
    std::vector<std::string> notes;  // why budgets are missing
};

// Sums up all entries of the account by `fields`, in one snapshot; groups come in the order of
// their codes. Whatever a code says that the master data does not know, the entry counts; a month
// is empty where the date is missing or cannot be read. Over gConn, with a number of statements
// that does not depend on the number of entries. Throws ToldFailure for an amount that cannot be
// read, platform::DatabaseError and its kin.
Summary SummarizeAccount(std::span<const SummaryField> fields);

// The titles of a summary's columns, as its window and its files show them: first those of texts,
// then those of figures.
std::vector<std::string> SummaryTitles(const Summary& summary);
// How many of them are titles of texts.
std::size_t SummaryTextColumns(const Summary& summary);
// The texts of one row beneath those titles; amounts with two decimals or, where they have more,
// with all four, so that none is shown in part.
std::vector<std::string> SummaryTexts(const Summary& summary, const SummaryRow& row);

}  // namespace kelvane::entries
