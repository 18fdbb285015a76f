// A journal of batches in memory: for tests of who writes it, and of what may happen between its
// entries and the account's.
#pragma once

#include <functional>
#include <vector>

#include "platform/batch_journal.h"

namespace kelvane::support {

class MemoryJournal : public platform::BatchJournal {
public:
    std::vector<platform::Batch> batches;
    // Called when a batch has begun.
    std::function<void()> begun;
    bool endFails = false;

    int Begin(const platform::BatchIntent& intent) override {
        platform::Batch batch;
        batch.number = batches.empty() ? 1 : batches.back().number + 1;
        batch.intent = intent;
        batches.push_back(batch);
        if (begun) begun();
        return batch.number;
    }
    void End(int number, platform::BatchOutcome outcome) override {
        if (endFails) throw platform::JournalFailed("模拟的日志错误");
        Find(number).outcome = outcome;
    }
    void Withdraw(int number) override {
        std::erase_if(batches, [&](const platform::Batch& each) { return each.number == number; });
    }
    std::vector<platform::Batch> Batches() override {
        std::vector<platform::Batch> heads = batches;
        for (platform::Batch& batch : heads) batch.intent.changes.clear();
        return heads;
    }
    platform::Batch Read(int number) override { return Find(number); }

private:
    platform::Batch& Find(int number) {
        for (platform::Batch& batch : batches) {
            if (batch.number == number) return batch;
        }
        throw platform::JournalFailed("没有批次 " + std::to_string(number));
    }
};

}  // namespace kelvane::support
