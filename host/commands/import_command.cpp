// kelvane import

#include <algorithm>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>

#include "adapters/journal/file_hash.h"
#include "adapters/journal/folder_journal.h"
#include "data/login_context.h"
#include "entries/account_master_data.h"
#include "entries/bulk/import.h"
#include "entries/trap_watch.h"
#include "host/account/session.h"
#include "host/bulk/account_choices.h"
#include "host/bulk/bulk_source.h"
#include "host/commands/commands.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/interruption.h"
#include "host/surroundings/local_time.h"
#include "host/surroundings/progress_line.h"
#include "host/surroundings/terminal.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

using entries::PlacedFinding;
using entries::RowFate;

namespace {

constexpr int kRefused = 3;

// How far the work is, on a terminal that somebody sees.
class Terminal {
public:
    Terminal() {
        if (!ErrorsAreSeen()) return;
        mLine.emplace(std::cerr).Begin(Translated("Reading the file"));
        mTicker.emplace(*mLine);
    }

    void Begin(const std::string& work) {
        if (mLine) mLine->Begin(work);
    }
    bool Count(std::size_t done, std::size_t total) {
        if (mLine && total > 0) mLine->Count(done, total);
        return !Interruption::IsAsked();
    }
    void End() {
        mTicker.reset();
        mLine.reset();
    }

private:
    std::optional<ProgressLine> mLine;
    std::optional<ProgressTicker> mTicker;
};

// The login context as the windows have it when they open.
void LoadContext() {
    const entries::TrapWatch trapped;
    data::LoadPmStartDate();
    data::LoadItemKeyFields();
    trapped.Rethrow();
}

// The account is asked for its codes when the first number stands in place of one.
class Proposals {
public:
    BulkProposals Make() {
        return {[this](int column, std::string_view number) {
                    return entries::OnlyCodeOf(number, ForEntryColumn(Choices(), column));
                },
                [this](int column, std::string_view number) {
                    return entries::OnlyCodeOf(number, ForLineColumn(Choices(), column));
                }};
    }

private:
    const AccountChoices& Choices() {
        if (!mChoices) mChoices = ChoicesOfAccount();
        return *mChoices;
    }

    std::optional<AccountChoices> mChoices;
};

// A finding is one line, whatever stands in the file.
std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

void WriteText(const std::vector<PlacedFinding>& findings, const entries::ImportPlan& plan) {
    for (const PlacedFinding& each : findings) {
        std::cout << OneLine(each.place) << ": " << each.finding.id << ": "
                  << OneLine(each.finding.text) << '\n';
    }
    std::cout << "rows " << plan.rows.size() << ": new " << plan.Count(RowFate::New) << ", changed "
              << plan.Count(RowFate::Changed) << ", deleted " << plan.Count(RowFate::Deleted)
              << ", unchanged " << plan.Count(RowFate::Unchanged) << ", refused "
              << plan.Count(RowFate::Refused) << '\n';
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
    Terminal terminal;
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    LoadContext();
    Proposals proposals;
    BulkSource source(arguments.files, TitlesOfAccount(), proposals.Make());
    const entries::BulkEntries file = entries::JoinTables(source.Entries(), source.Lines());

    journal::FolderJournal journal(arguments.batches);
    entries::ImportRequest request;
    request.head = HeadOf(arguments);
    request.journal = &journal;
    request.dryRun = arguments.dryRun;
    request.again = arguments.again;
    request.expectedRows = source.ExpectedRows();
    request.expectedSums = source.ExpectedSums();
    if (arguments.expectedRows) request.expectedRows.push_back(*arguments.expectedRows);
    if (arguments.expectedSum) request.expectedSums.push_back(*arguments.expectedSum);
    request.progress = [&](std::size_t done, std::size_t total) {
        return terminal.Count(done, total);
    };
    terminal.Begin(Translated("Checking the rows"));
    const Interruption interruption;
    entries::AccountMasterData masterData;
    const entries::ImportResult result = entries::RunImport(file, masterData, request);
    terminal.End();

    const std::vector<PlacedFinding> findings = source.Place(result.plan.findings);
    for (const entries::TableNote& note : source.Notes()) {
        std::cerr << OneLine(note.place + ": " + note.text) << '\n';
    }
    for (const std::string& note : result.notes) std::cerr << OneLine(note) << '\n';
    WriteText(findings, result.plan);
    return findings.empty() ? 0 : kRefused;
}

}  // namespace

int RunImport(const ImportArguments& arguments) {
    const AccountPlace account =
        arguments.dryRun ? arguments.account.ForReading() : arguments.account;
    try {
        return Import(arguments, account);
    } catch (const std::exception& failed) {
        return Fail(account.AboutAccount(failed.what()));
    }
}

}  // namespace kelvane::host
