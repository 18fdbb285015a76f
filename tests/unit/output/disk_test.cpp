#include "adapters/output/files/disk.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <system_error>

#include "tests/unit/host/temporary_folder.h"

namespace kelvane::output_test {

using host_test::ReadText;
using host_test::TemporaryFolder;
using host_test::WriteText;

namespace {

std::error_code Refusal(const std::function<void()>& work) {
    try {
        work();
    } catch (const std::system_error& refused) {
        return refused.code();
    }
    return {};
}

class DiskTest : public testing::Test {
protected:
    TemporaryFolder mFolder;
    std::string mPath = (mFolder / "a").string();
    output::Disk& mDisk = output::SystemDisk();
};

TEST_F(DiskTest, AFileIsGoneOnWithBehindWhatIsLeftOfIt) {
    WriteText(mPath, "one two");
    const int file = mDisk.Reopen(mPath);
    mDisk.CutOff(file, 3);
    mDisk.Write(file, " more");
    mDisk.Close(file);
    EXPECT_EQ(ReadText(mPath), "one more");
}

TEST_F(DiskTest, OneAloneGoesOnWithAFile) {
    EXPECT_EQ(Refusal([&] { mDisk.Reopen(mPath); }), std::errc::no_such_file_or_directory);
    EXPECT_FALSE(mDisk.IsBeingWritten(mPath));
    int file = mDisk.Create(mPath);
    for (int round = 0; round < 2; ++round) {
        EXPECT_TRUE(mDisk.IsBeingWritten(mPath));
        EXPECT_EQ(Refusal([&] { mDisk.Reopen(mPath); }), std::errc::device_or_resource_busy);
        mDisk.Close(file);
        EXPECT_FALSE(mDisk.IsBeingWritten(mPath));
        if (round == 0) file = mDisk.Reopen(mPath);
    }
}

TEST_F(DiskTest, AFolderIsMadeForItsOwnerWithThoseAboveIt) {
    mDisk.MakeFolder(mPath + "/b/c/");
    for (const char* made : {"", "/b", "/b/c"}) {
        struct stat found {};
        ASSERT_EQ(stat((mPath + made).c_str(), &found), 0);
        EXPECT_EQ(found.st_mode & 0777U, 0700U) << made;
    }
    EXPECT_FALSE(Refusal([&] { mDisk.MakeFolder(mPath + "/b/c"); }));
    WriteText(mPath + "/file", "");
    for (const char* refused : {"/file", "/file/d"}) {
        EXPECT_EQ(Refusal([&] { mDisk.MakeFolder(mPath + refused); }), std::errc::file_exists);
    }
}

}  // namespace
}  // namespace kelvane::output_test
