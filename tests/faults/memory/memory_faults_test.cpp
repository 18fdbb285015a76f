// The entry list when memory runs out, at every allocation in turn: the account stays whole, the
// window says so and goes on.
#include "tests/faults/entry_world.h"
#include "tests/faults/memory/failing_memory.h"
#include "tests/faults/unsynced_files.h"

namespace kelvane::faults {
namespace {

class MemoryFaults : public testing::Test {
protected:
    MemoryFaults() { world.Open(); }

    // Refuses allocation after allocation of `act`, which returns whether it was done, as far as
    // the operator can see, until none is refused. `prepare` is done before each, `check` after it,
    // with what was told.
    template <typename Prepare, typename Act, typename Check>
    void RefuseEach(const Prepare& prepare, const Act& act, const Check& check) {
        long number = 1;
        for (bool refused = true; refused; ++number) {
            SCOPED_TRACE("allocation " + std::to_string(number));
            prepare();
            world.TakeTold();
            RefuseAllocation(number);
            const bool done = act();
            refused = GiveMemory();
            check(done, world.TakeTold());
            if (testing::Test::HasFailure()) return;
        }
        EXPECT_GT(number, 50);
        RecordProperty("allocations", static_cast<int>(number) - 2);
    }

    // As an event of the window's; true when the other row became the current one.
    bool GoToFirstRow() {
        bool moved = false;
        world.Form().RunEvent("Go", [&] { moved = world.Go(1, kDateColumn); });
        return moved;
    }

    // When the row was saved and memory was refused while the cursor moved on, the going is what
    // was not done, and the row is nothing that waits to be saved.
    void CheckTold(bool done, bool isSaved, const std::string& told) {
        EXPECT_EQ(done, told.empty()) << told;
        EXPECT_TRUE(isSaved || !done) << told;
        if (done || !isSaved) return;
        EXPECT_EQ(told, "操作时出错，该操作没有完成。");
        EXPECT_FALSE(world.List().RowTouched());
    }

    UnsyncedFiles mFiles;
    EntryWorld world;
};

TEST_F(MemoryFaults, OfOpeningAreToldAndTheNextOpeningShowsAll) {
    const std::string complete = world.Content();
    const std::string shown = world.Shown();
    const auto open = [&] {
        world.Form().Load();
        world.Form().Activate();
        return world.Form().Notice().empty();
    };
    const auto check = [&](bool done, const std::string& told) {
        EXPECT_EQ(world.Content(), complete);
        EXPECT_EQ(done, told.empty()) << told;
        EXPECT_TRUE(!done || world.Shown() == shown);
        EXPECT_TRUE(world.Form().Unload());
        world.TakeTold();
        EXPECT_TRUE(open());
        EXPECT_EQ(world.Shown(), shown);
    };
    RefuseEach([&] { ASSERT_TRUE(world.Form().Unload()); }, open, check);
    EXPECT_EQ(EntryWorld::Findings(), "");
    world.TakeTold();
    world.ExpectUsable();
}

TEST_F(MemoryFaults, OfSavingAreToldAndNothingIsSavedByHalves) {
    int round = 0;
    std::string digest;
    std::string before;
    const auto leave = [&] { return GoToFirstRow(); };
    const auto change = [&] {
        digest = "第" + std::to_string(++round) + "次";
        before = world.Content();
        world.ChangeRowWithLines(digest);
    };
    const auto check = [&](bool done, const std::string& told) {
        const bool isSaved = world.Content() != before;
        CheckTold(done, isSaved, told);
        EXPECT_TRUE(done || leave()) << told << "\n" << world.TakeTold();
        EXPECT_EQ(world.Read("select cDigest from PM_ItemQC where iEleVid=2").at(0), digest);
        EXPECT_EQ(world.Read("select sum(mQC) from PM_ItemQCsub where iEleVid=2").at(0), "25");
        EXPECT_TRUE(isSaved || world.TakeTold().empty());
    };
    RefuseEach(change, leave, check);
    EXPECT_EQ(EntryWorld::Findings(), "");
    world.ExpectUsable();
}

TEST_F(MemoryFaults, OfANewRowAreToldAndItIsThereOnce) {
    std::string before;
    const auto leave = [&] { return GoToFirstRow(); };
    const auto add = [&] {
        before = world.Content();
        world.AddRowWithLines();
    };
    const auto check = [&](bool done, const std::string& told) {
        const bool isSaved = world.Content() != before;
        CheckTold(done, isSaved, told);
        EXPECT_TRUE(done || leave()) << told << "\n" << world.TakeTold();
        EXPECT_EQ(world.Read("select count(*) from PM_ItemQC").at(0), "3");
        EXPECT_EQ(world.Read("select count(*) from PM_ItemQCsub").at(0), "4");
        world.Go(3, kDateColumn);
        world.windows.answers = {platform::MessageAnswer::Yes};
        world.Form().DeleteRow();
        EXPECT_EQ(world.Content(), before);
        world.Run("update PM_SettingInf set cValue='3' where cName='NumMax_EleQc'");
        world.Go(1, kDateColumn);
    };
    RefuseEach(add, leave, check);
    EXPECT_EQ(EntryWorld::Findings(), "");
    world.ExpectUsable();
}

}  // namespace
}  // namespace kelvane::faults
