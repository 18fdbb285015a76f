// An entry of many detail lines: opening its editor, editing a line, saving, and a key's cost.
#include <sqlite3.h>

#include <array>
#include <stdexcept>

#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/floor.h"
#include "bench/samples.h"
#include "controls/grid.h"

namespace kelvane::bench {

namespace {

using controls::GridAnswer;
using ui::frmPeriodItem;
using ui::frmQCEdit;

constexpr std::int64_t kEntries = 100;
constexpr int kEntry = 9000;
constexpr int kLines = 5'000;
constexpr int kFewLines = 50;
constexpr double kLimit = 1.5;
// An inventory item that is in no line yet.
constexpr int kSpare = 10'000;

constexpr int kCodeColumn = 0;
constexpr int kQuantityColumn = 5;

std::string ItemCode(int number) {
    return "L" + std::to_string(kSpare + number);
}

// Gives the account `kEntry`, an entry of `lines` lines, and spare items beside those in them.
void AddLongEntry(const std::string& account, int lines) {
    sqlite3* handle = nullptr;
    const std::string count = std::to_string(lines);
    const std::string spare = std::to_string(kSpare);
    const std::string entry = std::to_string(kEntry);
    const std::string numbers =
        " from (with recursive n(i) as (select 0 union all select i + 1 from n where i < " + count +
        " + 999) select i from n)";
    const std::string text =
        "begin immediate; insert into inventory select 'L' || (" + spare +
        " + i), '材料' || i, 'Φ' || (i % 40), (i % 90 + 10) || '.5000', '01', '0101'" + numbers +
        "; insert into PM_ItemQCsub select " + entry + ", 'L' || (" + spare +
        " + i), (i % 90 + 10) || '.5000', 2.0, (i % 90 * 2 + 21) || '.0000'" + numbers +
        " where i < " + count + "; insert into PM_ItemQC select " + entry +
        ", dDate, cCenterCode, cItemCode, cKeyCode1, cKeyCode2, 'E11', '长明细', '0.0000' from "
        "PM_ItemQC where iEleVid = 1; delete from pm_budget where cElementCode = 'E11'; commit";
    if (sqlite3_open(account.c_str(), &handle) != SQLITE_OK ||
        sqlite3_exec(handle, text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
        throw std::runtime_error(account + ": " + sqlite3_errmsg(handle));
    }
    sqlite3_close(handle);
}

std::string AccountWithLines(int lines) {
    std::string account = NewAccountWith(kEntries);
    AddLongEntry(account, lines);
    return account;
}

int RowOfEntry(const frmPeriodItem& form) {
    int row = 1;
    while (form.GridPeriodItem.RowData(row) != kEntry) ++row;
    return row;
}

void Edit(controls::Grid& grid, int row, int col, const std::string& text) {
    if (!grid.MoveTo(row, col) || !grid.BeginEdit()) throw std::runtime_error("no cell to edit");
    grid.ReplaceEditText(text);
    if (grid.FinishEdit() != GridAnswer::Accept) throw std::runtime_error("refused: " + text);
}

// Opening alone also formats every line's numbers and remembers the lines to tell changes.
constexpr double kLimitOfOpening = 2.5;

enum Step { kOpening, kEditing, kSaving, kAll, kStepCount };

constexpr std::array<const char*, kStepCount> kStepNames{
    "opening 5,000 detail lines", "editing one of 5,000 detail lines",
    "saving 5,000 detail lines with their row", "opening, editing and saving 5,000 detail lines"};

using Times = std::array<double, kStepCount>;
using Plain = std::array<std::vector<PlainStatement>, kStepCount>;

// One entry opened, a line of it edited, and saved with its row.
class LongEntry {
public:
    LongEntry(frmPeriodItem& form, EntryWindows& windows, drive::StatementLog& log)
        : mForm(form), mWindows(windows), mLog(log), mRow(RowOfEntry(form)) {
        mWindows.whileDetails = [this](frmQCEdit& editor) { EditLine(editor); };
    }

    // Returns the seconds of each step; `plain` receives its statements.
    Times Run(Plain* plain = nullptr) {
        controls::Grid& grid = mForm.GridPeriodItem;
        grid.SetRow(mRow);
        grid.SetCol(ui::kAmountColumn);
        const int messages = mWindows.messages;
        mPlain = plain;
        mLog.Take();
        ++mTurn;
        grid.PressReference();
        const double start = Now();
        const bool left = grid.MoveTo(mRow == 1 ? 2 : 1, ui::kDigestColumn);
        mTimes[kSaving] += Now() - start;
        if (!left || mWindows.messages != messages) throw std::runtime_error("not saved");
        NoteSaving();
        mTimes[kAll] = mTimes[kOpening] + mTimes[kEditing] + mTimes[kSaving];
        return mTimes;
    }

private:
    void EditLine(frmQCEdit& editor) {
        if (editor.Grid1.Rows() != kLines + 1) throw std::runtime_error("not all lines");
        mTimes[kOpening] = mWindows.loadSeconds;
        Note(kOpening);
        double start = Now();
        const int line = kLines / 2;
        Edit(editor.Grid1, line, kCodeColumn, ItemCode(kLines + mTurn % 999));
        Edit(editor.Grid1, line, kQuantityColumn, std::to_string(mTurn % 9 + 1));
        if (!editor.Grid1.MoveTo(line + 1, kCodeColumn)) throw std::runtime_error("kept in line");
        mTimes[kEditing] = Now() - start;
        Note(kEditing);
        start = Now();
        editor.SaveDetails();
        mTimes[kSaving] = Now() - start;
    }

    void Note(Step step) {
        if (mPlain == nullptr) return;
        for (const PlainStatement& statement : PlainStatementsOf(mLog.Take())) {
            (*mPlain)[step].push_back(statement);
            (*mPlain)[kAll].push_back(statement);
        }
    }

    void NoteSaving() {
        if (mPlain == nullptr) return;
        std::vector<std::string> noted = mLog.Take();
        const auto text = [&](int col) { return mForm.GridPeriodItem.Text(mRow, col); };
        noted.push_back(SavingNote(
            kEntry, {text(ui::kDateColumn), text(ui::kCenterColumn), text(ui::kItemColumn),
                     text(ui::kKey1Column), text(ui::kKey2Column), "E11", "长明细", "1.00"}));
        for (const PlainStatement& statement : PlainStatementsOf(noted)) {
            (*mPlain)[kSaving].push_back(statement);
            (*mPlain)[kAll].push_back(statement);
        }
    }

    frmPeriodItem& mForm;
    EntryWindows& mWindows;
    drive::StatementLog& mLog;
    int mRow;
    int mTurn = 0;
    Plain* mPlain = nullptr;
    Times mTimes{};
};

void LongEntryStep(benchmark::State& state, Step step) {
    const std::string account = AccountWithLines(kLines);
    drive::StatementLog log;
    Samples samples;
    const auto measure = [&](frmPeriodItem& form, EntryWindows& windows) {
        LongEntry entry(form, windows, log);
        Plain plain;
        entry.Run(&plain);
        Floor floor(account);
        for (auto _ : state) {
            const double floorSeconds = floor.Run(plain[step]);
            const double ourSeconds = entry.Run()[step];
            state.SetIterationTime(ourSeconds);
            samples.Add(floorSeconds, ourSeconds);
        }
    };
    ShowList(account, kEntries + 1, measure, &log);
    samples.Report(state, std::string(kStepNames[step]) + ", ms", kMilliseconds,
                   step == kOpening ? kLimitOfOpening : kLimit);
}

// The seconds of one key typed into an open cell of an entry of `lines` lines.
double KeyAmong(int lines) {
    constexpr int kKeys = 2'000;
    const std::string account = AccountWithLines(lines);
    double seconds = 0;
    const auto measure = [&](frmPeriodItem& form, EntryWindows& windows) {
        windows.whileDetails = [&](frmQCEdit& editor) {
            editor.Grid1.MoveTo(lines / 2, kQuantityColumn);
            editor.SetFocus(editor.Grid1);
            const double start = Now();
            for (int key = 0; key < kKeys; ++key) {
                editor.KeyPress(U'1');
                editor.KeyDown(platform::Key::Backspace, 0);
            }
            seconds = (Now() - start) / (2 * kKeys);
            editor.Grid1.CancelEdit();
        };
        form.GridPeriodItem.SetRow(RowOfEntry(form));
        form.GridPeriodItem.SetCol(ui::kAmountColumn);
        form.GridPeriodItem.PressReference();
    };
    ShowList(account, kEntries + 1, measure);
    return seconds;
}

// A key among many lines against a key among few.
void KeyInLongEntry(benchmark::State& state) {
    Samples samples;
    for (auto _ : state) {
        const double few = KeyAmong(kFewLines);
        const double many = KeyAmong(kLines);
        state.SetIterationTime(many);
        samples.Add(few, many);
    }
    samples.Report(state, "a key among 5,000 detail lines against 50, us", kMicroseconds, kLimit);
}

BENCHMARK_CAPTURE(LongEntryStep, opening, kOpening)->UseManualTime()->Iterations(15);
BENCHMARK_CAPTURE(LongEntryStep, editing, kEditing)->UseManualTime()->Iterations(15);
BENCHMARK_CAPTURE(LongEntryStep, saving, kSaving)->UseManualTime()->Iterations(15);
BENCHMARK_CAPTURE(LongEntryStep, all, kAll)->UseManualTime()->Iterations(15);
BENCHMARK(KeyInLongEntry)->UseManualTime()->Iterations(3);

}  // namespace

}  // namespace kelvane::bench
