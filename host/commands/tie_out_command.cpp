// kelvane summary --against

#include <iostream>

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

int Compare(const SummaryArguments& arguments, const AccountPlace& account,
            const std::string& map) {
    BulkTerminal terminal(Translated("Reading the account"));
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    LoadContext();
    const TieOutReport report = TieOutWithFiles(
        arguments.ledger, map, {account.Name(), arguments.batches, arguments.signOff});
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

}  // namespace

int RunTieOut(const SummaryArguments& arguments) {
    const AccountPlace account = arguments.account.ForReading();
    try {
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
