// The journal of batches in a folder: a file of JSON lines for each batch, 1.jsonl, 2.jsonl and so
// on (docs/batches.md).
#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <vector>

#include "adapters/output/files/disk.h"
#include "platform/batch_journal.h"

namespace kelvane::journal {

class FolderJournal : public platform::BatchJournal {
public:
    // The folder is made, for its owner alone, when the first batch begins. `disk` outlives the
    // journal.
    explicit FolderJournal(std::filesystem::path folder, output::Disk& disk = output::SystemDisk());
    ~FolderJournal() override;
    FolderJournal(const FolderJournal&) = delete;
    FolderJournal& operator=(const FolderJournal&) = delete;

    int Begin(const platform::BatchIntent& intent) override;
    void End(int number, platform::BatchOutcome outcome) override;
    void Withdraw(int number) override;
    std::vector<platform::Batch> Batches() override;
    platform::Batch Read(int number) override;

private:
    struct Running;

    std::filesystem::path FileOf(int number) const;
    std::vector<int> Numbers() const;
    std::unique_ptr<Running> CreateNext();
    std::unique_ptr<Running> Reopen(int number);
    void WriteIntent(Running& batch, const platform::BatchIntent& intent);
    void WriteOutcome(Running& batch, platform::BatchOutcome outcome);
    void Remove(int number);
    platform::Batch Look(int number, bool withChanges);

    std::filesystem::path mFolder;
    output::Disk& mDisk;
    // The batches that this journal began and that run.
    std::map<int, std::unique_ptr<Running>> mRunning;
};

}  // namespace kelvane::journal
