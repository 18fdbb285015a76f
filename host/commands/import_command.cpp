// kelvane import

#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "adapters/journal/file_hash.h"
#include "adapters/journal/folder_journal.h"
#include "data/login_context.h"
#include "entries/account_master_data.h"
#include "entries/bulk/account_choices.h"
#include "entries/bulk/account_titles.h"
#include "entries/bulk/import.h"
#include "host/account/session.h"
#include "host/bulk/bulk_source.h"
#include "host/bulk/rejects.h"
#include "host/bulk/report.h"
#include "host/commands/bulk_output.h"
#include "host/commands/commands.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/local_time.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

using entries::PlacedFinding;

namespace {

void WriteText(const ImportReport& report) {
    for (const PlacedFinding& each : report.findings) WriteFinding(each.place, each.finding);
    WriteCounts(report);
}

ImportReport ReportOf(const ImportArguments& arguments, const AccountPlace& account,
                      const BulkSource& source, const entries::ImportRequest& request,
                      const entries::ImportResult& result) {
    const entries::ImportPlan& plan = result.plan;
    ImportReport report;
    report.account = account.Name();
    report.file = arguments.files.entries;
    report.time = request.head.time;
    report.operatorName = data::gOperatorName;
    report.dryRun = arguments.dryRun;
    static_cast<RowCounts&>(report) = CountsOf(plan);
    report.sum = result.sum;
    report.findings = source.Place(plan.findings);
    report.notes = source.Notes();
    if (!source.Origin().empty() && source.Origin() != account.ShortName()) {
        report.notes.push_back({{}, "该工作簿是从帐套 " + source.Origin() + " 导出的"});
    }
    for (const std::string& note : result.notes) report.notes.push_back({{}, note});
    report.budgets = plan.budgets;
    report.batch = result.batch;
    return report;
}

Reasons ReasonsOf(const std::vector<PlacedFinding>& findings) {
    Reasons reasons;
    for (const PlacedFinding& each : findings) {
        if (each.row > 0) reasons[each.row].push_back(each.finding.text);
    }
    return reasons;
}

// The files beside the account: what was done stays done when one cannot be written.
template <typename Write>
void WriteBeside(const std::string& path, const Write& write) {
    if (path.empty()) return;
    try {
        write();
    } catch (const std::exception& failure) {
        Tell(failure.what());
    }
}

void WriteRejected(const std::string& path, BulkSource& source,
                   const entries::ImportResult& result) {
    const PlacedFindings found = source.PlaceByTable(result.plan.findings);
    const RefusedTable entries{source.EntriesReader(), source.EntryShape(), source.Entries(),
                               ReasonsOf(found.entries)};
    if (source.Lines() == nullptr) {
        WriteRejects(path, entries, nullptr);
        return;
    }
    const RefusedTable lines{source.LinesReader(), source.LineShape(), *source.Lines(),
                             ReasonsOf(found.lines)};
    WriteRejects(path, entries, &lines);
}

platform::BatchIntent HeadOf(const ImportArguments& arguments) {
    platform::BatchIntent head;
    head.kind = "import";
    head.user = data::gLogin->UserId();
    head.time = LocalNow();
    head.file = arguments.files.entries;
    head.hash = journal::HashOfFile(arguments.files.entries);
    if (!arguments.files.lines.empty()) {
        head.linesFile = arguments.files.lines;
        head.linesHash = journal::HashOfFile(arguments.files.lines);
    }
    return head;
}

int Import(const ImportArguments& arguments, const AccountPlace& account) {
    BulkTerminal terminal(Translated("Reading the file"));
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    LoadContext();
    entries::AccountProposals proposals;
    BulkSource source(arguments.files, entries::TitlesOfAccount(),
                      {proposals.ForEntries(), proposals.ForLines()});
    const entries::BulkEntries file = entries::JoinTables(source.Entries(), source.Lines());

    journal::FolderJournal journal(arguments.batches);
    entries::ImportRequest request;
    request.head = HeadOf(arguments);
    request.journal = &journal;
    request.dryRun = arguments.dryRun;
    request.again = arguments.again;
    request.tellBudgets = arguments.json || !arguments.report.empty();
    request.expectedRows = source.ExpectedRows();
    request.expectedSums = source.ExpectedSums();
    if (arguments.expectedRows) request.expectedRows.push_back(*arguments.expectedRows);
    if (arguments.expectedSum) request.expectedSums.push_back(*arguments.expectedSum);
    request.progress = [&](std::size_t done, std::size_t total) {
        return terminal.Count(done, total);
    };
    terminal.Begin(Translated("Checking the rows"));
    entries::AccountMasterData masterData;
    const entries::ImportResult result = entries::RunImport(file, masterData, request);
    terminal.End();

    const ImportReport report = ReportOf(arguments, account, source, request, result);
    for (const entries::TableNote& note : report.notes) {
        Tell(note.place.empty() ? note.text : note.place + ": " + note.text);
    }
    // A line without an entry is refused by itself.
    const bool hasStrayLines = !file.entries.empty() && !file.strayLines.empty();
    if (report.refused > 0 || hasStrayLines) {
        WriteBeside(arguments.rejects, [&] { WriteRejected(arguments.rejects, source, result); });
    } else if (!arguments.rejects.empty()) {
        Tell(Told("No row was refused; %1 is not written.", {arguments.rejects}));
    }
    WriteBeside(arguments.report, [&] { WriteReport(arguments.report, report); });
    if (arguments.json) {
        std::cout << JsonOf(report) << '\n';
    } else {
        WriteText(report);
    }
    return report.findings.empty() ? 0 : kRefused;
}

// What is written beside must not take the place of what is read.
void CheckFiles(const ImportArguments& arguments) {
    const std::string rejectedLines =
        arguments.rejects.empty() ? std::string() : LinesPathOf(arguments.rejects);
    CheckWritten({arguments.rejects, rejectedLines, arguments.report},
                 {arguments.files.entries, arguments.files.lines, arguments.account.Name()});
}

}  // namespace

int RunImport(const ImportArguments& arguments) {
    const AccountPlace account =
        arguments.dryRun ? arguments.account.ForReading() : arguments.account;
    try {
        CheckFiles(arguments);
        return Import(arguments, account);
    } catch (const std::exception& failed) {
        return FailFor(account, failed);
    }
}

}  // namespace kelvane::host
