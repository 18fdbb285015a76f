// The list written to a file, and the print settings, when any one call of the disk fails: the old
// file or the whole new one, nothing left beside it, and the operator is told which.
#include <filesystem>
#include <fstream>
#include <iterator>

#include "adapters/output/files/named_files.h"
#include "adapters/output/formats/xml_text_document.h"
#include "adapters/output/output_print_control.h"
#include "adapters/output/style/style_service.h"
#include "tests/faults/counting_disk.h"
#include "tests/faults/entry_world.h"
#include "tests/faults/unsynced_files.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::faults {
namespace {

using host_test::ReadText;
using host_test::WriteText;

class FileWorld : public EntryWorld {
public:
    explicit FileWorld(const std::string& name) : path(mFolder / name) {
        WriteText(path, kOld);
        data::gPrintStylePath = (mFolder / "").string();
        services.createPrintControl = [this] {
            return std::make_unique<output::OutputPrintControl>(output::PrintEnvironment{
                .windows = windows,
                .surroundings = mFiles,
                .failed = [](std::string_view place,
                             std::string_view reason) { data::ReportTrapped(place, reason); },
                .disk = mDisk});
        };
        services.createPrintStyle = [] { return std::make_unique<output::StyleService>(); };
        services.createXmlDocument = [this] {
            return std::make_unique<output::XmlTextDocument>(mDisk);
        };
    }
    ~FileWorld() override { Form().Unload(); }

    std::string File() const { return ReadText(path); }
    auto FilesInFolder() const {
        return std::distance(std::filesystem::directory_iterator(mFolder.Path()), {});
    }

    static constexpr const char* kOld = "old";
    FailingCalls diskCalls;

private:
    host_test::TemporaryFolder mFolder;

public:
    const std::filesystem::path path;

private:
    CountingDisk mDisk{diskCalls};
    output::NamedFiles mFiles{[this](const auto&) { return path.string(); }};
};

// Whether the file is all of it, by the one that was written without a fault.
using IsWhole = bool (*)(const std::string& file, const std::string& complete);

bool IsSame(const std::string& file, const std::string& complete) {
    return file == complete;
}

// A workbook says when it was made, and is shorter or longer by that: its directory stands at its
// end.
bool EndsAsWorkbook(const std::string& file, const std::string& /*complete*/) {
    constexpr std::size_t kEnd = 22;
    return file.size() > kEnd && file.compare(file.size() - kEnd, 4, "PK\5\6") == 0;
}

// Pages say when they were made, too.
bool EndsAsPages(const std::string& file, const std::string& /*complete*/) {
    return file.ends_with("%%EOF\n");
}

struct Deed {
    const char* name;
    const char* file;
    IsWhole isWhole;
    void (*act)(FileWorld& world);
    const char* success;
    const char* failure;
};

class FileFaults : public testing::TestWithParam<Deed> {
    UnsyncedFiles mFiles;
};

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

// Returns whether there was such a call.
bool CheckFault(const Deed& deed, const std::string& complete, Fault fault, int number) {
    SCOPED_TRACE("call " + std::to_string(number));
    FileWorld world(deed.file);
    world.Open();
    world.diskCalls.Fail(number, fault);
    deed.act(world);
    const bool failed = world.diskCalls.Heal();
    const std::string told = world.TakeTold();
    const bool isWritten = world.File() != FileWorld::kOld;
    EXPECT_TRUE(!isWritten || deed.isWhole(world.File(), complete));
    EXPECT_EQ(isWritten, Contains(told, deed.success)) << told;
    EXPECT_EQ(!isWritten, Contains(told, deed.failure)) << told;
    EXPECT_EQ(world.FilesInFolder(), 1);
    deed.act(world);
    EXPECT_TRUE(deed.isWhole(world.File(), complete));
    EXPECT_TRUE(Contains(world.TakeTold(), deed.success));
    EXPECT_EQ(world.FilesInFolder(), 1);
    world.ExpectUsable();
    return failed;
}

TEST_P(FileFaults, LeaveTheOldFileOrTheWholeNewOne) {
    const Deed& deed = GetParam();
    std::string complete;
    {
        FileWorld world(deed.file);
        world.Open();
        deed.act(world);
        complete = world.File();
        ASSERT_NE(complete, FileWorld::kOld);
        ASSERT_TRUE(deed.isWhole(complete, complete));
    }
    for (const Fault fault : {Fault::Error, Fault::Gone}) {
        int number = 1;
        while (CheckFault(deed, complete, fault, number)) {
            if (testing::Test::HasFailure()) return;
            ++number;
        }
        EXPECT_GT(number, 1) << "nothing failed";
    }
}

void Export(FileWorld& world) {
    world.Form().ExportList();
}

void SaveSettings(FileWorld& world) {
    world.windows.answers = {platform::MessageAnswer::Yes};
    world.Form().xmlPrt_SaveSettings("<a>1</a>", "<b>2</b>");
}

constexpr const char* kWritten = "成功输出到文件。";
constexpr const char* kNotWritten = "文件没有写成，原有的文件没有改变。";

INSTANTIATE_TEST_SUITE_P(
    , FileFaults,
    testing::Values(Deed{"Csv", "a.csv", IsSame, Export, kWritten, kNotWritten},
                    Deed{"Xml", "a.xml", IsSame, Export, kWritten, kNotWritten},
                    Deed{"Xlsx", "a.xlsx", EndsAsWorkbook, Export, kWritten, kNotWritten},
                    Deed{"Pdf", "a.pdf", EndsAsPages, Export, kWritten, kNotWritten},
                    Deed{"Settings", "PeriodItemStyle.xml", IsSame, SaveSettings, "格式保存成功！",
                         "设置没有保存。"}),
    [](const auto& deed) { return std::string(deed.param.name); });

}  // namespace
}  // namespace kelvane::faults
