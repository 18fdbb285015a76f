// Leaving a row: its checks, its budget and its saving.
#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/floor.h"
#include "bench/row_leaving.h"
#include "bench/samples.h"

namespace kelvane::bench {

namespace {

using ui::frmPeriodItem;

constexpr std::int64_t kManyEntries = 100'000;
// New rows need identities that are left.
constexpr std::int64_t kSomeEntries = 10'000;
constexpr double kLimitOfLeaving = 1.3;

// What saving an existing row ends with.
std::string SavingOf(const controls::Grid& grid, int row) {
    const auto text = [&](int col) { return grid.Text(row, col); };
    return SavingNote(grid.RowData(row),
                      {text(ui::kDateColumn), text(ui::kCenterColumn), text(ui::kItemColumn),
                       text(ui::kKey1Column), text(ui::kKey2Column),
                       ElementCode(text(ui::kElementColumn)), text(ui::kDigestColumn), "1.00"});
}

void LeavingExistingRow(benchmark::State& state, Preparing preparing) {
    const std::string account = AccountWith(kManyEntries);
    drive::StatementLog log;
    Samples samples;
    const auto measure = [&](frmPeriodItem& form, const EntryWindows& windows) {
        const int row = PlainRow(form);
        log.Take();
        std::int64_t amount = 1;
        LeaveChanged(form, windows, row, amount);
        std::vector<std::string> noted = log.Take();
        noted.push_back(SavingOf(form.GridPeriodItem, row));
        const std::vector<PlainStatement> statements = PlainStatementsOf(noted);
        Floor floor(account, preparing);
        for (auto _ : state) {
            const double floorSeconds = floor.Run(statements);
            const double ourSeconds = LeaveChanged(form, windows, row, ++amount);
            state.SetIterationTime(ourSeconds);
            samples.Add(floorSeconds, ourSeconds);
        }
    };
    ShowList(account, kManyEntries, measure, &log);
    samples.Report(state, "leaving an existing row" + Against(preparing) + ", us", kMicroseconds,
                   kLimitOfLeaving);
}

// Adds a row like row `model`, of amount 1, and makes it the current one.
void AddRowLike(frmPeriodItem& form, int model) {
    controls::Grid& grid = form.GridPeriodItem;
    grid.SetRow(0);
    form.AddEntryRow();
    const int row = grid.Row();
    for (int col = ui::kCenterColumn; col < ui::kAmountColumn; ++col) {
        grid.SetText(row, col, grid.Text(model, col));
    }
    SetAmount(form, row, 1);
}

void LeavingNewRow(benchmark::State& state, Preparing preparing) {
    const std::string account = NewAccountWith(kSomeEntries);
    drive::StatementLog log;
    Samples samples;
    const auto measure = [&](frmPeriodItem& form, const EntryWindows& windows) {
        const int model = PlainRow(form);
        // What this entry no longer takes of its budget is there for the new ones.
        LeaveChanged(form, windows, model, 1);
        AddRowLike(form, model);
        log.Take();
        Leave(form, windows, model);
        const std::vector<PlainStatement> statements = PlainStatementsOf(log.Take());
        Floor floor(account, preparing);
        for (auto _ : state) {
            AddRowLike(form, model);
            const double floorSeconds = floor.Run(statements);
            const double ourSeconds = Leave(form, windows, model);
            state.SetIterationTime(ourSeconds);
            samples.Add(floorSeconds, ourSeconds);
        }
    };
    ShowList(account, kSomeEntries, measure, &log);
    samples.Report(state, "leaving a new row" + Against(preparing) + ", us", kMicroseconds,
                   kLimitOfLeaving);
}

BENCHMARK_CAPTURE(LeavingExistingRow, each, Preparing::Each)->UseManualTime()->Iterations(200);
BENCHMARK_CAPTURE(LeavingExistingRow, once, Preparing::Once)->UseManualTime()->Iterations(200);
BENCHMARK_CAPTURE(LeavingNewRow, each, Preparing::Each)->UseManualTime()->Iterations(200);
BENCHMARK_CAPTURE(LeavingNewRow, once, Preparing::Once)->UseManualTime()->Iterations(200);

}  // namespace

}  // namespace kelvane::bench
