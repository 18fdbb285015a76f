// kelvane_bench: how fast and how small the component's main job is, compared with the least that
// the same statements cost. Prints one table; the exit status is 1 when a limit is not kept. Takes
// the usual options of the benchmark library, such as --benchmark_filter.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <exception>
#include <string>
#include <string_view>

#include "bench/export.h"
#include "bench/memory.h"
#include "bench/table_reporter.h"
#include "bench/tables.h"
#include "bench/window.h"

namespace {

// What this program answers when it has started itself.
struct Answer {
    std::string_view option;
    int (*give)(const std::string& account);
};

constexpr Answer kAnswers[] = {
    {kelvane::bench::kMemoryOption, kelvane::bench::WriteMemoryOf},
    {kelvane::bench::kExportOption, kelvane::bench::WriteMemoryOfExport},
    {kelvane::bench::kTableOption, kelvane::bench::WriteMemoryOfTable},
    {kelvane::bench::kWindowOption, kelvane::bench::WriteTimesOfWindow},
};

}  // namespace

int main(int count, char** arguments) {
    using namespace kelvane::bench;
    try {
        const std::string_view option = count > 1 ? arguments[1] : "";
        for (const auto& [name, answer] : kAnswers) {
            if (option.starts_with(name)) return answer(std::string(option.substr(name.size())));
        }
        benchmark::Initialize(&count, arguments);
        if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 2;
        TableReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        return reporter.HasFailed() ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "kelvane_bench: %s\n", error.what());
        return 1;
    }
}
