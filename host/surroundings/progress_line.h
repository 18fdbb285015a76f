// A line on the terminal that says how far a long piece of work is, as long as it lasts. Work that
// takes less than a second shows nothing.
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <ostream>
#include <string>
#include <thread>

namespace kelvane::host {

// Any thread may call it.
class ProgressLine {
public:
    using Clock = std::chrono::steady_clock;

    // `terminal` outlives the line. `now` stands for the clock.
    explicit ProgressLine(std::ostream& terminal,
                          std::function<Clock::time_point()> now = &Clock::now)
        : mTerminal(terminal), mNow(std::move(now)), mBegin(mNow()) {}
    ~ProgressLine() { Clear(); }
    ProgressLine(const ProgressLine&) = delete;
    ProgressLine& operator=(const ProgressLine&) = delete;

    // What is done from now on.
    void Begin(const std::string& work);
    // `done` of `total` steps of it are; without a call the line counts seconds. `total`: not 0.
    void Count(std::size_t done, std::size_t total);
    // Brings the line up to date.
    void Show();
    // Makes room for other words.
    void Clear();

private:
    void Write(const std::string& text);

    std::ostream& mTerminal;
    std::function<Clock::time_point()> mNow;
    Clock::time_point mBegin;
    std::mutex mMutex;
    std::string mWork;
    std::string mCount;
    std::string mShown;
};

// Keeps a line up to date in the background.
class ProgressTicker {
public:
    // `line` outlives the ticker.
    explicit ProgressTicker(ProgressLine& line,
                            std::chrono::milliseconds interval = std::chrono::milliseconds(250));

private:
    std::mutex mMutex;
    std::condition_variable_any mEnd;
    std::jthread mThread;  // ends before what it waits on goes
};

}  // namespace kelvane::host
