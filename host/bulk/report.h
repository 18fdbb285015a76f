// What an import did, or would have done: for the operator as a workbook, for programs as JSON.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "entries/bulk/file_master_data.h"
#include "entries/bulk/table_reading.h"
#include "platform/date_time.h"
#include "platform/money.h"

namespace kelvane::host {

struct RowCounts {
    std::size_t rows = 0;
    std::size_t added = 0;
    std::size_t changed = 0;
    std::size_t deleted = 0;
    std::size_t unchanged = 0;
    std::size_t refused = 0;
};

struct ImportReport : RowCounts {
    std::string account;  // fit to be shown
    std::string file;
    platform::DateTime time;
    std::string operatorName;
    bool dryRun = false;
    std::optional<platform::Money> sum;  // none: more than an amount can be
    std::vector<entries::PlacedFinding> findings;
    std::vector<entries::TableNote> notes;
    std::vector<entries::BudgetUse> budgets;
    std::optional<int> batch;  // none: nothing was written
};

// One object; amounts are texts, so that none is rounded. Without a line break at its end.
std::string JsonOf(const ImportReport& report);

// Whether a report is written to a file of that name, by its extension.
bool IsReportFile(const std::string& path);

// Writes it to `path` (UTF-8): .xlsx, with the sheets 结果, 问题 and 预算, or .json. Throws
// output::FileFailure, also for another extension.
void WriteReport(const std::string& path, const ImportReport& report);

}  // namespace kelvane::host
