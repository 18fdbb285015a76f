// BatchJournal: what is put into an account at one go, and taken back, is written down before it is
// done, with every row as it was and as it will be. After a crash this tells what was meant.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/date_time.h"

namespace kelvane::platform {

// Columns with their texts, in the order in which they were read. Any bytes are kept.
using RowFields = std::vector<std::pair<std::string, std::string>>;

// An entry and its detail lines as they are stored.
struct RowImage {
    RowFields fields;
    std::vector<RowFields> lines;

    friend bool operator==(const RowImage&, const RowImage&) = default;
};

// A new row has nothing before, a deleted one nothing after.
struct BatchChange {
    std::int64_t identity = 0;
    std::optional<RowImage> before;
    std::optional<RowImage> after;

    friend bool operator==(const BatchChange&, const BatchChange&) = default;
};

struct BatchIntent {
    std::string kind;  // "import" or "undo"
    int undoes = 0;    // the batch that an undo takes back
    std::string user;
    DateTime time;
    // What is imported, and the lines when they are in a file of their own: names and hashes.
    std::string file, hash, linesFile, linesHash;
    std::vector<BatchChange> changes;
};

// InDoubt: the answer to the commit was lost.
enum class BatchOutcome { Written, NotWritten, InDoubt };

// How many rows are new, changed and deleted.
struct BatchCounts {
    std::size_t created = 0;
    std::size_t changed = 0;
    std::size_t deleted = 0;

    std::size_t All() const { return created + changed + deleted; }
    void Add(const BatchChange& change) {
        ++(!change.before ? created : !change.after ? deleted : changed);
    }
    friend bool operator==(const BatchCounts&, const BatchCounts&) = default;
};

struct Batch {
    int number = 0;
    BatchIntent intent;
    // Known once the intent is whole.
    BatchCounts counts;
    // The intent was cut off while it was being written: Begin() never returned, so that nothing
    // was done. It has its problem, too, unless it is still being written.
    bool neverBegun = false;
    // A program is at it: between its Begin() and its End().
    bool running = false;
    // Nothing: unfinished.
    std::optional<BatchOutcome> outcome;
    // Why it cannot be read whole, with the line, in Chinese; what else is said of it is what could
    // be read. Empty for a sound batch, a running or an unfinished one.
    std::string problem;
};

// The journal cannot be written or read; says in Chinese which file and why, for operators.
class JournalFailed : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// Everything here throws JournalFailed.
class BatchJournal {
public:
    virtual ~BatchJournal() = default;

    // Writes `intent` and returns its number, the next one, when it is on the disk. The batch runs
    // until End(), Withdraw(), or the end of this journal. Nothing is left of one that fails.
    virtual int Begin(const BatchIntent& intent) = 0;

    // Writes how the batch ended; it is on the disk when this returns. The batch may be one that
    // another program left unfinished or in doubt; not one that still runs elsewhere, that is
    // damaged, or that has another outcome. The outcome that it already has may be said again.
    virtual void End(int number, BatchOutcome outcome) = 0;

    // Takes a batch away of which it is certain that nothing was written. Its number may be given
    // again. Not one that runs elsewhere, was written, or is damaged.
    virtual void Withdraw(int number) = 0;

    // All batches by ascending number, without their changes; damaged ones with their problem.
    virtual std::vector<Batch> Batches() = 0;

    // One batch with its changes; throws when there is none of that number.
    virtual Batch Read(int number) = 0;
};

}  // namespace kelvane::platform
