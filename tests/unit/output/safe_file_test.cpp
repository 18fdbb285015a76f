#include "adapters/output/files/safe_file.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "adapters/output/formats/xml_text_document.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/output/failing_disk.h"

namespace kelvane::output_test {

using host_test::ReadText;
using host_test::TemporaryFolder;
using host_test::WriteText;
using output::FileFailure;
using output::SafeFile;
using output::XmlTextDocument;

namespace {

namespace fs = std::filesystem;

std::string Reason(const std::function<void()>& work) {
    try {
        work();
    } catch (const FileFailure& failure) {
        return failure.what();
    }
    return "none";
}

TEST(SafeFile, PutsTheFileInItsPlaceAtTheEnd) {
    const TemporaryFolder folder;
    const std::string path = (folder / "a.txt").string();
    WriteText(path, "old");
    {
        SafeFile file(path);
        file.Write("new");
        EXPECT_EQ(ReadText(path), "old");
        file.Finish();
    }
    EXPECT_EQ(ReadText(path), "new");
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST(SafeFile, LeavesWhatWasThereWhenItIsGivenUp) {
    const TemporaryFolder folder;
    WriteText(folder / "a.txt", "old");
    {
        SafeFile file((folder / "a.txt").string());
        file.Write(std::string(1U << 20U, 'x'));
    }
    EXPECT_EQ(ReadText(folder / "a.txt"), "old");
    EXPECT_EQ(folder.FileCount(), 1U);
}

// Whichever call of the system fails, first or last.
TEST(SafeFile, LeavesWhatWasThereWhateverFails) {
    for (const auto failing :
         {FailingDisk::Call::CheckWritable, FailingDisk::Call::Create, FailingDisk::Call::Write,
          FailingDisk::Call::CopyRights, FailingDisk::Call::Sync, FailingDisk::Call::Rename}) {
        const TemporaryFolder folder;
        const std::string path = (folder / "a.txt").string();
        WriteText(path, "old");
        FailingDisk disk(failing);
        EXPECT_EQ(Reason([&] {
                      SafeFile file(path, disk);
                      file.Write(std::string(1U << 20U, 'x'));
                      file.Finish();
                  }),
                  path + ": No space left on device");
        EXPECT_EQ(ReadText(path), "old") << static_cast<int>(failing);
        EXPECT_EQ(folder.FileCount(), 1U) << static_cast<int>(failing);
    }
}

// The new file is there by then.
TEST(SafeFile, IsWrittenThoughItsFolderCannotBeSynced) {
    const TemporaryFolder folder;
    WriteText(folder / "a.txt", "old");
    FailingDisk disk(FailingDisk::Call::SyncFolder);
    SafeFile file((folder / "a.txt").string(), disk);
    file.Write("new");
    EXPECT_NO_THROW(file.Finish());
    EXPECT_EQ(ReadText(folder / "a.txt"), "new");
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST(SafeFile, KeepsTheAccessRightsOfTheFileBefore) {
    const TemporaryFolder folder;
    const std::string path = (folder / "a.txt").string();
    WriteText(path, "old");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
    SafeFile file(path);
    file.Finish();
    struct stat found {};
    ASSERT_EQ(stat(path.c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 0777U, 0640U);
}

TEST(SafeFile, FollowsALink) {
    const TemporaryFolder folder;
    WriteText(folder / "target.txt", "old");
    fs::create_symlink("target.txt", folder / "link.txt");
    SafeFile file((folder / "link.txt").string());
    file.Write("new");
    file.Finish();
    EXPECT_TRUE(fs::is_symlink(folder / "link.txt"));
    EXPECT_EQ(ReadText(folder / "target.txt"), "new");
}

TEST(SafeFile, SaysWhatIsNoPlaceForAFile) {
    const TemporaryFolder folder;
    const std::string base = folder.Path().string();
    EXPECT_EQ(Reason([&] { SafeFile file(base); }), base + ": it is a folder");
    EXPECT_EQ(Reason([&] { SafeFile file(base + "/no/a.txt"); }),
              base + "/no/a.txt: there is no such folder");
    EXPECT_EQ(Reason([&] { SafeFile file(base + "/"); }), base + "/: it has no file name");
    EXPECT_EQ(Reason([] { SafeFile file(""); }), ": it has no file name");
    EXPECT_EQ(Reason([] { SafeFile file("/dev/null"); }), "/dev/null: it is no plain file");
}

TEST(SafeFile, TakesANameAsLongAsTheSystemDoes) {
    const TemporaryFolder folder;
    const std::string name(255, 'n');
    SafeFile file((folder / name).string());
    file.Write("x");
    file.Finish();
    EXPECT_EQ(ReadText(folder / name), "x");
}

TEST(SafeFile, RemovesTheDraftsThatKilledProgramsLeft) {
    const TemporaryFolder folder;
    WriteText(folder / ".kelvane-4711.tmp", "half a file");
    for (const char* other :
         {".kelvane-.tmp", ".kelvane-x.tmp", "kelvane-1.tmp", ".kelvane-1.tmp2"})
        WriteText(folder / other, "somebody's");
    SafeFile file((folder / "a.txt").string());
    file.Write("x");
    file.Finish();
    EXPECT_FALSE(fs::exists(folder / ".kelvane-4711.tmp"));
    EXPECT_EQ(folder.FileCount(), 5U);
}

TEST(SafeFile, LeavesTheDraftThatIsBeingWritten) {
    const TemporaryFolder folder;
    SafeFile first((folder / "a.txt").string());
    first.Write("first");
    SafeFile second((folder / "a.txt").string());
    second.Write("second");
    first.Finish();
    EXPECT_EQ(ReadText(folder / "a.txt"), "first");
    second.Finish();
    EXPECT_EQ(ReadText(folder / "a.txt"), "second");
    EXPECT_EQ(folder.FileCount(), 1U);
}

TEST(SafeFile, LeavesALinkThatIsNamedLikeADraft) {
    const TemporaryFolder folder;
    WriteText(folder / "precious", "kept");
    fs::create_symlink("precious", folder / ".kelvane-1.tmp");
    SafeFile file((folder / "a.txt").string());
    EXPECT_TRUE(fs::is_symlink(folder / ".kelvane-1.tmp"));
    EXPECT_EQ(ReadText(folder / "precious"), "kept");
}

TEST(XmlTextDocument, WritesTheTextByteForByte) {
    const TemporaryFolder folder;
    const std::string text = "<格式><a  b='1'/>\r\n<c>&#x4e2d;</c >\n</格式>";
    XmlTextDocument document;
    EXPECT_TRUE(document.LoadXml(text));
    document.Save(folder.Path().string() + "\\style.xml");
    EXPECT_EQ(ReadText(folder / "style.xml"), text);
}

TEST(XmlTextDocument, WritesAnEmptyFileForATextThatDoesNotParse) {
    const TemporaryFolder folder;
    WriteText(folder / "style.xml", "<old/>");
    XmlTextDocument document;
    EXPECT_TRUE(document.LoadXml("<格式/>"));
    for (const char* text :
         {"<格式><a></格式>", "", "<a/><b/>", "text", "<a>\xFF</a>", "<a b=1/>"}) {
        EXPECT_FALSE(document.LoadXml(text)) << text;
    }
    document.Save((folder / "style.xml").string());
    EXPECT_EQ(ReadText(folder / "style.xml"), "");
}

TEST(XmlTextDocument, DoesNotExpandEntities) {
    std::string text = "<!DOCTYPE a [<!ENTITY e0 \"x\">";
    for (int level = 1; level < 40; ++level) {
        const std::string before = "&e" + std::to_string(level - 1) + ";";
        text += "<!ENTITY e" + std::to_string(level) + " \"" + before + before + "\">";
    }
    XmlTextDocument document;
    EXPECT_FALSE(document.LoadXml(text + "]><a b=\"&e39;\"/>"));
}

TEST(XmlTextDocument, NamesTheFileThatItCannotWrite) {
    const TemporaryFolder folder;
    XmlTextDocument document;
    document.LoadXml("<格式/>");
    const std::string missing = folder.Path().string() + "/none/style.xml";
    EXPECT_EQ(Reason([&] { document.Save(missing); }), missing + ": there is no such folder");

    FailingDisk locked(FailingDisk::Call::CheckWritable);
    XmlTextDocument other(locked);
    other.LoadXml("<格式/>");
    const std::string path = (folder / "style.xml").string();
    WriteText(path, "<old/>");
    EXPECT_EQ(Reason([&] { other.Save(path); }), path + ": No space left on device");
    EXPECT_EQ(ReadText(path), "<old/>");
}

}  // namespace

}  // namespace kelvane::output_test
