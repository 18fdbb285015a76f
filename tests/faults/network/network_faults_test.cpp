// A network that breaks in the middle of what an operator does: at every request before it reaches
// the server, at every answer, before it, inside it and one byte before its end, once and for good.
// The account stays whole, what he is told is true, and the window goes on.
#include <functional>
#include <set>

#include "tests/faults/entry_deeds.h"
#include "tests/faults/network/server_world.h"
#include "tests/faults/unsynced_files.h"

namespace kelvane::faults {
namespace {

using support::NetworkCut;

// All cuts of a turn whose answer has so many bytes.
std::vector<NetworkCut> CutsOf(std::size_t turn, std::size_t answer) {
    std::vector<NetworkCut> cuts{{.turn = turn}, {.turn = turn, .forGood = true}};
    for (const std::size_t bytes : {std::size_t{0}, answer / 2, answer - 1}) {
        cuts.push_back({.turn = turn, .answerBytes = bytes});
    }
    return cuts;
}

std::string Named(const NetworkCut& cut) {
    std::string text = "turn " + std::to_string(cut.turn);
    text += cut.answerBytes ? ", " + std::to_string(*cut.answerBytes) + " bytes of the answer"
                            : ", no request";
    return text + (cut.forGood ? ", for good" : "");
}

class NetworkFaults : public testing::Test {
protected:
    // Does `check` for every cut of the turns that `answers` tells of.
    static void ForEachCut(const std::vector<std::size_t>& answers,
                           const std::function<void(const NetworkCut&)>& check) {
        EXPECT_GT(answers.size(), 1U);
        RecordProperty("turns", static_cast<int>(answers.size()));
        for (std::size_t turn = 1; turn <= answers.size(); ++turn) {
            ASSERT_GT(answers[turn - 1], 1U) << turn;
            for (const NetworkCut& cut : CutsOf(turn, answers[turn - 1])) {
                SCOPED_TRACE(Named(cut));
                check(cut);
                if (testing::Test::HasFailure()) return;
            }
        }
    }

    ServerPlace mPlace;

private:
    UnsyncedFiles mFiles;
};

class NetworkEntryFaults : public NetworkFaults, public testing::WithParamInterface<EntryDeed> {
protected:
    // What the account holds when all went well, and the answers that this took.
    void DoWhole(std::chrono::microseconds delay = {}) {
        ServerWorld world(mPlace, delay);
        GetParam().prepare(world);
        mBefore = world.Content();
        world.network.Break({});
        ASSERT_TRUE(GetParam().act(world)) << world.TakeTold();
        mAnswers = world.network.Answers();
        mComplete = world.Content();
        ASSERT_NE(mComplete, mBefore);
        ASSERT_EQ(world.TakeTold(), "");
        ASSERT_EQ(EntryDesk::Findings(), "");
    }

    void CheckCut(const NetworkCut& cut);

    std::string mBefore;
    std::string mComplete;
    std::vector<std::size_t> mAnswers;
    std::set<std::size_t> mDoubtful;  // the turns after which a save was in doubt
    std::set<bool> mDoubtfulSaved;    // what it then was
};

void NetworkEntryFaults::CheckCut(const NetworkCut& cut) {
    const EntryDeed& deed = GetParam();
    ServerWorld world(mPlace);
    deed.prepare(world);
    world.TakeTold();
    world.network.Break(cut);
    const bool done = deed.act(world);
    EXPECT_TRUE(world.network.Mend());
    const std::string after = world.Content();
    const std::string told = world.TakeTold();
    const bool isSaved = after == mComplete;

    EXPECT_TRUE(isSaved || after == mBefore) << after;
    EXPECT_TRUE(isSaved || !done) << after << told;
    EXPECT_EQ(done, told.empty()) << told;
    if (told.find(kInDoubt) != std::string::npos) {
        mDoubtful.insert(cut.turn);
        mDoubtfulSaved.insert(isSaved);
        EXPECT_EQ(isSaved, cut.answerBytes.has_value());
    } else {
        EXPECT_EQ(isSaved, done) << told;
    }

    EXPECT_TRUE(done || deed.act(world)) << told << "\n" << world.TakeTold();
    EXPECT_EQ(world.Content(), mComplete) << told;
    EXPECT_EQ(world.TakeTold(), "");
    EXPECT_EQ(EntryDesk::Findings(), "");
    world.ExpectUsable();
}

TEST_P(NetworkEntryFaults, TellTheTruthAndLeaveAWholeAccount) {
    ASSERT_NO_FATAL_FAILURE(DoWhole());
    ForEachCut(mAnswers, [&](const NetworkCut& cut) { CheckCut(cut); });
    // At the commit alone, and nobody could have known.
    EXPECT_EQ(mDoubtful.size(), 1U);
    EXPECT_EQ(mDoubtfulSaved, (std::set<bool>{false, true}));
}

TEST_P(NetworkEntryFaults, SlownessChangesNothing) {
    ASSERT_NO_FATAL_FAILURE(DoWhole());
    const auto complete = mComplete;
    const auto answers = mAnswers;
    ASSERT_NO_FATAL_FAILURE(DoWhole(std::chrono::milliseconds(20)));
    EXPECT_EQ(mComplete, complete);
    EXPECT_EQ(mAnswers, answers);
}

INSTANTIATE_TEST_SUITE_P(, NetworkEntryFaults, testing::ValuesIn(kEntryDeeds),
                         [](const auto& deed) { return std::string(deed.param.name); });

using NetworkOpeningFaults = NetworkFaults;

TEST_F(NetworkOpeningFaults, TellTheTruthAndTheNextOpeningShowsAll) {
    // An amount that the opening corrects.
    const auto damage = [](EntryDesk& world) {
        world.Run("update PM_ItemQC set mQC=300 where iEleVid=2");
    };
    std::string complete;
    std::string shown;
    std::vector<std::size_t> answers;
    {
        ServerWorld world(mPlace);
        damage(world);
        world.network.Break({});
        ASSERT_TRUE(world.OpenList()) << world.TakeTold();
        answers = world.network.Answers();
        complete = world.Content();
        shown = world.Shown();
        ASSERT_EQ(EntryDesk::Findings(), "");
    }
    ForEachCut(answers, [&](const NetworkCut& cut) {
        ServerWorld world(mPlace);
        damage(world);
        const std::string before = world.Content();
        world.network.Break(cut);
        const bool done = world.OpenList();
        EXPECT_TRUE(world.network.Mend());
        const std::string after = world.Content();
        EXPECT_TRUE(after == before || after == complete) << after;
        EXPECT_EQ(world.TakeTold().empty(), done);
        if (done) {
            EXPECT_EQ(world.Shown(), shown);
        }
        EXPECT_TRUE(world.OpenList()) << world.TakeTold();
        EXPECT_EQ(world.Content(), complete);
        EXPECT_EQ(world.Shown(), shown);
        EXPECT_EQ(EntryDesk::Findings(), "");
        world.ExpectUsable();
    });
}

}  // namespace
}  // namespace kelvane::faults
