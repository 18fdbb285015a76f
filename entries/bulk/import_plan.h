// ImportPlan: what becomes of each row of a file, after all of them were checked in one pass, and
// what was found. Nothing is locked and nothing is written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <vector>

#include "entries/bulk/bulk_entry.h"
#include "entries/bulk/file_master_data.h"
#include "entries/entry_record.h"

namespace kelvane::entries {

enum class RowFate { Refused, New, Changed, Deleted, Unchanged };

struct PlannedRow {
    int row = 0;  // as the table counts
    RowFate fate = RowFate::Refused;
    std::optional<EntryRecord> before;  // of a row to be changed or deleted
    // Of a new and of a changed row. A new one that has an identity, as one that is put back, keeps
    // it; the others get the counter's next number.
    std::optional<EntryRecord> after;

    bool NeedsNumber() const { return fate == RowFate::New && after && after->entry.identity == 0; }
    // Of a row that needs no number.
    std::int32_t Identity() const {
        return before ? before->entry.identity : after->entry.identity;
    }
};

struct ImportPlan {
    std::vector<PlannedRow> rows;  // by the file's entries
    std::vector<BulkFinding> findings;
    std::vector<BudgetUse> budgets;  // when they were asked for
    std::vector<RecordedTotal> totals;
    // Nothing is written, though it may be that nothing was found here.
    bool isRefused = false;

    std::size_t Count(RowFate fate) const;
    // How many rows need a number.
    std::size_t CountNumbers() const;
    // Whether any row is to be written.
    bool WritesAny() const;
};

// The operator ended the work; nothing was written.
class ImportCancelled : public std::runtime_error {
public:
    ImportCancelled() : std::runtime_error("导入已取消，没有写入任何内容") {}
};

// How many of how many rows are done; false ends the work.
using ImportProgress = std::function<bool(std::size_t done, std::size_t total)>;

// Checks the rows against `masterData` and each other.  Reads over gConn and gEnv; their errors,
// and those that `masterData` traps, are thrown.
ImportPlan PlanImport(const BulkEntries& file, MasterData& masterData, bool tellBudgets,
                      const ImportProgress& progress);

// A row is refused when something was found in it or in one of its lines, or a cell of it could not
// be read.
void RefuseFoundRows(const BulkEntries& file, ImportPlan& plan);

}  // namespace kelvane::entries
