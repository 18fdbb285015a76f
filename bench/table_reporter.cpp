#include "bench/table_reporter.h"

#include <cstdio>

#include "bench/samples.h"

namespace kelvane::bench {

namespace {

double CounterOf(const benchmark::BenchmarkReporter::Run& run, const char* name) {
    const auto found = run.counters.find(name);
    return found == run.counters.end() ? 0 : found->second.value;
}

}  // namespace

bool TableReporter::ReportContext(const Context& /*context*/) {
    std::printf("| %-52s | %10s | %10s | %5s | %5s |\n", "metric", "floor", "ours", "ratio",
                "limit");
    std::printf("|%s|-----------:|-----------:|------:|------:|\n", std::string(54, '-').c_str());
    return true;
}

void TableReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            std::printf("%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
            mFailed = true;
            continue;
        }
        const double ratio = CounterOf(run, kRatio);
        const double limit = CounterOf(run, kLimit);
        std::printf("| %-52s | %10.2f | %10.2f | %5.2f | %5.2f |%s\n", run.report_label.c_str(),
                    CounterOf(run, kFloor), CounterOf(run, kOurs), ratio, limit,
                    ratio > limit ? " beyond its limit" : "");
        mFailed = mFailed || ratio > limit;
    }
    std::fflush(stdout);
}

}  // namespace kelvane::bench
