// The journal of batches as this system's files, locks and hashes make it.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "adapters/journal/file_hash.h"
#include "adapters/journal/folder_journal.h"
#include "tests/unit/journal/sample_batch.h"

namespace kelvane::com {
namespace {

using journal::FolderJournal;
using journal_test::SampleIntent;
using platform::BatchOutcome;

class JournalTest : public testing::Test {
protected:
    JournalTest() { std::filesystem::remove_all(mPlace); }
    ~JournalTest() override { std::filesystem::remove_all(mPlace); }

    std::filesystem::path mPlace = std::filesystem::temp_directory_path() / L"期初.batches";
};

TEST_F(JournalTest, ABatchIsReadAsItWasWritten) {
    FolderJournal journal(mPlace);
    journal.End(journal.Begin(SampleIntent()), BatchOutcome::Written);
    const auto read = FolderJournal(mPlace).Read(1);
    journal_test::ExpectSame(read.intent, SampleIntent());
    EXPECT_EQ(read.outcome, BatchOutcome::Written);
    EXPECT_EQ(read.problem, "");
}

TEST_F(JournalTest, ABatchRunsUntilItsJournalEndsIt) {
    FolderJournal other(mPlace);
    {
        FolderJournal journal(mPlace);
        journal.Begin(SampleIntent());
        EXPECT_TRUE(other.Read(1).running);
        EXPECT_THROW(other.End(1, BatchOutcome::Written), platform::JournalFailed);
        EXPECT_THROW(other.Withdraw(1), platform::JournalFailed);
    }
    EXPECT_FALSE(other.Read(1).running);
    // What was being written when its program ended is written anew.
    std::ofstream(mPlace / "1.jsonl", std::ios::app | std::ios::binary) << "{\"batch\":1";
    other.End(1, BatchOutcome::InDoubt);
    other.End(1, BatchOutcome::Written);
    EXPECT_EQ(other.Read(1).outcome, BatchOutcome::Written);
    EXPECT_EQ(other.Read(1).problem, "");
}

TEST_F(JournalTest, AWithdrawnBatchIsGone) {
    FolderJournal journal(mPlace);
    journal.Withdraw(journal.Begin(SampleIntent()));
    EXPECT_TRUE(journal.Batches().empty());
    FolderJournal(mPlace).Begin(SampleIntent());
    journal.Withdraw(1);
    EXPECT_TRUE(journal.Batches().empty());
}

TEST(FileHash, IsSha256) {
    EXPECT_EQ(journal::HashOfText("abc"),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

}  // namespace
}  // namespace kelvane::com
