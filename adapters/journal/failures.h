// How operators are told that the journal cannot be written or read.
#pragma once

#include <filesystem>
#include <string>
#include <system_error>

#include "platform/batch_journal.h"

namespace kelvane::journal {

// Why the system refused, to stand behind a file's name: in Chinese, with the system's own words.
std::string ReasonOf(const std::error_code& code);

// Throws platform::JournalFailed: what is wrong with `path`.
[[noreturn]] void Fail(const std::filesystem::path& path, const std::string& reason);

// Does `work` on `path`; throws platform::JournalFailed when the system refuses.
template <typename Work>
auto Guarded(const std::filesystem::path& path, const Work& work) {
    try {
        return work();
    } catch (const std::system_error& refused) {
        Fail(path, ReasonOf(refused.code()));
    }
}

}  // namespace kelvane::journal
