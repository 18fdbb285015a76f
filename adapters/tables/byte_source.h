// The bytes of a table, in a file or in memory, to be read from any place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace kelvane::tables {

class ByteSource {
public:
    virtual ~ByteSource() = default;
    ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    virtual std::uint64_t Size() const = 0;
    // Reads up to `count` bytes from `offset` on and says how many; fewer at the end alone. Throws
    // Refusal.
    virtual std::size_t Read(std::uint64_t offset, char* to, std::size_t count) = 0;
};

// The bytes of the file `path` (UTF-8), which stays open. Throws Refusal when it is no file that
// can be read.
std::unique_ptr<ByteSource> OpenFileBytes(const std::string& path);

std::unique_ptr<ByteSource> BytesOfText(std::string text);

// The first bytes, up to `count`.
std::string FirstBytes(ByteSource& source, std::size_t count);

}  // namespace kelvane::tables
