// BulkRules: what a row of a table must be. The rules are the windows' own; beside them stand those
// of what nobody can type there: a name that belongs to another code, keywords that are none of the
// item's, an amount that is not what its lines come to.
#pragma once

#include <optional>
#include <vector>

#include "entries/bulk/bulk_entry.h"
#include "entries/bulk/file_master_data.h"
#include "entries/entry_record.h"

namespace kelvane::entries {

class BulkRules {
public:
    // `masterData` outlives this; its errors are passed on.
    explicit BulkRules(FileMasterData& masterData) : mMasterData(masterData) {}

    // The record that `entry` becomes; nothing when something was found, or when cells of it are
    // refused already. What is found goes to `findings`, but for the refused cells.
    std::optional<EntryRecord> Check(const BulkEntry& entry, std::vector<BulkFinding>& findings);

    // Whether the stored `entry` may be deleted.
    void CheckDeletion(const BulkEntry& row, const EntryRecord& stored,
                       std::vector<BulkFinding>& findings);

private:
    MasterData& mMasterData;
};

}  // namespace kelvane::entries
