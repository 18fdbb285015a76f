// A row is saved over another operator's changes while any one call of the database services fails,
// at every call in turn: whenever it is saved the operator is told of the other, and not before.
#include <array>
#include <string>
#include <string_view>

#include "tests/faults/entry_world.h"
#include "tests/faults/unsynced_files.h"

namespace kelvane::faults {
namespace {

constexpr std::string_view kReplaced = "该行在打开后被他人修改，已按当前内容保存";
// Told behind the commit, when what is asked there has no answer.
constexpr std::string_view kBudgetUnknown = "当前行已经保存，但保存后没有能够核对项目预算";

constexpr std::array kFaults{Fault::Error,      Fault::Busy,       Fault::Lost,         Fault::Gone,
                             Fault::AnswerLost, Fault::DoubtSaved, Fault::DoubtNotSaved};

bool Says(const std::string& told, std::string_view sentence) {
    return told.find(sentence) != std::string::npos;
}

class MeetingFaults : public testing::Test {
protected:
    // The row with lines is changed here and by another operator, who leaves less in it: saving it
    // takes more of its budget again.
    static void Prepare(EntryWorld& world) {
        world.Run("insert into pm_BudgetVer values(1,1)");
        world.Run("insert into pm_budget values(1,'P02','E02',1,1000)");
        world.Open();
        world.ChangeRowWithLines("槽钢");
        world.Run("update PM_ItemQC set cDigest='他人', mQC=10 where iEleVid=2");
        world.TakeTold();
    }
    static bool Leave(EntryWorld& world) { return world.Go(1, kDateColumn); }
    static bool IsSaved(EntryWorld& world) {
        return world.Read("select cDigest from PM_ItemQC where iEleVid=2").at(0) == "槽钢";
    }

    // What has to hold after `fault` befell call `number` of the save. Returns whether there was
    // such a call.
    bool CheckFault(Fault fault, int number) {
        SCOPED_TRACE("fault " + std::to_string(static_cast<int>(fault)) + " at call " +
                     std::to_string(number));
        EntryWorld world;
        Prepare(world);
        world.calls.Fail(number, fault);
        const bool done = Leave(world);
        const bool failed = world.calls.Heal();
        const std::string told = world.TakeTold();
        EXPECT_TRUE(!done || IsSaved(world)) << told;
        EXPECT_EQ(done, Says(told, kReplaced) || Says(told, kBudgetUnknown)) << told;
        mBudgetUnknown += Says(told, kBudgetUnknown) ? 1 : 0;

        EXPECT_TRUE(done || Leave(world)) << world.TakeTold();
        EXPECT_TRUE(IsSaved(world));
        // It goes on being told while another row is saved.
        EXPECT_TRUE(world.List().LeaveRow());
        const std::string later = world.TakeTold();
        EXPECT_TRUE(later.starts_with(kReplaced)) << later;
        return failed;
    }

    int mBudgetUnknown = 0;

private:
    UnsyncedFiles mFiles;
};

TEST_F(MeetingFaults, TheOtherIsToldOfWheneverTheRowIsSaved) {
    for (const Fault fault : kFaults) {
        int number = 1;
        while (CheckFault(fault, number)) {
            if (HasFailure()) return;
            ++number;
        }
        EXPECT_GT(number, 1) << "nothing failed";
    }
    EXPECT_GT(mBudgetUnknown, 0) << "the question behind the commit never failed";
}

}  // namespace
}  // namespace kelvane::faults
