// kelvane undo

#include "adapters/journal/folder_journal.h"
#include "data/login_context.h"
#include "entries/account_master_data.h"
#include "entries/bulk/undo.h"
#include "host/account/session.h"
#include "host/commands/bulk_output.h"
#include "host/commands/commands.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/local_time.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

std::string PlaceOf(const entries::UndoResult& result, int row) {
    if (row == 0) return "entry";
    return "entry " + std::to_string(result.identities[static_cast<std::size_t>(row) - 1]);
}

int Undo(const UndoArguments& arguments, const AccountPlace& account) {
    BulkTerminal terminal(Translated("Reading the account"));
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    LoadContext();
    journal::FolderJournal journal(arguments.batches);
    entries::UndoRequest request;
    request.batch = arguments.batch;
    request.journal = &journal;
    request.dryRun = arguments.dryRun;
    request.head.user = data::gLogin->UserId();
    request.head.time = LocalNow();
    request.progress = [&](std::size_t done, std::size_t total) {
        return terminal.Count(done, total);
    };
    terminal.Begin(Translated("Checking the rows"));
    entries::AccountMasterData masterData;
    const entries::UndoResult result = entries::UndoBatch(masterData, request);
    terminal.End();
    for (const std::string& note : result.notes) Tell(note);
    for (const auto* findings : {&result.kept, &result.plan.findings}) {
        for (const entries::BulkFinding& each : *findings) {
            WriteFinding(PlaceOf(result, each.row), each.finding);
        }
    }
    WriteCounts(CountsOf(result.plan));
    return result.HasFindings() ? kRefused : 0;
}

}  // namespace

int RunUndo(const UndoArguments& arguments) {
    const AccountPlace account =
        arguments.dryRun ? arguments.account.ForReading() : arguments.account;
    try {
        return Undo(arguments, account);
    } catch (const std::exception& failed) {
        return FailFor(account, failed);
    }
}

}  // namespace kelvane::host
