// The journal of batches in a folder: a file of JSON lines for each batch, 1.jsonl, 2.jsonl and so
// on (docs/batches.md).
#pragma once

#include <filesystem>
#include <map>
#include <utility>
#include <vector>

#include "adapters/journal/batch_file.h"
#include "adapters/journal/line_chain.h"
#include "adapters/output/files/disk.h"
#include "platform/batch_journal.h"

namespace kelvane::journal {

// A file of the disk that is closed at the end.
class OpenFile {
public:
    OpenFile(output::Disk& disk, int file) : mDisk(&disk), mFile(file) {}
    ~OpenFile();
    OpenFile(OpenFile&& other) noexcept
        : mDisk(other.mDisk), mFile(std::exchange(other.mFile, -1)) {}
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    OpenFile& operator=(OpenFile&&) = delete;

    int Descriptor() const { return mFile; }

private:
    output::Disk* mDisk;
    int mFile;
};

class FolderJournal : public platform::BatchJournal {
public:
    // The folder is made, for its owner alone, when the first batch begins. `disk` outlives the
    // journal.
    explicit FolderJournal(std::filesystem::path folder, output::Disk& disk = output::SystemDisk())
        : mFolder(std::move(folder)), mDisk(disk) {}

    int Begin(const platform::BatchIntent& intent) override;
    void End(int number, platform::BatchOutcome outcome) override;
    void Withdraw(int number) override;
    std::vector<platform::Batch> Batches() override;
    platform::Batch Read(int number) override;

private:
    // A batch of this journal's own that runs; while it does its file is locked.
    struct Running {
        OpenFile file;
        LineChain chain;
    };

    std::filesystem::path FileOf(int number) const;
    std::vector<int> Numbers() const;
    OpenFile CreateNext(int& number);
    void WriteIntent(int file, LineChain& chain, const platform::BatchIntent& intent);
    void WriteOutcome(int number, int file, LineChain& chain, platform::BatchOutcome outcome);
    void Remove(int number);
    platform::Batch Look(int number, bool withChanges);

    std::filesystem::path mFolder;
    output::Disk& mDisk;
    std::map<int, Running> mRunning;
};

}  // namespace kelvane::journal
