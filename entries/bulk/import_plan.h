// ImportPlan: what becomes of each row of a file, after all of them were checked in one pass, and
// what was found. Nothing is locked and nothing is written.
#pragma once

#include <cstddef>
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
    RowFate fate = RowFate::Refused;
    std::optional<EntryRecord> before;  // of a row to be changed or deleted
    std::optional<EntryRecord> after;   // of a new row, without its identity, and of a changed one
};

struct ImportPlan {
    std::vector<PlannedRow> rows;  // by the file's entries
    std::vector<BulkFinding> findings;
    std::vector<BudgetUse> budgets;  // when they were asked for
    std::vector<RecordedTotal> totals;

    std::size_t Count(RowFate fate) const;
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
