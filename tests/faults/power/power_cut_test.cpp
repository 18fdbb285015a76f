// The power is cut while rows are saved and deleted, files imported and imports taken back, at
// moments and with losses that a seed decides: the account opens again with all that was reported
// saved, and nothing by halves. KELVANE_POWER_CUTS asks for more cuts than the suite has time for.
#include <cstdlib>
#include <functional>

#include "tests/faults/batch_world.h"
#include "tests/faults/entry_world.h"
#include "tests/faults/power/cut_files.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::faults {
namespace {

int WantedCuts() {
    const char* wanted = std::getenv("KELVANE_POWER_CUTS");
    return wanted == nullptr ? 60 : std::atoi(wanted);
}

// All that operators entered, row for row.
std::string ContentOf(platform::Connection& account) {
    std::string content;
    for (const auto& query :
         {platform::StatementText("select * from PM_ItemQC order by iEleVid"),
          platform::StatementText("select * from PM_ItemQCsub order by iEleVid,cCodeMx")}) {
        const auto rows = account.OpenRecordSet(query);
        for (; !rows->EndOfFile(); rows->MoveNext()) {
            for (int i = 0; i < rows->FieldCount(); ++i) content += rows->Field(i).ToText() + "|";
            content += "\n";
        }
    }
    return content;
}

class PowerCuts : public testing::Test {
protected:
    // Does `deed`, during which the power is cut at some moments, and once more when it has been
    // reported done. `content` tells what the account holds.
    void Do(const std::function<void()>& deed, const std::function<std::string()>& content) {
        const std::string before = content();
        std::vector<std::filesystem::path> during;
        mFiles.stepped = [&] {
            if (mRandom() % kMomentsPerCut == 0) during.push_back(Cut());
        };
        deed();
        mFiles.stepped = nullptr;
        const std::filesystem::path end = Cut();
        const std::string after = content();
        for (const auto& folder : during) {
            const std::string found = Reopened(folder);
            EXPECT_TRUE(found == before || found == after) << found << "before:\n" << before;
            mHalfWay += static_cast<int>(found == before && before != after);
        }
        EXPECT_EQ(Reopened(end), after);
    }

    std::filesystem::path Cut() {
        const auto folder = mFolder / std::to_string(++mCuts);
        mFiles.Cut(folder, mRandom);
        return folder;
    }
    // What an account that a cut left holds when it is opened again.
    static std::string Reopened(const std::filesystem::path& folder) {
        std::string content;
        int accounts = 0;
        for (const auto& file : std::filesystem::directory_iterator(folder)) {
            const std::string name = file.path().string();
            if (name.ends_with("-wal") || name.ends_with("-shm") || name.ends_with("-journal")) {
                continue;
            }
            ++accounts;
            const auto connection = sqlite::CreateConnection();
            connection->SetConnectionString("Data Source=\"" + name + "\"");
            connection->Open("", "", -1);
            content += ContentOf(*connection);
        }
        EXPECT_EQ(accounts, 1);
        std::filesystem::remove_all(folder);
        return content;
    }

    // Before a world: accounts are closed while the disk is still there.
    static constexpr unsigned kMomentsPerCut = 4;
    host_test::TemporaryFolder mFolder;
    CutFiles mFiles;
    std::mt19937 mRandom{1};
    int mCuts = 0;
    int mHalfWay = 0;  // cuts that found a change under way and left nothing of it
};

TEST_F(PowerCuts, KeepWhatWasSavedInTheList) {
    while (mCuts < WantedCuts() && !HasFailure()) {
        EntryWorld world;
        world.Open();
        const auto content = [&] { return ContentOf(*world.other); };
        for (int round = 0; round < 3; ++round) {
            world.ChangeRowWithLines("第" + std::to_string(round) + "次");
            Do([&] { EXPECT_TRUE(world.Go(1, kDateColumn)); }, content);
        }
        world.AddRowWithLines();
        Do([&] { EXPECT_TRUE(world.Go(1, kDateColumn)); }, content);
        world.Go(3, kDateColumn);
        world.windows.answers = {platform::MessageAnswer::Yes};
        Do([&] { world.Form().DeleteRow(); }, content);
        EXPECT_EQ(world.List().Rows(), 3);
    }
    EXPECT_GT(mHalfWay, 0);
}

TEST_F(PowerCuts, KeepWhatWasImportedAndTakenBack) {
    while (mCuts < WantedCuts() && !HasFailure()) {
        BatchWorld world;
        const auto other = world.Connect();
        const auto content = [&] { return ContentOf(*other); };
        Do([&] { EXPECT_EQ(world.ImportFile(), Told::Written) << world.told; }, content);
        Do([&] { EXPECT_EQ(world.UndoImport(), Told::Written) << world.told; }, content);
    }
    EXPECT_GT(mHalfWay, 0);
}

}  // namespace
}  // namespace kelvane::faults
