#include "host/surroundings/progress_line.h"

#include "host/surroundings/columns.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {
constexpr std::chrono::seconds kUnseen{1};
}

void ProgressLine::Begin(const std::string& work) {
    const std::lock_guard lock(mMutex);
    mWork = work;
    mCount.clear();
}

void ProgressLine::Count(std::size_t done, std::size_t total) {
    {
        const std::lock_guard lock(mMutex);
        mCount = std::to_string(done * 100 / total) + "%";
    }
    Show();
}

void ProgressLine::Show() {
    const std::lock_guard lock(mMutex);
    const auto since = mNow() - mBegin;
    if (since < kUnseen) return;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(since).count();
    Write(mWork + ' ' + (mCount.empty() ? Told("%1 s", {std::to_string(seconds)}) : mCount));
}

void ProgressLine::Clear() {
    const std::lock_guard lock(mMutex);
    if (mShown.empty()) return;
    Write({});
    mTerminal << '\r' << std::flush;
}

void ProgressLine::Write(const std::string& text) {
    if (text == mShown) return;
    const std::size_t columns = ColumnsOf(text);
    const std::size_t before = ColumnsOf(mShown);
    mTerminal << '\r' << text;
    if (columns < before) mTerminal << std::string(before - columns, ' ');
    mTerminal << std::flush;
    mShown = text;
}

ProgressTicker::ProgressTicker(ProgressLine& line, std::chrono::milliseconds interval)
    : mThread([this, &line, interval](const std::stop_token& end) {
          std::unique_lock lock(mMutex);
          while (!mEnd.wait_for(lock, end, interval, [&end] { return end.stop_requested(); })) {
              line.Show();
          }
      }) {}

}  // namespace kelvane::host
