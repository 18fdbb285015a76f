// The entry list when any one call of the database services fails, at every call in turn and in
// every way: the account stays whole, what the operator is told is true, and the window goes on.
#include <array>

#include "tests/faults/entry_deeds.h"
#include "tests/faults/entry_world.h"
#include "tests/faults/unsynced_files.h"

namespace kelvane::faults {
namespace {

constexpr std::array kFaults{Fault::Error,      Fault::Busy,       Fault::Lost,         Fault::Gone,
                             Fault::AnswerLost, Fault::DoubtSaved, Fault::DoubtNotSaved};

class EntryListFaults : public testing::TestWithParam<EntryDeed> {
    UnsyncedFiles mFiles;
};

// What has to hold after `fault` befell call `number` while the deed was done. Returns whether
// there was such a call.
bool CheckFault(const EntryDeed& deed, const std::string& complete, Fault fault, int number) {
    SCOPED_TRACE("fault " + std::to_string(static_cast<int>(fault)) + " at call " +
                 std::to_string(number));
    EntryWorld world;
    deed.prepare(world);
    world.TakeTold();
    const std::string before = world.Content();
    world.calls.Fail(number, fault);
    const bool done = deed.act(world);
    const bool failed = world.calls.Heal();
    const std::string after = world.Content();
    const std::string told = world.TakeTold();
    const bool inDoubt = told.find(kInDoubt) != std::string::npos;
    const bool hasNoAnswer = fault == Fault::DoubtSaved || fault == Fault::DoubtNotSaved;

    EXPECT_TRUE(after == before || after == complete) << after;
    EXPECT_TRUE(after == before || done || inDoubt) << told;
    EXPECT_TRUE(after == complete || !done) << after << told;
    EXPECT_EQ(done, told.empty()) << told;
    EXPECT_TRUE(!inDoubt || hasNoAnswer) << told;

    EXPECT_TRUE(done || deed.act(world)) << told << "\n" << world.TakeTold();
    EXPECT_EQ(world.Content(), complete) << told;
    EXPECT_EQ(world.TakeTold(), "");
    EXPECT_EQ(EntryWorld::Findings(), "");
    world.ExpectUsable();
    return failed;
}

TEST_P(EntryListFaults, TellTheTruthAndLeaveAWholeAccount) {
    const EntryDeed& deed = GetParam();
    std::string complete;
    {
        EntryWorld world;
        deed.prepare(world);
        ASSERT_TRUE(deed.act(world)) << world.TakeTold();
        complete = world.Content();
        ASSERT_EQ(EntryWorld::Findings(), "");
    }
    for (const Fault fault : kFaults) {
        int number = 1;
        while (CheckFault(deed, complete, fault, number)) {
            if (testing::Test::HasFailure()) return;
            ++number;
        }
        EXPECT_GT(number, 1) << "nothing failed";
    }
}

INSTANTIATE_TEST_SUITE_P(, EntryListFaults, testing::ValuesIn(kEntryDeeds),
                         [](const auto& deed) { return std::string(deed.param.name); });

}  // namespace
}  // namespace kelvane::faults
