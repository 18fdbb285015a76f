// The check of a whole account: what a controller waits for, against what he may be let wait.
#include <stdexcept>

#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/floor.h"
#include "bench/samples.h"
#include "data/login_context.h"
#include "entries/check/check.h"
#include "host/account/session.h"

namespace kelvane::bench {

namespace {

constexpr std::int64_t kEntries = 100'000;
constexpr double kMostSeconds = 3;

void Checking(benchmark::State& state) {
    const std::string account = AccountWith(kEntries);
    EntryWindows windows;
    host::Session session(host::AccountPlace::File(account), windows, nullptr);
    session.LogIn({}, platform::DateTime{2004, 6, 30});
    data::LoadPmStartDate();
    data::LoadItemKeyFields();
    Samples samples;
    for (auto _ : state) {
        const double start = Now();
        const entries::CheckResult result = entries::CheckAccount();
        const double seconds = Now() - start;
        if (result.entries != kEntries || result.findings.empty()) {
            throw std::runtime_error("the check did not find what the sample has");
        }
        state.SetIterationTime(seconds);
        samples.Add(kMostSeconds, seconds);
    }
    samples.Report(state, "checking 100,000 entries against 3 s, ms", kMilliseconds, 1);
}

BENCHMARK(Checking)->UseManualTime()->Iterations(9);

}  // namespace

}  // namespace kelvane::bench
