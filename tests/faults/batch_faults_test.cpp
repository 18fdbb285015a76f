// An import and its undoing when any one call of the database services or of the journal's disk
// fails: all rows or none, what is told is true, and the journal and the account agree afterwards.
#include <array>

#include "tests/faults/batch_world.h"
#include "tests/faults/unsynced_files.h"

namespace kelvane::faults {
namespace {

// What can befall a batch. A disk only knows whether it fails once or for good.
struct Trouble {
    const char* name;
    Fault fault;
    FailingCalls BatchWorld::*calls;
};

constexpr std::array kTroubles{
    Trouble{"error", Fault::Error, &BatchWorld::calls},
    Trouble{"busy", Fault::Busy, &BatchWorld::calls},
    Trouble{"lost", Fault::Lost, &BatchWorld::calls},
    Trouble{"gone", Fault::Gone, &BatchWorld::calls},
    Trouble{"answer lost", Fault::AnswerLost, &BatchWorld::calls},
    Trouble{"in doubt, saved", Fault::DoubtSaved, &BatchWorld::calls},
    Trouble{"in doubt, not saved", Fault::DoubtNotSaved, &BatchWorld::calls},
    Trouble{"disk", Fault::Error, &BatchWorld::diskCalls},
    Trouble{"disk for good", Fault::Gone, &BatchWorld::diskCalls},
};

struct Deed {
    const char* kind;
    void (*prepare)(BatchWorld& world);
    Told (*act)(BatchWorld& world);
};

class BatchFaults : public testing::TestWithParam<Deed> {
    UnsyncedFiles mFiles;
};

// What has to hold after the trouble at call `number`. Returns whether there was such a call.
bool CheckTrouble(const Deed& deed, const std::string& complete, const Trouble& trouble,
                  int number) {
    SCOPED_TRACE(std::string(trouble.name) + " at call " + std::to_string(number));
    BatchWorld world;
    deed.prepare(world);
    const std::string before = world.Content();
    (world.*trouble.calls).Fail(number, trouble.fault);
    const Told told = deed.act(world);
    const bool failed = (world.*trouble.calls).Heal();
    const std::string text = world.told;
    const std::string after = world.Content();
    const bool isSaved = after == complete;

    EXPECT_TRUE(isSaved || after == before) << after;
    EXPECT_TRUE(told != Told::Written || isSaved) << text;
    EXPECT_TRUE(told != Told::NotWritten || after == before) << text;
    EXPECT_TRUE(told != Told::InDoubt || trouble.fault >= Fault::DoubtSaved) << text;
    EXPECT_TRUE(told == Told::Written || !text.empty());
    EXPECT_EQ(world.Findings(), "");

    world.OpenJournal();
    EXPECT_EQ(world.WrittenBatches(deed.kind), static_cast<int>(isSaved)) << text;
    if (!isSaved) {
        EXPECT_EQ(deed.act(world), Told::Written) << text << "\n" << world.told;
    }
    EXPECT_EQ(world.Content(), complete);
    EXPECT_EQ(world.WrittenBatches(deed.kind), 1);
    // Once is enough.
    EXPECT_EQ(deed.act(world), Told::NotWritten);
    EXPECT_EQ(world.Content(), complete);
    EXPECT_EQ(world.Findings(), "");
    return failed;
}

TEST_P(BatchFaults, WriteAllOrNothingAndTellWhich) {
    const Deed& deed = GetParam();
    std::string complete;
    {
        BatchWorld world;
        deed.prepare(world);
        ASSERT_EQ(deed.act(world), Told::Written) << world.told;
        complete = world.Content();
        ASSERT_EQ(world.Findings(), "");
    }
    for (const Trouble& trouble : kTroubles) {
        int number = 1;
        while (CheckTrouble(deed, complete, trouble, number)) {
            if (testing::Test::HasFailure()) return;
            ++number;
        }
        EXPECT_GT(number, 1) << trouble.name;
    }
}

INSTANTIATE_TEST_SUITE_P(, BatchFaults,
                         testing::Values(Deed{"import", [](BatchWorld&) {},
                                              [](BatchWorld& world) { return world.ImportFile(); }},
                                         Deed{
                                             "undo", [](BatchWorld& world) { world.ImportFile(); },
                                             [](BatchWorld& world) { return world.UndoImport(); }}),
                         [](const auto& deed) { return std::string(deed.param.kind); });

}  // namespace
}  // namespace kelvane::faults
