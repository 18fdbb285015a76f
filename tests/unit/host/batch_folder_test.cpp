#include "host/surroundings/batch_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>

#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

namespace fs = std::filesystem;

using host::BatchFolderOfFile;
using host::BatchFolderOfServer;
using host::MapFileAt;
using host::MapPlaceOfFile;
using host::MapPlaceOfServer;

TEST(BatchFolder, OfAFileLiesBesideIt) {
    EXPECT_EQ(BatchFolderOfFile("a.kelvane"), "a.kelvane.batches");
    EXPECT_EQ(BatchFolderOfFile("/books/账套"), "/books/账套.batches");
}

TEST(BatchFolder, OfALinkLiesBesideTheFile) {
    const TemporaryFolder folder;
    WriteText(folder / "real.kelvane", "");
    fs::create_symlink("real.kelvane", folder / "link.kelvane");
    EXPECT_EQ(BatchFolderOfFile((folder / "link.kelvane").string()),
              fs::canonical(folder.Path()) / "real.kelvane.batches");
}

TEST(BatchFolder, TheMappingOfAFileLiesBesideIt) {
    EXPECT_EQ(MapPlaceOfFile("/books/账套.kelvane"), "/books/账套.kelvane.map");
    const TemporaryFolder folder;
    WriteText(folder / "real.kelvane", "");
    fs::create_symlink("real.kelvane", folder / "link.kelvane");
    EXPECT_EQ(MapPlaceOfFile((folder / "link.kelvane").string()),
              fs::canonical(folder.Path()) / "real.kelvane.map");
}

TEST(BatchFolder, AMappingIsAWorkbookUnlessOnlyATextIsThere) {
    const TemporaryFolder folder;
    const fs::path place = folder / "账套.kelvane.map";
    EXPECT_EQ(MapFileAt(place), place.string() + ".xlsx");
    WriteText(folder / "账套.kelvane.map.csv", "");
    EXPECT_EQ(MapFileAt(place), place.string() + ".csv");
    WriteText(folder / "账套.kelvane.map.xlsx", "");
    EXPECT_EQ(MapFileAt(place), place.string() + ".xlsx");
}

class ServerBatchFolderTest : public testing::Test {
protected:
    ServerBatchFolderTest() { setenv("XDG_DATA_HOME", "/data", 1); }
    ~ServerBatchFolderTest() override {
        if (mBefore) {
            setenv("XDG_DATA_HOME", mBefore->c_str(), 1);
        } else {
            unsetenv("XDG_DATA_HOME");
        }
    }

    static std::optional<std::string> Variable(const char* name) {
        const char* value = std::getenv(name);
        return value == nullptr ? std::nullopt : std::optional<std::string>(value);
    }

private:
    std::optional<std::string> mBefore = Variable("XDG_DATA_HOME");
};

TEST_F(ServerBatchFolderTest, LiesAmongTheUsersFiles) {
    const fs::path folder = BatchFolderOfServer("Driver=x;Server=db1;Database=books");
    EXPECT_EQ(folder.parent_path(), "/data/kelvane/batches");
    EXPECT_TRUE(folder.filename().string().starts_with("books-on-db1-")) << folder;
    EXPECT_EQ(MapPlaceOfServer("Driver=x;Server=db1;Database=books"),
              "/data/kelvane/maps" / folder.filename());
}

TEST_F(ServerBatchFolderTest, IsTheSameForEveryUserAndPassword) {
    EXPECT_EQ(BatchFolderOfServer("server=db1;DATABASE=books;UID=zhang;PWD=secret"),
              BatchFolderOfServer("Server=db1;Database=books;UID=li"));
}

TEST_F(ServerBatchFolderTest, IsAnotherForEveryAccountAndAPlainName) {
    std::set<std::string> names;
    const std::vector<std::string> connections = {"Server=db1;Database=books",
                                                  "Server=db1;Database=Books",
                                                  "Server=db1;Database=bo/oks",
                                                  "Server=db1;Database=bo-oks",
                                                  "Server=db1;Database=bo oks",
                                                  "Server=db1;Database={../../etc}",
                                                  "Server=db1;Database=.books",
                                                  "Server=db1;Database=账套\n\xFF",
                                                  "Server=db1,1433;Database=books",
                                                  "Server=db1;Port=5433;Database=books",
                                                  "Server=db1;Database=" + std::string(300, 'a'),
                                                  "Server=db1;Database=" + std::string(301, 'a'),
                                                  "DSN=books",
                                                  "Server=books"};
    for (const auto& connection : connections) {
        const fs::path folder = BatchFolderOfServer(connection);
        EXPECT_EQ(folder.parent_path(), "/data/kelvane/batches") << connection;
        const std::string name = folder.filename().string();
        EXPECT_LT(name.size(), 255U) << connection;
        EXPECT_NE(name.front(), '.') << connection;
        EXPECT_EQ(name.find_first_of("/\\:*?\"<>| \n\xFF"), std::string::npos) << name;
        names.insert(name);
    }
    EXPECT_EQ(names.size(), connections.size());
}

TEST_F(ServerBatchFolderTest, IsUnknownWithoutANameOrAHome) {
    EXPECT_THROW(BatchFolderOfServer("Driver=x;UID=zhang"), std::runtime_error);
    EXPECT_THROW(MapPlaceOfServer("Driver=x;UID=zhang"), std::runtime_error);
    const auto home = Variable("HOME");
    unsetenv("XDG_DATA_HOME");
    unsetenv("HOME");
    EXPECT_THROW(BatchFolderOfServer("DSN=books"), std::runtime_error);
    if (home) setenv("HOME", home->c_str(), 1);
}

}  // namespace
}  // namespace kelvane::host_test
