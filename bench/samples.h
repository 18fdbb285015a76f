// What a benchmark finds: pairs of runs, the floor's and ours in turn, so that whatever else the
// machine does meets both.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <string>
#include <vector>

namespace kelvane::bench {

inline double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

// Names under which a benchmark reports to the table.
inline constexpr const char* kFloor = "floor";
inline constexpr const char* kOurs = "ours";
inline constexpr const char* kRatio = "ratio";
inline constexpr const char* kLimit = "limit";

class Samples {
public:
    void Add(double floor, double ours) {
        mFloor.push_back(floor);
        mOurs.push_back(ours);
        mRatios.push_back(ours / floor);
    }

    // Hands over the medians, `scale` of the table's unit to one of the samples', with the metric's
    // name and the largest ratio that is good enough.
    void Report(benchmark::State& state, const std::string& metric, double scale,
                double limit) const {
        if (mRatios.empty()) return;
        state.SetLabel(metric);
        state.counters[kFloor] = Median(mFloor) * scale;
        state.counters[kOurs] = Median(mOurs) * scale;
        state.counters[kRatio] = Median(mRatios);
        state.counters[kLimit] = limit;
    }

private:
    std::vector<double> mFloor;
    std::vector<double> mOurs;
    std::vector<double> mRatios;
};

inline constexpr double kMilliseconds = 1e3;
inline constexpr double kMicroseconds = 1e6;

}  // namespace kelvane::bench
