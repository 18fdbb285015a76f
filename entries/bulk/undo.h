// Taking a batch back: its rows become what they were before it, by the same rules and as a batch
// of its own. What somebody changed since stays as it is.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "entries/bulk/batch_run.h"

namespace kelvane::entries {

// The batch cannot be taken back; says in Chinese which and why.
class UndoRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

struct UndoRequest : BatchRequest {
    int batch = 0;  // the one to take back
    ImportProgress progress;
};

struct UndoResult : BatchResult {
    // Rows that stay as they are, and why. When there is no other, these are findings.
    std::vector<BulkFinding> kept;
    // The entries that rows, counted from 1, are about.
    std::vector<std::int64_t> identities;
};

// `masterData`: the account's own. Over gConn and gEnv. Throws as RunBatch() does, and UndoRefused,
// with nothing written.
UndoResult UndoBatch(MasterData& masterData, const UndoRequest& request);

}  // namespace kelvane::entries
