#include "bench/memory.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

#include "bench/accounts.h"
#include "bench/child.h"
#include "bench/entry_windows.h"
#include "bench/samples.h"

namespace kelvane::bench {

namespace {

constexpr double kMaxShown = 300;
constexpr double kMaxPeak = 1536;

// Places of the numbers that a child answers with.
constexpr std::size_t kShown = 0;
constexpr std::size_t kPeak = 1;

// `of`: which of a child's numbers. `most`: bytes of a row.
void Report(benchmark::State& state, const std::string& metric, std::size_t of, double most) {
    const std::int64_t entries = state.range(0);
    Samples samples;
    for (auto _ : state) {
        const double empty = AskChild(kMemoryOption, AccountWith(0), 2)[of];
        const double full = AskChild(kMemoryOption, AccountWith(entries), 2)[of];
        samples.Add(most, (full - empty) / static_cast<double>(entries));
    }
    samples.Report(state, metric, 1, 1);
}

void MemoryShown(benchmark::State& state) {
    Report(state, "memory of a row while shown, bytes", kShown, kMaxShown);
}

void MemoryMost(benchmark::State& state) {
    Report(state, "memory of a row at most, bytes", kPeak, kMaxPeak);
}

BENCHMARK(MemoryShown)->Arg(100'000)->Iterations(3);
BENCHMARK(MemoryMost)->Arg(100'000)->Iterations(3);

}  // namespace

double StatusBytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) return 1024 * std::stod(line.substr(name.size()));
    }
    throw std::runtime_error("the system does not tell " + name);
}

int WriteMemoryOf(const std::string& account) {
    EntryWindows windows;
    windows.whileShown = [](ui::frmPeriodItem&) {
        std::printf("%.0f %.0f\n", StatusBytes("VmRSS:"), StatusBytes("VmHWM:"));
    };
    host::Session session(host::AccountPlace::File(account), windows, nullptr);
    session.LogIn({}, platform::DateTime{2004, 6, 30});
    session.Show();
    return 0;
}

}  // namespace kelvane::bench
