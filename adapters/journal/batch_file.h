// Reads the file of one batch, line by line, and finds whatever is wrong with it.
#pragma once

#include <cstdint>
#include <filesystem>

#include "adapters/journal/line_chain.h"
#include "platform/batch_journal.h"

namespace kelvane::journal {

struct BatchFile {
    platform::Batch batch;
    // Where the next outcome goes: behind so many bytes, as this line. What stands there was being
    // written when its program ended.
    std::uintmax_t end = 0;
    LineChain chain;
};

// What can be read of batch `number`, which `path` should be; what is wrong with it is its problem.
// Whether it is running is not looked at. Throws nothing but std::bad_alloc.
BatchFile ReadBatchFile(const std::filesystem::path& path, int number, bool withChanges);

}  // namespace kelvane::journal
