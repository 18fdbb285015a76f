#include "bench/memory.h"

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>

#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/samples.h"

namespace kelvane::bench {

namespace {

constexpr double kMostBytes = 1536;

struct Memory {
    double shown = 0;  // bytes
    double most = 0;
};

// What the system says of this program, in bytes.
double StatusBytes(const std::string& name) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with(name)) return 1024 * std::stod(line.substr(name.size()));
    }
    throw std::runtime_error("the system does not tell " + name);
}

Memory MemoryOf(const std::string& account) {
    char program[4096] = {};
    std::ifstream("/proc/self/cmdline").getline(program, sizeof program, '\0');
    const std::string command = std::string(program) + " '" + kMemoryOption + account + "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> output(popen(command.c_str(), "r"),
                                                                 pclose);
    Memory memory;
    if (!output || std::fscanf(output.get(), "%lf %lf", &memory.shown, &memory.most) != 2) {
        throw std::runtime_error("no answer from: " + command);
    }
    return memory;
}

// `of`: which of the two numbers.
void Report(benchmark::State& state, const std::string& metric, double Memory::*of) {
    const std::int64_t entries = state.range(0);
    Samples samples;
    for (auto _ : state) {
        const Memory empty = MemoryOf(AccountWith(0));
        const Memory full = MemoryOf(AccountWith(entries));
        samples.Add(kMostBytes, (full.*of - empty.*of) / static_cast<double>(entries));
    }
    samples.Report(state, metric, 1, 1);
}

void MemoryShown(benchmark::State& state) {
    Report(state, "memory of a row while shown, bytes", &Memory::shown);
}

void MemoryMost(benchmark::State& state) {
    Report(state, "memory of a row at most, bytes", &Memory::most);
}

BENCHMARK(MemoryShown)->Arg(100'000)->Iterations(3);
BENCHMARK(MemoryMost)->Arg(100'000)->Iterations(3);

}  // namespace

int WriteMemoryOf(const std::string& account) {
    EntryWindows windows;
    windows.whileShown = [](ui::frmPeriodItem&) {
        std::printf("%.0f %.0f\n", StatusBytes("VmRSS:"), StatusBytes("VmHWM:"));
    };
    host::Session session(account, windows, nullptr);
    session.LogIn({}, platform::DateTime{2004, 6, 30});
    session.Show();
    return 0;
}

}  // namespace kelvane::bench
