// An entry with its lines as the journal keeps it, and what such images tell of a batch that has
// no outcome.
#pragma once

#include <optional>

#include "entries/entry_record.h"
#include "platform/batch_journal.h"

namespace kelvane::entries {

platform::RowImage ImageOf(const EntryRecord& record);

// Throws std::invalid_argument and std::range_error for an image that is none of ours.
EntryRecord RecordOf(const platform::RowImage& image);

// Whether the account has what the batch was to write: one row that it has tells, for a batch is
// written whole or not at all. Nothing when neither what was before nor what was to be is there.
// `batch`: with its changes. Over gConn; errors are thrown.
std::optional<platform::BatchOutcome> OutcomeInAccount(const platform::Batch& batch);

}  // namespace kelvane::entries
