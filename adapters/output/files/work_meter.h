// WorkMeter: counts the steps of a piece of work, shows how far it is once it has taken a second,
// and ends it when the operator wants that.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

#include "platform/print_surroundings.h"

namespace kelvane::output {

// The operator ended the work; no error.
struct WorkCancelled {};

class WorkMeter {
public:
    using Clock = std::chrono::steady_clock;

    // Nothing is shown without surroundings, which outlive the meter. `now` stands for the clock.
    WorkMeter(platform::PrintSurroundings* surroundings, std::string title, std::size_t total,
              Clock::time_point (*now)() = &Clock::now)
        : mSurroundings(surroundings),
          mTitle(std::move(title)),
          mTotal(total),
          mNow(now),
          mNext(now() + std::chrono::seconds(1)) {}

    // One more step is done. Throws WorkCancelled.
    void Step() {
        ++mDone;
        if (mDone % kStepsPerLook == 0 || mTotal < kStepsPerLook) Look();
    }

private:
    static constexpr std::size_t kStepsPerLook = 64;

    void Look() {
        const Clock::time_point now = mNow();
        if (mSurroundings == nullptr || now < mNext) return;
        mNext = now + std::chrono::milliseconds(100);
        if (!mProgress) mProgress = mSurroundings->StartProgress(mTitle);
        if (mProgress && !mProgress->Show(mDone, mTotal)) throw WorkCancelled();
    }

    platform::PrintSurroundings* mSurroundings;
    std::string mTitle;
    std::size_t mTotal;
    Clock::time_point (*mNow)();
    Clock::time_point mNext;
    std::size_t mDone = 0;
    std::unique_ptr<platform::Progress> mProgress;
};

}  // namespace kelvane::output
