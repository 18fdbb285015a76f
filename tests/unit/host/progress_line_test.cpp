#include "host/surroundings/progress_line.h"

#include <gtest/gtest.h>

#include <sstream>

namespace kelvane::host_test {
namespace {

using host::ProgressLine;

class ProgressLineTest : public testing::Test {
protected:
    // What was written since the last call.
    std::string Taken() {
        std::string text = mTerminal.str();
        mTerminal.str({});
        return text;
    }

    std::chrono::milliseconds mPassed{0};
    std::ostringstream mTerminal;
    std::optional<ProgressLine> mLine{std::in_place, mTerminal,
                                      [this] { return ProgressLine::Clock::time_point(mPassed); }};
};

TEST_F(ProgressLineTest, SaysNothingOfWhatTakesNoSecond) {
    mLine->Begin("Reading");
    mPassed = std::chrono::milliseconds(999);
    mLine->Show();
    mLine->Count(1, 2);
    mLine->Clear();
    mLine.reset();
    EXPECT_EQ(Taken(), "");
}

TEST_F(ProgressLineTest, CountsSecondsUntilThereAreSteps) {
    mLine->Begin("Reading");
    mPassed = std::chrono::milliseconds(1000);
    mLine->Show();
    EXPECT_EQ(Taken(), "\rReading 1 s");
    mLine->Show();
    EXPECT_EQ(Taken(), "");
    mPassed = std::chrono::milliseconds(12900);
    mLine->Show();
    EXPECT_EQ(Taken(), "\rReading 12 s");
    mLine->Begin("Writing");
    mLine->Show();
    EXPECT_EQ(Taken(), "\rWriting 12 s");
    mLine->Count(1, 3);
    EXPECT_EQ(Taken(), "\rWriting 33% ");
}

TEST_F(ProgressLineTest, LeavesNothingBehind) {
    mPassed = std::chrono::seconds(2);
    mLine->Begin("读取");
    mLine->Show();
    EXPECT_EQ(Taken(), "\r读取 2 s");
    mLine->Clear();
    EXPECT_EQ(Taken(), "\r        \r");
    mLine->Clear();
    EXPECT_EQ(Taken(), "");
    mLine->Show();
    Taken();
    mLine.reset();
    EXPECT_EQ(Taken(), "\r        \r");
}

TEST(ProgressTicker, KeepsTheLineUpToDate) {
    std::ostringstream terminal;
    std::mutex mutex;
    std::condition_variable shown;
    int looks = 0;
    {
        ProgressLine line(terminal, [&] {
            const std::lock_guard lock(mutex);
            ++looks;
            shown.notify_all();
            return ProgressLine::Clock::time_point();
        });
        const host::ProgressTicker ticker(line, std::chrono::milliseconds(1));
        std::unique_lock lock(mutex);
        shown.wait(lock, [&] { return looks >= 3; });
    }
}

}  // namespace
}  // namespace kelvane::host_test
