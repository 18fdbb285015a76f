// The account tied to the ledger's files, and the sheet that is signed of it, all of one moment.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "host/account/account_place.h"
#include "host/ledger/tie_out_report.h"
#include "platform/print_surroundings.h"

namespace kelvane::host {

struct SheetPlace {
    std::string account;            // fit to be shown
    std::filesystem::path batches;  // the folder of its journal
    std::string file;               // the sheet's, a PDF (UTF-8); empty: it is not wanted
};

// Of the account that is logged in to. Writes no sheet when the tables are refused. Throws as
// ReadLedgerFiles(), entries::TieOutAccount() and WriteSignOff().
TieOutReport TieOutWithFiles(const std::string& trial, const std::string& map,
                             const SheetPlace& place);

// The sheet alone; `tieOut` may be null.
void WriteSheet(const SheetPlace& place, const TieOutReport* tieOut);

// platform::Services::writeSignOff for an account.
// `surroundings` outlives it.
std::function<bool(const std::string& trial, const std::string& map)> SignOffService(
    AccountPlace account, platform::PrintSurroundings& surroundings);

}  // namespace kelvane::host
