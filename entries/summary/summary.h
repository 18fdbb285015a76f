// Counts and sums of the account's entries by the fields that a controller asks for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "entries/entry_record.h"
#include "entries/summary/exact_sum.h"
#include "platform/money.h"

namespace kelvane::entries {

enum class SummaryField { Item, Element, Center, Keyword, Month };

// "item,element": by the names of the fields, in their order. Throws std::invalid_argument for a
// name that is unknown or stands twice; an empty text is no field, the grand total alone.
std::vector<SummaryField> SummaryFieldsOf(std::string_view names);

// One value of a field: a code (of a keyword field both keywords, of a month "2025-01") and the
// name that belongs to it, as far as there is one.
struct SummaryValue {
    std::string code;
    std::string name;
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
    std::optional<SummaryBudget> budget;   // of rows of exactly one item and element
    std::vector<std::int32_t> identities;  // of its entries, ascending
};

struct Summary {
    std::vector<SummaryField> fields;
    std::vector<SummaryRow> rows;
};

// Sums up all entries of the account by `fields`, in one snapshot. Over gConn and gEnv, with a
// number of statements that does not depend on the number of entries. Throws
// platform::DatabaseError and its kin.
Summary SummarizeAccount(std::span<const SummaryField> fields);

// The titles of a summary's columns, as its window and its files show them.
std::vector<std::string> SummaryTitles(const Summary& summary);
// The texts of one row beneath those titles; amounts with two decimals or, where they have more,
// with all four, so that none is shown in part.
std::vector<std::string> SummaryTexts(const Summary& summary, const SummaryRow& row);

}  // namespace kelvane::entries
