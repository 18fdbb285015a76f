#include "host/surroundings/user_settings_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>

#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using host::AccountOfConnection;
using host::AccountOfFile;
using host::UserSettingsFile;

class UserSettingsFileTest : public ::testing::Test {
protected:
    UserSettingsFileTest() { mSettings.BelongTo("/books.kelvane", "zhang"); }

    TemporaryFolder mFolder;
    std::filesystem::path mPath = mFolder / "kelvane" / "windows.txt";
    UserSettingsFile mSettings{mPath};
};

TEST_F(UserSettingsFileTest, KeepsATextByItsName) {
    EXPECT_EQ(mSettings.Kept("list"), "");
    mSettings.Keep("list", "zoom 110");
    mSettings.Keep("lines of\tan entry", "zoom 120\nx");
    EXPECT_EQ(UserSettingsFile(mPath).Kept("list"), "");
    UserSettingsFile again(mPath);
    again.BelongTo("/books.kelvane", "zhang");
    EXPECT_EQ(again.Kept("list"), "zoom 110");
    EXPECT_EQ(again.Kept("lines of\tan entry"), "zoom 120 x");
    EXPECT_EQ(again.Kept("lis"), "");
    again.Keep("list", "zoom 130");
    EXPECT_EQ(mSettings.Kept("list"), "zoom 130");
    mSettings.Keep("list", "");
    EXPECT_EQ(mSettings.Kept("list"), "");
    EXPECT_EQ(ReadText(mPath), "/books.kelvane\tzhang\tlines of an entry\tzoom 120 x\n");
}

TEST_F(UserSettingsFileTest, EveryOperatorAndAccountHasItsOwn) {
    mSettings.Keep("list", "zoom 110");
    mSettings.BelongTo("/books.kelvane", "li");
    EXPECT_EQ(mSettings.Kept("list"), "");
    mSettings.Keep("list", "zoom 120");
    mSettings.BelongTo("/other.kelvane", "zhang");
    EXPECT_EQ(mSettings.Kept("list"), "");
    mSettings.BelongTo("/books.kelvane", "zhang");
    EXPECT_EQ(mSettings.Kept("list"), "zoom 110");
    mSettings.BelongTo("", "zhang");
    mSettings.Keep("list", "zoom 200");
    EXPECT_EQ(mSettings.Kept("list"), "");
    EXPECT_EQ(ReadText(mPath),
              "/books.kelvane\tzhang\tlist\tzoom 110\n/books.kelvane\tli\tlist\tzoom 120\n");
}

TEST_F(UserSettingsFileTest, TheFileAndItsFolderAreTheOwnersAlone) {
    mSettings.Keep("list", "zoom 110");
    struct stat file {};
    struct stat folder {};
    ASSERT_EQ(stat(mPath.c_str(), &file), 0);
    ASSERT_EQ(stat(mPath.parent_path().c_str(), &folder), 0);
    EXPECT_EQ(file.st_mode & 0777U, 0600U);
    EXPECT_EQ(folder.st_mode & 0777U, 0700U);
}

TEST_F(UserSettingsFileTest, LinesThatSaySomethingElseStay) {
    std::filesystem::create_directories(mPath.parent_path());
    WriteText(mPath, "; a remark\r\nnonsense\n\n/books.kelvane\tzhang\tlist\tzoom 110");
    EXPECT_EQ(mSettings.Kept("list"), "zoom 110");
    mSettings.Keep("list", "zoom 120");
    EXPECT_EQ(ReadText(mPath), "; a remark\nnonsense\n\n/books.kelvane\tzhang\tlist\tzoom 120\n");
}

TEST_F(UserSettingsFileTest, AFileThatIsNoneOfOursIsLeftAlone) {
    std::filesystem::create_directories(mPath.parent_path());
    const std::string large(2U << 20U, 'x');
    WriteText(mPath, large);
    mSettings.Keep("list", "zoom 110");
    EXPECT_EQ(mSettings.Kept("list"), "");
    EXPECT_EQ(ReadText(mPath), large);
    std::filesystem::remove(mPath);
    std::filesystem::create_directories(mPath);
    mSettings.Keep("list", "zoom 110");
    EXPECT_EQ(mSettings.Kept("list"), "");
    EXPECT_TRUE(std::filesystem::is_directory(mPath));
    WriteText(mFolder / "file", "");
    UserSettingsFile nowhere(mFolder / "file" / "windows.txt");
    nowhere.BelongTo("/books.kelvane", "zhang");
    nowhere.Keep("list", "zoom 110");
    EXPECT_EQ(nowhere.Kept("list"), "");
    UserSettingsFile unknown({});
    unknown.BelongTo("/books.kelvane", "zhang");
    unknown.Keep("list", "zoom 110");
    EXPECT_EQ(unknown.Kept("list"), "");
}

TEST(AccountName, IsAFilesWholePath) {
    EXPECT_EQ(AccountOfFile("books.kelvane"),
              (std::filesystem::current_path() / "books.kelvane").string());
    EXPECT_EQ(AccountOfFile("/folder/../books.kelvane"), "/books.kelvane");
}

TEST(AccountName, OfAServerHoldsNoPasswordAndNoUser) {
    EXPECT_EQ(AccountOfConnection("Driver={X};server=s1,1433;DATABASE=books;UID=sa;PWD=secret"),
              "Server=s1,1433;Database=books");
    EXPECT_EQ(AccountOfConnection("Provider=SQLOLEDB;Data Source=s1;Initial Catalog=books;"
                                  "User ID=sa;Password=secret"),
              "Data Source=s1;Initial Catalog=books");
    EXPECT_EQ(AccountOfConnection("UID=sa;PWD=secret"), "");
    EXPECT_EQ(AccountOfConnection("secret"), "");
    EXPECT_EQ(AccountOfConnection(""), "");
}

class UserSettingsPathTest : public ::testing::Test {
protected:
    void SetUp() override {
        unsetenv("XDG_CONFIG_HOME");
        setenv("HOME", "/home/operator", 1);
    }
};

TEST_F(UserSettingsPathTest, LiesInTheUsersFolderForSettings) {
    EXPECT_EQ(host::UserSettingsPath(), "/home/operator/.config/kelvane/windows.txt");
    setenv("XDG_CONFIG_HOME", "/settings", 1);
    EXPECT_EQ(host::UserSettingsPath(), "/settings/kelvane/windows.txt");
    unsetenv("XDG_CONFIG_HOME");
    unsetenv("HOME");
    EXPECT_EQ(host::UserSettingsPath(), "");
}

}  // namespace
}  // namespace kelvane::host_test
