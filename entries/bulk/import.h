// An import: all rows of a file are checked, then all of them are written as one batch, or none.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "entries/bulk/batch_run.h"
#include "entries/bulk/import_plan.h"
#include "platform/money.h"

namespace kelvane::entries {

struct ImportRequest : BatchRequest {
    bool again = false;  // also when the file was imported before
    bool tellBudgets = false;
    // What whoever made the file says of it.
    std::vector<std::int64_t> expectedRows;
    std::vector<platform::Money> expectedSums;
    ImportProgress progress;
};

struct ImportResult : BatchResult {
    std::optional<platform::Money> sum;  // SumOf()
};

// What the rows that `file` brings come to, as far as their amounts can be read; none: more than an
// amount can be.
std::optional<platform::Money> SumOf(const BulkEntries& file);

// When the file of this hash was imported before, a sentence each; imports that were undone do not
// count. Over gConn. Throws platform::DatabaseError and platform::JournalFailed.
std::vector<std::string> FormerImports(const std::string& hash, platform::BatchJournal& journal);

// Checks and writes `file`. `masterData`: the account's own. Over gConn and gEnv. Throws
// platform::DatabaseError and its kin, platform::JournalFailed and ImportCancelled, with nothing
// written; platform::CommitInDoubt where that cannot be told.
ImportResult RunImport(const BulkEntries& file, MasterData& masterData,
                       const ImportRequest& request);

}  // namespace kelvane::entries
