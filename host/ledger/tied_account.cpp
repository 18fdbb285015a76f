#include "host/ledger/tied_account.h"

#include <stdexcept>
#include <utility>

#include "adapters/journal/folder_journal.h"
#include "adapters/output/formats/table_export.h"
#include "data/login_context.h"
#include "entries/check/check.h"
#include "entries/summary/summary.h"
#include "host/ledger/ledger_files.h"
#include "host/ledger/sign_off.h"
#include "host/surroundings/local_time.h"

namespace kelvane::host {

void WriteSheet(const SheetPlace& place, const TieOutReport* tieOut) {
    SignOff content;
    content.account = place.account;
    content.time = LocalNow();
    content.batches = journal::FolderJournal(place.batches).Batches();
    content.tieOut = tieOut;
    content.check = entries::CheckAccount();
    const entries::Summary summary = entries::SummarizeAccount({});
    content.entries = summary.rows.back().entries;
    content.sum = summary.rows.back().sum;
    WriteSignOff(place.file, content);
}

TieOutReport TieOutWithFiles(const std::string& trial, const std::string& map,
                             const SheetPlace& place) {
    TieOutReport report;
    report.account = place.account;
    report.trialFile = trial;
    report.mapFile = map;
    entries::LedgerTables tables = ReadLedgerFiles(trial, map);
    report.findings = std::move(tables.findings);
    report.notes = std::move(tables.notes);
    if (!report.findings.empty()) return report;
    const platform::Snapshot snapshot(*data::gConn);
    report.result = entries::TieOutAccount(tables.trial, tables.map);
    if (!place.file.empty()) WriteSheet(place, &report);
    return report;
}

std::function<bool(const std::string& trial, const std::string& map)> SignOffService(
    AccountPlace account, platform::PrintSurroundings& surroundings) {
    return [account = std::move(account), &surroundings](const std::string& trial,
                                                         const std::string& map) {
        const auto file =
            surroundings.ChooseFile({"签字表", "期初核对签字表", {{"PDF 文档", "pdf"}}});
        if (!file) return false;
        const SheetPlace place{account.Name(), BatchFolderOf(account), *file};
        // The tables were changed between the comparison that is shown and this one.
        if (!TieOutWithFiles(trial, map, place).findings.empty()) {
            throw std::runtime_error(trial + "、" + map + "：不能使用");
        }
        return true;
    };
}

}  // namespace kelvane::host
