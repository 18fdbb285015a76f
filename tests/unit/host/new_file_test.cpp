#include "host/account/new_file.h"

#include <gtest/gtest.h>

#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

namespace fs = std::filesystem;

using host::FileRefused;
using host::NewFile;
using Existing = NewFile::Existing;

std::string Refusal(const fs::path& path, Existing existing) {
    try {
        const NewFile file(path, existing);
    } catch (const FileRefused& refused) {
        return refused.what();
    }
    return "accepted";
}

class NewFileTest : public ::testing::Test {
protected:
    TemporaryFolder mFolder;
    fs::path mPath = mFolder / "account";
};

TEST_F(NewFileTest, TakesItsNameWhenItIsFinished) {
    {
        NewFile file(mPath, Existing::Keep);
        WriteText(file.Draft(), "whole");
        EXPECT_EQ(file.Draft().parent_path(), mFolder.Path());
        EXPECT_FALSE(fs::exists(mPath));
        file.Finish();
    }
    EXPECT_EQ(ReadText(mPath), "whole");
    EXPECT_EQ(mFolder.FileCount(), 1U);
}

TEST_F(NewFileTest, LeavesNothingWhenItIsNotFinished) {
    {
        const NewFile file(mPath, Existing::Keep);
        WriteText(file.Draft(), "half");
        WriteText(file.Draft().string() + "-wal", "half");
    }
    EXPECT_EQ(mFolder.FileCount(), 0U);
}

TEST_F(NewFileTest, KeepsAnExistingFile) {
    WriteText(mPath, "old");
    EXPECT_EQ(Refusal(mPath, Existing::Keep),
              mPath.string() + " exists already; --force replaces it");
    EXPECT_EQ(ReadText(mPath), "old");
}

TEST_F(NewFileTest, KeepsAFileThatAppearedMeanwhile) {
    NewFile file(mPath, Existing::Keep);
    WriteText(file.Draft(), "new");
    WriteText(mPath, "someone else's");
    EXPECT_THROW(file.Finish(), FileRefused);
    EXPECT_EQ(ReadText(mPath), "someone else's");
}

TEST_F(NewFileTest, ReplacesAnExistingFileOnlyAtTheEnd) {
    WriteText(mPath, "old");
    NewFile file(mPath, Existing::Replace);
    WriteText(file.Draft(), "new");
    EXPECT_EQ(ReadText(mPath), "old");
    file.Finish();
    EXPECT_EQ(ReadText(mPath), "new");
}

TEST_F(NewFileTest, FollowsALink) {
    WriteText(mFolder / "real", "old");
    fs::create_symlink("real", mPath);
    NewFile file(mPath, Existing::Replace);
    WriteText(file.Draft(), "new");
    file.Finish();
    EXPECT_TRUE(fs::is_symlink(mPath));
    EXPECT_EQ(ReadText(mFolder / "real"), "new");
}

TEST_F(NewFileTest, RefusesWhatIsNoPlaceForAFile) {
    fs::create_directory(mPath);
    EXPECT_EQ(Refusal(mPath, Existing::Replace), mPath.string() + " is a folder");
    const fs::path missing = mFolder.Path() / "missing" / "account";
    EXPECT_EQ(Refusal(missing, Existing::Replace),
              missing.string() + ": there is no folder " + (mFolder / "missing").string());
    EXPECT_EQ(Refusal("/dev/null", Existing::Replace), "/dev/null is no plain file");
    EXPECT_TRUE(fs::exists("/dev/null"));
    EXPECT_EQ(Refusal("", Existing::Keep), "the file's name is empty");
}

TEST_F(NewFileTest, RefusesAnAccountInUse) {
    for (const auto& companion : host::CompanionFiles(mPath)) {
        WriteText(mPath, "old");
        WriteText(companion, "rest");
        EXPECT_EQ(Refusal(mPath, Existing::Replace),
                  mPath.string() + " is in use, or was not closed properly: there is " +
                      companion.string());
        EXPECT_EQ(ReadText(mPath), "old");
        fs::remove(companion);
    }
}

}  // namespace
}  // namespace kelvane::host_test
