// The account's entries tied to the ledger's trial balance: for each account of the ledger what it
// says, what the entries that are mapped to it come to, and the difference. Nothing is ever
// balanced.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "entries/summary/exact_sum.h"

namespace kelvane::entries {

// One line of a mapping: which ledger account stands for which entries. "*" stands for any code, at
// the end of a pattern for any ending.
struct MappedAccount {
    std::string account;
    std::string item;
    std::string element;
    std::string center;
};
using LedgerMap = std::vector<MappedAccount>;

struct TrialLine {
    std::string account;
    std::string name;
    ExactSum amount;
};
using TrialBalance = std::vector<TrialLine>;

struct TieOutRow {
    std::string account;
    std::string name;
    std::optional<ExactSum> ledger;  // none: the trial balance lacks the account
    ExactSum entriesSum;
    std::vector<std::int64_t> identities;  // of its entries, ascending
    ExactSum difference;                   // ledger less entries
    // Of the row's own entries and of the unmapped ones those whose amount is exactly the
    // difference, whatever its sign; ascending.
    std::vector<std::int64_t> candidates;
};

// An entry that no line of the map covers.
struct UnmappedEntry {
    std::int64_t identity = 0;
    std::string item;
    std::string element;  // its name, its code where it has none
    std::string center;
    ExactSum amount;
};

struct TieOut {
    std::vector<TieOutRow> rows;          // in the order of the trial balance, then of the map
    std::vector<UnmappedEntry> unmapped;  // by identity
    ExactSum unmappedSum;
    std::vector<TrialLine> unmappedAccounts;  // of the ledger, with an amount, that no line names
    // No row differs, and nothing is left over on either side.
    bool Agrees() const;
    // How many rows differ.
    std::size_t Differing() const;
};

// Ties the entries of the account to `trial`. An entry belongs to the first line of `map` that
// covers it; a line's element may be a name or a code. Over gConn, in one snapshot. Throws
// ToldFailure for an amount that cannot be read, platform::DatabaseError and its kin.
TieOut TieOutAccount(const TrialBalance& trial, const LedgerMap& map);

}  // namespace kelvane::entries
