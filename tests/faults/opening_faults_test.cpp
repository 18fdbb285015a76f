// Opening the list when any one call of the database services fails: what is shown is all there is,
// or the operator is told that it may not be, and the next opening shows and corrects everything.
#include "tests/faults/entry_world.h"
#include "tests/faults/unsynced_files.h"

namespace kelvane::faults {
namespace {

class OpeningFaults : public testing::TestWithParam<Fault> {
    UnsyncedFiles mFiles;
};

TEST_P(OpeningFaults, TellTheTruthAndTheNextOpeningShowsAll) {
    // An amount that the opening corrects.
    const auto damage = [](EntryWorld& world) {
        world.Run("update PM_ItemQC set mQC=300 where iEleVid=2");
    };
    std::string complete;
    std::string shown;
    {
        EntryWorld world;
        damage(world);
        ASSERT_TRUE(world.OpenList()) << world.TakeTold();
        complete = world.Content();
        shown = world.Shown();
        ASSERT_EQ(EntryWorld::Findings(), "");
    }
    int number = 0;
    for (bool failed = true; failed;) {
        ++number;
        SCOPED_TRACE("call " + std::to_string(number));
        EntryWorld world;
        damage(world);
        const std::string before = world.Content();
        world.calls.Fail(number, GetParam());
        const bool done = world.OpenList();
        failed = world.calls.Heal();
        const std::string after = world.Content();
        EXPECT_TRUE(after == before || after == complete) << after;
        EXPECT_EQ(world.TakeTold().empty(), done);
        if (done) {
            EXPECT_EQ(world.Shown(), shown);
            EXPECT_FALSE(world.List().ReadOnly());
        }
        EXPECT_TRUE(world.OpenList()) << world.TakeTold();
        EXPECT_EQ(world.Content(), complete);
        EXPECT_EQ(world.Shown(), shown);
        EXPECT_EQ(EntryWorld::Findings(), "");
        world.ExpectUsable();
        if (testing::Test::HasFailure()) return;
    }
    EXPECT_GT(number, 1) << "nothing failed";
}

INSTANTIATE_TEST_SUITE_P(, OpeningFaults,
                         testing::Values(Fault::Error, Fault::Busy, Fault::Lost, Fault::Gone,
                                         Fault::AnswerLost));

}  // namespace
}  // namespace kelvane::faults
