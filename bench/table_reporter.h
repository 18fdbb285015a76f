// Writes what the benchmarks found as one table: metric, floor, ours, ratio, limit.
#pragma once

#include <benchmark/benchmark.h>

namespace kelvane::bench {

class TableReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    // Whether a benchmark failed or a ratio was beyond its limit.
    bool HasFailed() const { return mFailed; }

private:
    bool mFailed = false;
};

}  // namespace kelvane::bench
