// WorkProgress: shows how far long work is once it has taken a second, and ends it when the
// operator wants that.
#pragma once

#include <chrono>
#include <cstddef>
#include <memory>
#include <string>

#include "platform/table_import.h"

namespace kelvane::ui {

class WorkProgress {
public:
    using Clock = std::chrono::steady_clock;

    // `service` outlives the object; `now` stands for the clock.
    WorkProgress(platform::TableImport& service, std::string title,
                 Clock::time_point (*now)() = &Clock::now)
        : mService(service),
          mTitle(std::move(title)),
          mNow(now),
          mNext(now() + std::chrono::seconds(1)) {}

    // False when the work is to end.
    bool operator()(std::size_t done, std::size_t total) {
        const Clock::time_point now = mNow();
        if (now < mNext) return true;
        mNext = now + std::chrono::milliseconds(100);
        if (!mProgress) mProgress = mService.StartProgress(mTitle);
        return !mProgress || mProgress->Show(done, total);
    }

private:
    platform::TableImport& mService;
    std::string mTitle;
    Clock::time_point (*mNow)();
    Clock::time_point mNext;
    std::unique_ptr<platform::Progress> mProgress;
};

}  // namespace kelvane::ui
