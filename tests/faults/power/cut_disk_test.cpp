// The power is cut while a file is written over an older one and while a batch is written down, at
// every call of the disk: the file is the old or the new one, whole, and what the journal said was
// written down is there.
#include "tests/faults/power/cut_disk.h"
#include "adapters/journal/folder_journal.h"
#include "adapters/output/files/safe_file.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/journal/sample_batch.h"

namespace kelvane::faults {
namespace {

using host_test::ReadText;
using platform::BatchOutcome;

// Each seed loses something else at the same calls.
constexpr unsigned kSeeds = 40;

TEST(CutDisk, AFileIsTheOldOneOrTheNewOne) {
    const std::string old(1000, 'o');
    const std::string fresh(200'000, 'n');
    int kept = 0;
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
        const host_test::TemporaryFolder folder;
        const std::string path = (folder / "a.txt").string();
        host_test::WriteText(path, old);
        std::mt19937 random(seed);
        CutDisk disk;
        disk.Know(path);
        int cuts = 0;
        const auto cut = [&] {
            const auto left = folder / ("cut" + std::to_string(++cuts));
            disk.Cut(left, random);
            return ReadText(left / "a.txt");
        };
        disk.stepped = [&] {
            const std::string found = cut();
            EXPECT_TRUE(found == old || found == fresh) << found.size();
            kept += static_cast<int>(found == old);
        };
        output::SafeFile file(path, disk);
        file.Write(fresh);
        file.Finish();
        EXPECT_EQ(cut(), fresh);
        EXPECT_GT(cuts, 8);
    }
    EXPECT_GT(kept, 0);
}

TEST(CutDisk, ABatchThatHasBegunIsWrittenDownAndSoIsItsEnd) {
    for (unsigned seed = 1; seed <= kSeeds; ++seed) {
        const host_test::TemporaryFolder folder;
        std::mt19937 random(seed);
        CutDisk disk;
        bool hasBegun = false;
        bool hasEnded = false;
        int cuts = 0;
        disk.stepped = [&] {
            const auto left = folder / ("cut" + std::to_string(++cuts));
            disk.Cut(left, random);
            journal::FolderJournal found(left);
            const auto batches = found.Batches();
            EXPECT_TRUE(!hasBegun || batches.size() == 1);
            for (const platform::Batch& batch : batches) {
                EXPECT_TRUE(batch.problem.empty() || batch.neverBegun) << batch.problem;
                EXPECT_FALSE(hasBegun && batch.neverBegun);
                if (hasBegun) {
                    journal_test::ExpectSame(found.Read(1).intent, journal_test::SampleIntent());
                }
                EXPECT_TRUE(batch.outcome == BatchOutcome::Written || !hasEnded);
                EXPECT_TRUE(!batch.outcome || batch.outcome == BatchOutcome::Written);
            }
        };
        journal::FolderJournal journal(folder / "journal", disk);
        const int number = journal.Begin(journal_test::SampleIntent());
        hasBegun = true;
        disk.stepped();
        journal.End(number, BatchOutcome::Written);
        hasEnded = true;
        disk.stepped();
        EXPECT_GT(cuts, 10);
    }
}

}  // namespace
}  // namespace kelvane::faults
