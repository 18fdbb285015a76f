// kelvane summary, with or without --sign-off

#include <iostream>

#include "data/login_context.h"
#include "entries/summary/summary.h"
#include "host/account/session.h"
#include "host/bulk/figure_file.h"
#include "host/bulk/summary_report.h"
#include "host/commands/bulk_output.h"
#include "host/commands/commands.h"
#include "host/ledger/tied_account.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

void Summarize(const SummaryArguments& arguments, const AccountPlace& account) {
    BulkTerminal terminal(Translated("Reading the account"));
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    const platform::Snapshot snapshot(*data::gConn);
    const entries::Summary summary = entries::SummarizeAccount(arguments.fields);
    const FigureTable table = FigureTableOf(summary);
    if (!arguments.file.empty()) WriteFigureFile(arguments.file, table);
    terminal.End();
    for (const std::string& note : summary.notes) Tell(note);
    if (arguments.json) {
        std::cout << JsonOf(summary) << '\n';
    } else {
        for (const std::string& line : LinesOf(table)) std::cout << line << '\n';
    }
    if (arguments.signOff.empty()) return;
    LoadContext();
    WriteSheet({account.Name(), arguments.batches, arguments.signOff}, nullptr);
}

}  // namespace

int RunSummary(const SummaryArguments& arguments) {
    const AccountPlace account = arguments.account.ForReading();
    try {
        CheckWritten({arguments.file, arguments.signOff}, {arguments.account.Name()});
        Summarize(arguments, account);
        return 0;
    } catch (const std::exception& failed) {
        return FailFor(account, failed);
    }
}

}  // namespace kelvane::host
