// Many entries at one go: their checks and their writing, against the same statements in one
// transaction, with the questions of each row's checks asked for that row, and each asked once as
// the import asks them; and the dry run of it.
#include <algorithm>
#include <filesystem>
#include <functional>
#include <stdexcept>

#include "adapters/journal/folder_journal.h"
#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/floor.h"
#include "bench/samples.h"
#include "data/login_context.h"
#include "entries/account_master_data.h"
#include "entries/bulk/bulk_rules.h"
#include "entries/bulk/import.h"
#include "host/account/session.h"

namespace kelvane::bench {

namespace {

namespace fs = std::filesystem;

using entries::BulkEntries;
using entries::BulkEntry;

constexpr std::size_t kRows = 10'000;
constexpr std::int64_t kStoredEntries = 1'000;
constexpr double kLimit = 1.5;
constexpr double kLimitAskedOnce = 5;
constexpr double kLimitOfDryRun = 1.0;

// A copy of the account that nobody has written to.
std::string FreshCopy(const std::string& name) {
    static const std::string account = NewAccountWith(kStoredEntries);
    const fs::path copy = fs::path(account).parent_path() / name;
    for (const char* beside : {"", "-wal", "-shm", ".batches"}) {
        fs::remove_all(copy.string() + beside);
    }
    fs::copy_file(account, copy);
    return copy.string();
}

// Logs in on `account`, and does `work` with the login context as the windows have it.
void LoggedIn(const std::string& account, drive::StatementLog* statements,
              const std::function<void()>& work) {
    EntryWindows windows;
    host::Session session(host::AccountPlace::File(account), windows, statements);
    session.LogIn({}, platform::DateTime{2004, 6, 30});
    data::LoadPmStartDate();
    data::LoadItemKeyFields();
    if (statements != nullptr) statements->Take();
    work();
}

// Rows that the account takes: of each centre's items and the elements without lines by turns.
BulkEntries AcceptedRows() {
    const auto texts = [](platform::FixedText query) {
        std::vector<std::vector<std::string>> rows;
        const auto found = data::gConn->OpenRecordSet(platform::StatementText(query));
        for (; !found->EndOfFile(); found->MoveNext()) {
            auto& row = rows.emplace_back();
            for (int field = 0; field < found->FieldCount(); ++field) {
                row.push_back(found->Field(field).ToText());
            }
        }
        return rows;
    };
    const auto items = texts("select cCenterCode,cItemCode,cKeyWord1 from PM_DutycenterSub");
    const auto elements = texts("select cElementName from PM_ItemElement where iElementDetail = 0");
    BulkEntries rows;
    for (std::size_t i = 0; i < 2 * kRows; ++i) {
        const auto& item = items[i % items.size()];
        BulkEntry& row = rows.entries.emplace_back();
        row.row = static_cast<int>(i) + 2;
        row.texts.cells = {"",     "2003-12-31", item[0], item[1],
                           "",     item[2],      "",      elements[i % elements.size()][0],
                           "期初", "1.25"};
    }
    entries::AccountMasterData masterData;
    const entries::ImportPlan plan = entries::PlanImport(rows, masterData, false, {});
    BulkEntries accepted;
    for (std::size_t i = 0; i < rows.entries.size() && accepted.entries.size() < kRows; ++i) {
        if (plan.rows[i].after) accepted.entries.push_back(rows.entries[i]);
    }
    if (accepted.entries.size() < kRows) throw std::runtime_error("too few rows are accepted");
    return accepted;
}

const BulkEntries& Rows() {
    static const BulkEntries rows = [] {
        BulkEntries accepted;
        LoggedIn(FreshCopy("rows.kelvane"), nullptr, [&] { accepted = AcceptedRows(); });
        return accepted;
    }();
    return rows;
}

// Imports the rows into the account that is logged in to; the seconds it took.
double Import(const std::string& account, const BulkEntries& rows, bool dryRun) {
    journal::FolderJournal journal(fs::path(account + ".batches"));
    entries::ImportRequest request;
    request.head.kind = "import";
    request.journal = &journal;
    request.dryRun = dryRun;
    entries::AccountMasterData masterData;
    const double start = Now();
    const entries::ImportResult result = entries::RunImport(rows, masterData, request);
    const double seconds = Now() - start;
    if (result.HasFindings() || result.plan.Count(entries::RowFate::New) != kRows) {
        throw std::runtime_error("rows were refused");
    }
    return seconds;
}

// What the checks of each row ask, row by row.
void CheckEachRow(const BulkEntries& rows) {
    entries::AccountMasterData masterData;
    std::vector<entries::BulkFinding> findings;
    for (const BulkEntry& row : rows.entries) {
        entries::FileMasterData known(masterData);
        if (entries::BulkRules(known).Check(row, findings)) continue;
        throw std::runtime_error("a row was refused");
    }
}

// What an import of the rows runs, in one transaction, behind what `before` runs.
std::vector<PlainStatement> ImportStatements(const std::function<void()>& before) {
    drive::StatementLog log;
    const std::string account = FreshCopy("noted.kelvane");
    std::vector<std::string> noted;
    const BulkEntries& rows = Rows();
    LoggedIn(account, &log, [&] {
        before();
        Import(account, rows, false);
        noted = log.Take();
    });
    std::vector<PlainStatement> statements = PlainBatchOf(noted);
    const auto counter =
        std::find_if(statements.rbegin(), statements.rend(), [](const PlainStatement& each) {
            return each.text.starts_with("select cValue from PM_SettingInf");
        });
    statements.insert(std::next(counter).base(), EngineStatement("begin immediate", 0));
    statements.push_back(EngineStatement(
        "update PM_SettingInf set cValue = cast(cast(cValue as integer) + " +
            std::to_string(kRows) + " as text) where rtrim(cName) = 'NumMax_EleQc' collate nocase",
        1));
    statements.push_back(EngineStatement("commit", 2));
    return statements;
}

void Import(benchmark::State& state, const std::function<void()>& before, const std::string& metric,
            double limit) {
    const std::vector<PlainStatement> statements = ImportStatements(before);
    const BulkEntries& rows = Rows();
    Samples samples;
    for (auto _ : state) {
        const double floorSeconds =
            Floor(FreshCopy("floor.kelvane"), Preparing::Once).Run(statements);
        const std::string account = FreshCopy("ours.kelvane");
        double ourSeconds = 0;
        LoggedIn(account, nullptr, [&] { ourSeconds = Import(account, rows, false); });
        state.SetIterationTime(ourSeconds);
        samples.Add(floorSeconds, ourSeconds);
    }
    samples.Report(state, metric, kMilliseconds, limit);
}

void Importing(benchmark::State& state) {
    Import(
        state, [] { CheckEachRow(Rows()); }, "importing 10,000 entries (prepared once), ms",
        kLimit);
}

void ImportingAskedOnce(benchmark::State& state) {
    Import(
        state, [] {}, "importing 10,000 entries (asked once), ms", kLimitAskedOnce);
}

void TryingImport(benchmark::State& state) {
    const BulkEntries& rows = Rows();
    Samples samples;
    for (auto _ : state) {
        const std::string account = FreshCopy("ours.kelvane");
        double dry = 0;
        double real = 0;
        LoggedIn(account, nullptr, [&] {
            dry = Import(account, rows, true);
            real = Import(account, rows, false);
        });
        state.SetIterationTime(dry);
        samples.Add(real, dry);
    }
    samples.Report(state, "a dry run against its import, ms", kMilliseconds, kLimitOfDryRun);
}

BENCHMARK(Importing)->UseManualTime()->Iterations(9);
BENCHMARK(ImportingAskedOnce)->UseManualTime()->Iterations(9);
BENCHMARK(TryingImport)->UseManualTime()->Iterations(9);

}  // namespace

}  // namespace kelvane::bench
