// The parts of a workbook's file. Whatever the file says of their sizes, each byte is counted when
// it comes out, and what is more or less than said is refused.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/tables/byte_source.h"

namespace kelvane::tables {

class ZipArchive {
public:
    // `source` outlives the archive. Everything here throws Refusal.
    explicit ZipArchive(ByteSource& source);
    ~ZipArchive();
    ZipArchive(const ZipArchive&) = delete;
    ZipArchive& operator=(const ZipArchive&) = delete;

    // Names are compared without letter case.
    bool Has(std::string_view name) const;

    // Opens a part, the only one that is read at a time.
    void Open(std::string_view name);
    // The next bytes of the part, up to `count`; 0 at its end.
    std::size_t Read(char* to, std::size_t count);
    // Reads what is left and compares the whole part with its checksum.
    void Finish();
    // Leaves the part as it is.
    void Close();
    // To read the part costs as much as so many bytes, which count when they are more than came out
    // of it. A part that is read again costs no more than before.
    void Spend(std::uint64_t bytes);

private:
    struct Input;
    // Where a part begins in the file's directory, and which one of it it is.
    struct Entry {
        std::uint64_t place = 0;
        std::uint64_t number = 0;
        std::uint64_t spent = 0;
    };

    void List();
    void Check(int result);
    [[noreturn]] void RefuseDamaged();

    std::unique_ptr<Input> mInput;
    void* mArchive = nullptr;
    std::map<std::string, Entry> mEntries;
    std::string mPart;
    Entry* mOpen = nullptr;
    std::uint64_t mSaid = 0;
    std::uint64_t mRead = 0;
    std::uint64_t mSpent = 0;  // of all parts
};

}  // namespace kelvane::tables
