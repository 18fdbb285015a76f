// kelvane summary --against, --sign-off

#include <iostream>

#include "adapters/journal/folder_journal.h"
#include "data/login_context.h"
#include "entries/check/check.h"
#include "entries/summary/summary.h"
#include "host/account/session.h"
#include "host/bulk/figure_file.h"
#include "host/commands/bulk_output.h"
#include "host/commands/commands.h"
#include "host/ledger/ledger_files.h"
#include "host/ledger/sign_off.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/local_time.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

void WriteText(const TieOutReport& report) {
    for (const entries::PlacedFinding& each : report.findings) {
        WriteFinding(each.place, each.finding);
    }
    if (!report.findings.empty()) return;
    for (const std::string& line : LinesOf(FigureTableOf(report.result))) std::cout << line << '\n';
    std::cout << CountsOf(report.result) << '\n';
}

void WriteSheet(const SummaryArguments& arguments, const AccountPlace& account,
                const TieOutReport* tieOut) {
    SignOff content;
    content.account = account.Name();
    content.time = LocalNow();
    content.batches = journal::FolderJournal(arguments.batches).Batches();
    content.tieOut = tieOut;
    content.check = entries::CheckAccount();
    const entries::Summary summary = entries::SummarizeAccount({});
    content.entries = summary.rows.back().entries;
    content.sum = summary.rows.back().sum;
    WriteSignOff(arguments.signOff, content);
}

// What the account and the files say, in one snapshot.
TieOutReport TieOut(const SummaryArguments& arguments, const AccountPlace& account,
                    const std::string& map) {
    TieOutReport report;
    report.account = account.Name();
    report.trialFile = arguments.ledger;
    report.mapFile = map;
    entries::LedgerTables files = ReadLedgerFiles(arguments.ledger, map);
    report.findings = std::move(files.findings);
    report.notes = std::move(files.notes);
    if (!report.findings.empty()) return report;
    const platform::Snapshot snapshot(*data::gConn);
    report.result = entries::TieOutAccount(files.trial, files.map);
    if (!arguments.signOff.empty()) WriteSheet(arguments, account, &report);
    return report;
}

int Compare(const SummaryArguments& arguments, const AccountPlace& account,
            const std::string& map) {
    BulkTerminal terminal(Translated("Reading the account"));
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    LoadContext();
    const TieOutReport report = TieOut(arguments, account, map);
    if (report.findings.empty() && !arguments.file.empty()) {
        WriteFigureFile(arguments.file, FigureTableOf(report.result));
    }
    terminal.End();
    for (const entries::TableNote& note : report.notes) Tell(note.place + ": " + note.text);
    if (arguments.json) {
        std::cout << JsonOf(report) << '\n';
    } else {
        WriteText(report);
    }
    return report.findings.empty() && report.result.Agrees() ? 0 : kRefused;
}

// The sheet alone, behind the summary.
int SumUp(const SummaryArguments& arguments, const AccountPlace& account) {
    if (const int status = RunSummary(arguments); status != 0) return status;
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    LoadContext();
    const platform::Snapshot snapshot(*data::gConn);
    WriteSheet(arguments, account, nullptr);
    return 0;
}

}  // namespace

int RunTieOut(const SummaryArguments& arguments) {
    const AccountPlace account = arguments.account.ForReading();
    try {
        if (arguments.ledger.empty()) {
            CheckWritten({arguments.signOff}, {arguments.account.Name()});
            return SumUp(arguments, account);
        }
        const std::string map =
            arguments.map.empty() ? MapFileOf(arguments.account) : arguments.map;
        CheckWritten({arguments.file, arguments.signOff},
                     {arguments.account.Name(), arguments.ledger, map});
        return Compare(arguments, account, map);
    } catch (const std::exception& failed) {
        return FailFor(account, failed);
    }
}

}  // namespace kelvane::host
