// The entry list as a view: sorting it, and the next hit of a search that is typed.
#include <functional>
#include <stdexcept>

#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/samples.h"

namespace kelvane::bench {

namespace {

using ui::frmPeriodItem;

constexpr std::int64_t kEntries = 100'000;
// What an operator may wait for, in seconds.
constexpr double kMostOfSorting = 0.3;
constexpr double kMostOfHit = 0.05;

// `act` on the list, against `most` seconds; `prepare` goes before it each time.
void Within(benchmark::State& state, const std::string& metric, double most,
            const std::function<void(frmPeriodItem&)>& prepare,
            const std::function<void(frmPeriodItem&)>& act) {
    Samples samples;
    ShowList(AccountWith(kEntries), kEntries, [&](frmPeriodItem& form, EntryWindows&) {
        for (auto _ : state) {
            prepare(form);
            const double start = Now();
            act(form);
            const double seconds = Now() - start;
            state.SetIterationTime(seconds);
            samples.Add(most, seconds);
        }
    });
    samples.Report(state, metric, kMilliseconds, 1);
}

void Sorting(benchmark::State& state, int col, const std::string& name) {
    Within(
        state, "100,000 entries: sorting by " + name + ", ms", kMostOfSorting,
        [](frmPeriodItem& form) { form.GridPeriodItem.UnsortRows(); },
        [col](frmPeriodItem& form) { form.GridPeriodItem.HeaderClick(col); });
}

void Unsorting(benchmark::State& state) {
    Within(
        state, "100,000 entries: stored order back, ms", kMostOfSorting,
        [](frmPeriodItem& form) { form.GridPeriodItem.SortRows(ui::kAmountColumn, true); },
        [](frmPeriodItem& form) { form.GridPeriodItem.HeaderClick(ui::kAmountColumn); });
}

controls::EditBox& SearchField(frmPeriodItem& form) {
    form.SearchTyping();
    auto* field = dynamic_cast<controls::EditBox*>(form.Find("txtSearch"));
    if (field == nullptr) throw std::runtime_error("the list has no search");
    return *field;
}

// What is nowhere is looked for in every row: no hit takes longer.
void Hit(benchmark::State& state, const std::string& typed, const std::string& name) {
    Within(
        state, "100,000 entries: " + name + ", ms", kMostOfHit,
        [](frmPeriodItem& form) { SearchField(form).SetText(""); },
        [&](frmPeriodItem& form) {
            SearchField(form).SetText(typed);
            if (form.GridPeriodItem.FoundRow() != 0) throw std::runtime_error(typed + " is there");
        });
}

BENCHMARK_CAPTURE(Sorting, amount, ui::kAmountColumn, "amount")->UseManualTime()->Iterations(10);
BENCHMARK_CAPTURE(Sorting, date, ui::kDateColumn, "date")->UseManualTime()->Iterations(10);
BENCHMARK_CAPTURE(Sorting, text, ui::kDigestColumn, "text")->UseManualTime()->Iterations(10);
BENCHMARK(Unsorting)->UseManualTime()->Iterations(10);
BENCHMARK_CAPTURE(Hit, initials, "qzqzq", "a search by initials to the end")
    ->UseManualTime()
    ->Iterations(20);
BENCHMARK_CAPTURE(Hit, characters, "鑫鑫", "a search to the end")->UseManualTime()->Iterations(20);

}  // namespace

}  // namespace kelvane::bench
