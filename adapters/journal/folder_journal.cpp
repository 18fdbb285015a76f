#include "adapters/journal/folder_journal.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <nlohmann/json.hpp>
#include <optional>

#include "adapters/journal/batch_file.h"
#include "adapters/journal/batch_text.h"
#include "adapters/journal/failures.h"
#include "platform/native_path.h"

namespace kelvane::journal {

namespace fs = std::filesystem;

using platform::Batch;
using platform::BatchIntent;
using platform::BatchOutcome;

namespace {

constexpr std::string_view kExtension = ".jsonl";
constexpr std::size_t kBufferSize = 1U << 16U;

// Nothing for a file that is no batch's: its name has to be the plain number.
std::optional<int> NumberOf(const fs::path& name) {
    const std::string text = platform::Utf8Of(name);
    if (!text.ends_with(kExtension) || text.front() < '1' || text.front() > '9')
        return std::nullopt;
    int number = 0;
    const char* end = text.data() + text.size() - kExtension.size();
    const auto [stop, failure] = std::from_chars(text.data(), end, number);
    if (failure != std::errc() || stop != end) return std::nullopt;
    return number;
}

}  // namespace

// A batch whose file is open here and locked for others.
struct FolderJournal::Running {
    Running(output::Disk& ownDisk, int openFile, int ownNumber)
        : disk(ownDisk), file(openFile), number(ownNumber), chain(ownNumber) {}
    ~Running() {
        try {
            disk.Close(file);
        } catch (const std::exception& failed) {
            // What counts was synced before.
            return;
        }
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

    output::Disk& disk;
    int file;
    int number;
    LineChain chain;
};

FolderJournal::FolderJournal(fs::path folder, output::Disk& disk)
    : mFolder(std::move(folder)), mDisk(disk) {}

FolderJournal::~FolderJournal() = default;

fs::path FolderJournal::FileOf(int number) const {
    return mFolder / (std::to_string(number) + std::string(kExtension));
}

std::vector<int> FolderJournal::Numbers() const {
    return Guarded(mFolder, [&] {
        std::vector<int> numbers;
        if (!fs::exists(mFolder)) return numbers;
        for (const auto& file : fs::directory_iterator(mFolder)) {
            if (const auto number = NumberOf(file.path().filename())) numbers.push_back(*number);
        }
        std::ranges::sort(numbers);
        return numbers;
    });
}

std::unique_ptr<FolderJournal::Running> FolderJournal::CreateNext() {
    const auto numbers = Numbers();
    int number = numbers.empty() ? 0 : numbers.back();
    for (;;) {
        if (number == std::numeric_limits<int>::max()) Fail(mFolder, "的编号已经用完");
        ++number;
        try {
            const int file = mDisk.Create(platform::Utf8Of(FileOf(number)));
            return std::make_unique<Running>(mDisk, file, number);
        } catch (const std::system_error& refused) {
            // Another program has just begun that one.
            if (refused.code() == std::errc::file_exists) continue;
            Fail(FileOf(number), ReasonOf(refused.code()));
        }
    }
}

std::unique_ptr<FolderJournal::Running> FolderJournal::Reopen(int number) {
    const int file =
        Guarded(FileOf(number), [&] { return mDisk.Reopen(platform::Utf8Of(FileOf(number))); });
    return std::make_unique<Running>(mDisk, file, number);
}

void FolderJournal::WriteIntent(Running& batch, const BatchIntent& intent) {
    std::string buffer = batch.chain.Seal(HeadLine(intent));
    const auto add = [&](const std::string& line) {
        buffer += line;
        if (buffer.size() < kBufferSize) return;
        mDisk.Write(batch.file, buffer);
        buffer.clear();
    };
    platform::BatchCounts counts;
    for (const auto& change : intent.changes) {
        add(batch.chain.SealText(ChangeText(change)));
        counts.Add(change);
    }
    add(batch.chain.Seal(CountsLine(counts)));
    mDisk.Write(batch.file, buffer);
    mDisk.Sync(batch.file);
    mDisk.SyncFolder(platform::Utf8Of(mFolder));
}

int FolderJournal::Begin(const BatchIntent& intent) {
    Guarded(mFolder, [&] { mDisk.MakeFolder(platform::Utf8Of(mFolder)); });
    auto batch = CreateNext();
    const int number = batch->number;
    const fs::path path = FileOf(number);
    std::error_code ignored;
    try {
        Guarded(path, [&] { WriteIntent(*batch, intent); });
        mRunning.emplace(number, std::move(batch));
    } catch (const Fault& fault) {
        fs::remove(path, ignored);
        Fail(path, fault.text);
    } catch (...) {
        fs::remove(path, ignored);
        throw;
    }
    return number;
}

void FolderJournal::WriteOutcome(Running& batch, BatchOutcome outcome) {
    Guarded(FileOf(batch.number), [&] {
        mDisk.Write(batch.file, batch.chain.Seal(OutcomeLine(outcome)));
        mDisk.Sync(batch.file);
    });
}

void FolderJournal::End(int number, BatchOutcome outcome) {
    if (auto own = mRunning.extract(number)) {
        WriteOutcome(*own.mapped(), outcome);
        return;
    }
    const auto batch = Reopen(number);
    const fs::path path = FileOf(number);
    const BatchFile found = ReadBatchFile(path, number, false);
    if (!found.batch.problem.empty()) Fail(path, found.batch.problem);
    const auto& known = found.batch.outcome;
    if (known == outcome) return;
    if (known && known != BatchOutcome::InDoubt) Fail(path, "已经有另一个结果");
    Guarded(path, [&] { mDisk.CutOff(batch->file, found.end); });
    batch->chain = found.chain;
    WriteOutcome(*batch, outcome);
}

void FolderJournal::Remove(int number) {
    Guarded(FileOf(number), [&] {
        fs::remove(FileOf(number));
        mDisk.SyncFolder(platform::Utf8Of(mFolder));
    });
}

void FolderJournal::Withdraw(int number) {
    if (mRunning.contains(number)) {
        Remove(number);
        mRunning.erase(number);
        return;
    }
    // While it is open here nobody else ends it.
    const auto batch = Reopen(number);
    const fs::path path = FileOf(number);
    const Batch found = ReadBatchFile(path, number, false).batch;
    if (!found.problem.empty() && !found.neverBegun) Fail(path, found.problem);
    if (found.outcome == BatchOutcome::Written) Fail(path, "已经写入账套");
    Remove(number);
}

Batch FolderJournal::Look(int number, bool withChanges) {
    // Asked first: what runs may have ended when it is read, but not the other way about.
    const bool locked = mDisk.IsBeingWritten(platform::Utf8Of(FileOf(number)));
    Batch batch = ReadBatchFile(FileOf(number), number, withChanges).batch;
    batch.running = locked && !batch.outcome && (batch.problem.empty() || batch.neverBegun);
    if (batch.running) batch.problem.clear();
    return batch;
}

std::vector<Batch> FolderJournal::Batches() {
    std::vector<Batch> batches;
    for (const int number : Numbers()) batches.push_back(Look(number, false));
    return batches;
}

Batch FolderJournal::Read(int number) {
    Guarded(FileOf(number), [&] {
        if (fs::exists(FileOf(number))) return;
        throw std::system_error(std::make_error_code(std::errc::no_such_file_or_directory));
    });
    return Look(number, true);
}

}  // namespace kelvane::journal
