// kelvane summary --against, --sign-off

#include <iostream>

#include "data/login_context.h"
#include "host/account/session.h"
#include "host/bulk/figure_file.h"
#include "host/commands/bulk_output.h"
#include "host/commands/commands.h"
#include "host/ledger/tied_account.h"
#include "host/surroundings/absent_windows.h"
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

SheetPlace PlaceOfSheet(const SummaryArguments& arguments, const AccountPlace& account) {
    return {account.Name(), arguments.batches, arguments.signOff};
}

int Compare(const SummaryArguments& arguments, const AccountPlace& account,
            const std::string& map) {
    BulkTerminal terminal(Translated("Reading the account"));
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    LoadContext();
    const TieOutReport report =
        TieOutWithFiles(arguments.ledger, map, PlaceOfSheet(arguments, account));
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
    WriteSheet(PlaceOfSheet(arguments, account), nullptr);
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
