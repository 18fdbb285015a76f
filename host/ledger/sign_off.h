// The sheet that is signed when the opening balances are done: what is in the account, how it got
// there, how it agrees with the ledger, and what the check found.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "adapters/output/layout/document_pages.h"
#include "entries/check/check.h"
#include "entries/summary/exact_sum.h"
#include "host/ledger/tie_out_report.h"
#include "platform/batch_journal.h"
#include "platform/date_time.h"

namespace kelvane::host {

struct SignOff {
    std::string account;  // fit to be shown
    platform::DateTime time;
    std::size_t entries = 0;
    entries::ExactSum sum;
    std::vector<platform::Batch> batches;
    const TieOutReport* tieOut = nullptr;  // null: nothing was compared with a ledger
    entries::CheckResult check;
};

// Unit, year and operator are those of the login.
output::Document SignOffDocument(const SignOff& content);

// Puts it in the place of `path` (UTF-8), a PDF. Throws output::FileFailure.
void WriteSignOff(const std::string& path, const SignOff& content);

}  // namespace kelvane::host
