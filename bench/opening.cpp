// Opening the entry list, from Show to the loaded window.
#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/floor.h"
#include "bench/samples.h"

namespace kelvane::bench {

namespace {

constexpr double kLimitOfOpening = 1.0;
constexpr double kLimitOfGrowth = 1.3;

std::vector<PlainStatement> StatementsOfOpening(const std::string& account, std::int64_t entries) {
    drive::StatementLog log;
    std::vector<std::string> noted;
    const auto take = [&](ui::frmPeriodItem&, EntryWindows&) { noted = log.Take(); };
    ShowList(account, entries, take, &log);
    return PlainStatementsOf(noted);
}

std::string Grouped(std::int64_t number) {
    std::string text = std::to_string(number);
    if (text.size() > 3) text.insert(text.size() - 3, ",");
    return text;
}

// A login of its own for each run, of ours as of the floor's: nothing is left from the run before.
void Opening(benchmark::State& state, Preparing preparing) {
    const std::int64_t entries = state.range(0);
    const std::string account = AccountWith(entries);
    const std::vector<PlainStatement> statements = StatementsOfOpening(account, entries);
    Samples samples;
    for (auto _ : state) {
        Floor floor(account, preparing);
        const double floorSeconds = floor.Run(statements);
        const double ourSeconds = ShowList(account, entries);
        state.SetIterationTime(ourSeconds);
        samples.Add(floorSeconds, ourSeconds);
    }
    samples.Report(state, "opening " + Grouped(entries) + " entries" + Against(preparing) + ", ms",
                   kMilliseconds, kLimitOfOpening);
}

// Ten times the entries in about ten times the time.
void Growth(benchmark::State& state) {
    const std::int64_t few = state.range(0);
    const std::int64_t many = 10 * few;
    Samples samples;
    for (auto _ : state) {
        const double fewSeconds = ShowList(AccountWith(few), few);
        const double manySeconds = ShowList(AccountWith(many), many);
        state.SetIterationTime(manySeconds);
        samples.Add(fewSeconds / static_cast<double>(few), manySeconds / static_cast<double>(many));
    }
    samples.Report(state, "an entry of " + Grouped(few) + ", and of " + Grouped(many) + ", us",
                   kMicroseconds, kLimitOfGrowth);
}

BENCHMARK_CAPTURE(Opening, each, Preparing::Each)->Arg(1'000)->UseManualTime()->Iterations(60);
BENCHMARK_CAPTURE(Opening, each, Preparing::Each)->Arg(10'000)->UseManualTime()->Iterations(20);
BENCHMARK_CAPTURE(Opening, each, Preparing::Each)->Arg(100'000)->UseManualTime()->Iterations(7);
BENCHMARK_CAPTURE(Opening, once, Preparing::Once)->Arg(1'000)->UseManualTime()->Iterations(60);
BENCHMARK_CAPTURE(Opening, once, Preparing::Once)->Arg(10'000)->UseManualTime()->Iterations(20);
BENCHMARK_CAPTURE(Opening, once, Preparing::Once)->Arg(100'000)->UseManualTime()->Iterations(7);
BENCHMARK(Growth)->Arg(1'000)->UseManualTime()->Iterations(20);
BENCHMARK(Growth)->Arg(10'000)->UseManualTime()->Iterations(7);

}  // namespace

}  // namespace kelvane::bench
