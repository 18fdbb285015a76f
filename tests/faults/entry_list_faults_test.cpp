// The entry list when any one call of the database services fails, at every call in turn and in
// every way: the account stays whole, what the operator is told is true, and the window goes on.
#include <array>

#include "tests/faults/entry_world.h"
#include "tests/faults/unsynced_files.h"

namespace kelvane::faults {
namespace {

constexpr std::array kFaults{Fault::Error,      Fault::Busy,       Fault::Lost,         Fault::Gone,
                             Fault::AnswerLost, Fault::DoubtSaved, Fault::DoubtNotSaved};

constexpr std::string_view kInDoubt = "不能确定";

// Something that the operator does. It is prepared without a fault; done again after one, it
// succeeds.
struct Deed {
    const char* name;
    void (*prepare)(EntryWorld& world);
    // Returns whether it was done, as far as the operator can see.
    bool (*act)(EntryWorld& world);
};

void ChangeOldRow(EntryWorld& world) {
    world.Open();
    world.ChangeRowWithLines("槽钢");
}

void AddNewRow(EntryWorld& world) {
    world.Open();
    world.AddRowWithLines();
}

bool Leave(EntryWorld& world) {
    return world.Go(1, kDateColumn);
}

void GoToRowWithLines(EntryWorld& world) {
    world.Open();
    world.Go(2, kDateColumn);
}

bool Delete(EntryWorld& world) {
    const int rows = world.List().Rows();
    world.windows.answers = {platform::MessageAnswer::Yes};
    world.Form().DeleteRow();
    return world.List().Rows() < rows;
}

class EntryListFaults : public testing::TestWithParam<Deed> {
    UnsyncedFiles mFiles;
};

// What has to hold after `fault` befell call `number` while the deed was done. Returns whether
// there was such a call.
bool CheckFault(const Deed& deed, const std::string& complete, Fault fault, int number) {
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
    const Deed& deed = GetParam();
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

INSTANTIATE_TEST_SUITE_P(, EntryListFaults,
                         testing::Values(Deed{"SavingAnOldRow", ChangeOldRow, Leave},
                                         Deed{"SavingANewRow", AddNewRow, Leave},
                                         Deed{"Deleting", GoToRowWithLines, Delete}),
                         [](const auto& deed) { return std::string(deed.param.name); });

}  // namespace
}  // namespace kelvane::faults
