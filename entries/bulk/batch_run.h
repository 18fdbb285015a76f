// A batch: rows that were planned together are written in one transaction, or none of them, and the
// journal knows of it before and after. A dry run does the same and rolls back.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "entries/bulk/import_plan.h"
#include "entries/master_data.h"
#include "platform/batch_journal.h"

namespace kelvane::entries {

struct BatchRequest {
    // Who, when and what, for the journal; its changes are filled in here.
    platform::BatchIntent head;
    // Kept for all that is written. A dry run only looks into it, and can do without.
    platform::BatchJournal* journal = nullptr;
    bool dryRun = false;
};

struct BatchResult {
    ImportPlan plan;
    // The first new row's identity, the others follow; what they would get in a dry run.
    std::int32_t firstIdentity = 0;
    std::optional<int> batch;
    // What is no fault but ought to be known.
    std::vector<std::string> notes;

    bool HasFindings() const { return !plan.findings.empty(); }
};

// Asked again when another operator wrote meanwhile. A plan with findings, or with nothing to
// write, ends the batch.
using Planner = std::function<ImportPlan()>;

// Writes what `plan` says. `masterData`: the account's own. Over gConn. Throws
// platform::DatabaseError and its kin, and platform::JournalFailed, with nothing written;
// platform::CommitInDoubt where that cannot be told; and what `plan` throws.
BatchResult RunBatch(const Planner& plan, MasterData& masterData, const BatchRequest& request);

// What forbids any writing, as findings of the table as a whole. Over gEnv; errors are thrown.
std::vector<BulkFinding> LocksFound();

// Whether nothing in the journal tells how `batch` ended, though it is over.
bool IsOpen(const platform::Batch& batch);

// The journal's batches; of one that is open the account tells how it ended, and the journal is
// told unless `dryRun`. What cannot be told either way keeps no outcome. Over gConn; errors are
// thrown.
std::vector<platform::Batch> DecidedBatches(platform::BatchJournal& journal, bool dryRun);

// Whether one of `batches` took that one back.
bool IsUndone(const std::vector<platform::Batch>& batches, int number);

}  // namespace kelvane::entries
