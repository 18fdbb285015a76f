// An import: all rows of a file are checked, then all of them are written in one transaction, or
// none. A dry run does the same and rolls back.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "entries/bulk/import_plan.h"
#include "platform/batch_journal.h"
#include "platform/money.h"

namespace kelvane::entries {

struct ImportRequest {
    // Who, when and what, for the journal; its changes are filled in here.
    platform::BatchIntent head;
    // Kept for all that is written; null in a dry run alone, which still looks into one that is
    // there for the same file.
    platform::BatchJournal* journal = nullptr;
    bool dryRun = false;
    bool again = false;  // also when the file was imported before
    bool tellBudgets = false;
    // What whoever made the file says of it.
    std::vector<std::int64_t> expectedRows;
    std::vector<platform::Money> expectedSums;
    ImportProgress progress;
};

struct ImportResult {
    ImportPlan plan;
    // Of the rows that the file brings, as far as their amounts can be read; none: more than an
    // amount can be.
    std::optional<platform::Money> sum;
    // Each new row's identity, in their order; those that they would get in a dry run.
    std::int32_t firstIdentity = 0;
    std::optional<int> batch;
    // What is no fault but ought to be known.
    std::vector<std::string> notes;

    bool HasFindings() const { return !plan.findings.empty(); }
};

// Checks and writes `file`. `masterData`: the account's own. Over gConn and gEnv. Throws
// platform::DatabaseError and its kin, platform::JournalFailed and ImportCancelled, with nothing
// written; platform::CommitInDoubt where that cannot be told.
ImportResult RunImport(const BulkEntries& file, MasterData& masterData,
                       const ImportRequest& request);

}  // namespace kelvane::entries
