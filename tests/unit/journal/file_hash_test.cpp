#include "adapters/journal/file_hash.h"

#include <gtest/gtest.h>

#include "adapters/journal/crc32.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::journal_test {

using host_test::TemporaryFolder;
using host_test::WriteText;
using journal::HashOfFile;
using journal::HashOfText;

namespace {

// The check value that the checksum's definition names.
static_assert(journal::Crc32("123456789") == 0xCBF43926U);

// The examples of the hash's definition.
TEST(FileHash, IsSha256) {
    EXPECT_EQ(HashOfText(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(HashOfText("abc"),
              "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
    EXPECT_EQ(HashOfText(std::string(1'000'000, 'a')),
              "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

TEST(FileHash, OfAFileIsThatOfItsBytes) {
    const TemporaryFolder folder;
    const std::string path = (folder / "期初.csv").string();
    for (const auto& text :
         {std::string(), std::string("a\r\n\0b", 5), std::string(200'000, 'x')}) {
        WriteText(path, text);
        EXPECT_EQ(HashOfFile(path), HashOfText(text));
    }
}

TEST(FileHash, SaysWhichFileCannotBeRead) {
    const TemporaryFolder folder;
    const std::string path = (folder / "no.csv").string();
    try {
        HashOfFile(path);
        FAIL();
    } catch (const std::runtime_error& failed) {
        EXPECT_EQ(failed.what(), "文件 " + path + " 不存在（No such file or directory）");
    }
    EXPECT_THROW(HashOfFile(folder.Path().string()), std::runtime_error);
}

}  // namespace
}  // namespace kelvane::journal_test
