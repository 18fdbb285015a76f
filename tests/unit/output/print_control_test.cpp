#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/output/output_print_control.h"
#include "adapters/output/preview_window.h"
#include "adapters/output/style/settings_window.h"
#include "adapters/output/style/style_service.h"
#include "tests/support/acting_windows.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/output/failing_disk.h"
#include "tests/unit/output/recording_surroundings.h"
#include "tests/unit/output/sample_sheet.h"

namespace kelvane::output_test {

using host_test::ReadText;
using host_test::TemporaryFolder;
using host_test::WriteText;
using output::OutputPrintControl;
using output::PreviewWindow;
using output::SettingsWindow;
using output::StyleService;
using support::ActingWindows;
using support::MessageLines;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class PrintControlTest : public testing::Test {
protected:
    using Clock = output::WorkMeter::Clock;
    // On this clock every look at it takes a second.
    static Clock::time_point SlowNow() {
        static Clock::time_point now;
        return now += std::chrono::seconds(1);
    }

    OutputPrintControl& Control(output::Disk& disk = output::SystemDisk()) {
        mControl = std::make_unique<OutputPrintControl>(output::PrintEnvironment{
            .windows = mWindows,
            .surroundings = mSurroundings,
            .failed = [this](std::string_view place,
                             std::string_view) { mFailedPlaces.emplace_back(place); },
            .disk = disk,
            .now = mNow,
        });
        return *mControl;
    }
    // A control that took a list of so many rows.
    OutputPrintControl& Accepted(int rows = 3, output::Disk& disk = output::SystemDisk()) {
        OutputPrintControl& control = Control(disk);
        StyleService style;
        style.Open((mFolder / "style.xml").string(), "项目期初录入");
        style.SetTitle("0,200", "700");
        style.SetColumns("0,260", FormatText(), false);
        style.SetRows(rows, SampleSheet(rows).cells);
        EXPECT_EQ(control.SetDataStyleXml(style, platform::kDefaultStyle), 0);
        return control;
    }
    static std::string FormatText() { return platform::EncodeColumns(SampleColumns()); }
    static std::string DataText(int rows = 3) {
        std::string text;
        for (int row = 0; row < rows; ++row)
            platform::AppendRow(text, SampleSheet(rows).cells(row));
        return text;
    }
    int WriteTo(OutputPrintControl& control, const std::string& name) {
        mSurroundings.file = (mFolder / name).string();
        return control.WriteToFile(DataText(), FormatText());
    }

    TemporaryFolder mFolder;
    ActingWindows mWindows;
    RecordingSurroundings mSurroundings;
    std::vector<std::string> mFailedPlaces;
    Clock::time_point (*mNow)() = &Clock::now;
    std::unique_ptr<OutputPrintControl> mControl;
};

// Another maker's style service.
class ForeignStyle : public platform::PrintStyleService {
public:
    void Open(std::string_view, std::string_view) override {}
    void SetTitle(std::string_view, std::string_view) override {}
    void AddHeaderItem(const platform::PrintItem&) override {}
    void AddFooterItem(const platform::PrintItem&) override {}
    void SetColumns(std::string_view, std::string_view, bool) override {}
    void SetRows(int, std::function<std::string(int)>) override {}
    std::string ErrorText() const override { return "foreign"; }
};

TEST_F(PrintControlTest, RefusesAStyleThatIsNotItsOwn) {
    ForeignStyle style;
    EXPECT_NE(Control().SetDataStyleXml(style, platform::kDefaultStyle), 0);
}

TEST_F(PrintControlTest, RefusesWhatCannotBeLaidOut) {
    StyleService style;
    style.Open("", "");
    style.SetColumns("0,260", platform::EncodeColumns({Column("日期", 0)}), false);
    EXPECT_NE(Control().SetDataStyleXml(style, platform::kDefaultStyle), 0);
    EXPECT_EQ(style.ErrorText(), "表格没有可打印的列！");
    mControl->Preview();
    mControl->Print();
    EXPECT_THAT(mSurroundings.printedPages, IsEmpty());
}

TEST_F(PrintControlTest, TellsThatTheStyleFileWasNotUsedAndPrintsWithoutIt) {
    WriteText(mFolder / "style.xml", "<格式>\n");
    Accepted(100).Print();
    EXPECT_THAT(mFailedPlaces, ElementsAre("ReadStyle"));
    EXPECT_THAT(mSurroundings.failures, IsEmpty());
    EXPECT_THAT(mSurroundings.printedPages, ElementsAre(3));
}

TEST_F(PrintControlTest, PrintsThroughItsSurroundings) {
    Accepted(100).Print();
    EXPECT_THAT(mSurroundings.printedPages, ElementsAre(3));
    EXPECT_THAT(mWindows.messages, IsEmpty());
}

TEST_F(PrintControlTest, TellsThatPrintingFailed) {
    mSurroundings.printingFails = true;
    Accepted().Print();
    EXPECT_THAT(MessageLines(mWindows), ElementsAre("[打印|exclamation] 打印失败！"));
    EXPECT_THAT(mFailedPlaces, ElementsAre("Print"));
    EXPECT_THAT(mSurroundings.failures, ElementsAre("out of paper"));
}

TEST_F(PrintControlTest, AsksForAFileByItsTitleAndItsKinds) {
    EXPECT_EQ(Accepted().WriteToFile(DataText(), FormatText()), platform::kExportCancelled);
    ASSERT_THAT(mSurroundings.questions, SizeIs(1));
    const auto& question = mSurroundings.questions.front();
    EXPECT_EQ(question.title, "输出到文件");
    EXPECT_EQ(question.suggestedName, "项目期初录入.xlsx");
    std::vector<std::string> extensions;
    for (const auto& type : question.types) extensions.push_back(type.extension);
    EXPECT_THAT(extensions, ElementsAre("xlsx", "csv", "pdf", "xml"));
    EXPECT_THAT(mFailedPlaces, IsEmpty());
}

TEST_F(PrintControlTest, WritesEveryKindByItsExtension) {
    Accepted();
    for (const auto& [name, begins] :
         {std::pair{"a.xlsx", "PK"}, std::pair{"a.csv", "\xEF\xBB\xBF\"日期\","},
          std::pair{"a.pdf", "%PDF-"}, std::pair{"a.XML", "<?xml "}}) {
        EXPECT_EQ(WriteTo(*mControl, name), 0) << name;
        EXPECT_TRUE(ReadText(mFolder / name).starts_with(begins)) << name;
    }
    EXPECT_EQ(mFolder.FileCount(), 4U);
}

TEST_F(PrintControlTest, WritesPagesOfAGridThatCameWithoutAStyle) {
    EXPECT_EQ(WriteTo(Control(), "a.pdf"), 0);
    EXPECT_TRUE(ReadText(mFolder / "a.pdf").starts_with("%PDF-"));
}

TEST_F(PrintControlTest, FailsForAnUnknownExtension) {
    Accepted();
    for (const char* name : {"a.txt", "a", "a.", "xlsx", "a.xlsx.bak", ".d/a"}) {
        const int result = WriteTo(*mControl, name);
        EXPECT_NE(result, 0) << name;
        EXPECT_NE(result, platform::kExportCancelled) << name;
        EXPECT_EQ(
            mSurroundings.failures.back(),
            *mSurroundings.file + ": the name must end in one of these: .xlsx, .csv, .pdf, .xml");
    }
    EXPECT_EQ(mFolder.FileCount(), 0U);
}

TEST_F(PrintControlTest, FailsWithoutTheFolder) {
    EXPECT_EQ(WriteTo(Accepted(), "none/a.csv"), output::kRefused);
    EXPECT_EQ(mSurroundings.failures.back(), *mSurroundings.file + ": there is no such folder");
    EXPECT_THAT(mFailedPlaces, ElementsAre("WriteToFile"));
}

TEST_F(PrintControlTest, LeavesTheOldFileOnAFullDisk) {
    for (const char* name : {"a.csv", "a.pdf", "a.xml"}) {
        FailingDisk disk(FailingDisk::Call::Write);
        WriteText(mFolder / name, "old");
        EXPECT_EQ(WriteTo(Accepted(3, disk), name), output::kRefused) << name;
        EXPECT_EQ(ReadText(mFolder / name), "old") << name;
        EXPECT_EQ(mSurroundings.failures.back(), *mSurroundings.file + ": No space left on device");
    }
    EXPECT_EQ(mFolder.FileCount(), 3U);
}

TEST_F(PrintControlTest, LeavesTheOldFileWhenTheOperatorEndsLongWork) {
    mNow = SlowNow;
    mSurroundings.goesOn = [](std::size_t, std::size_t) { return false; };
    for (const char* name : {"a.xlsx", "a.csv", "a.pdf", "a.xml"}) {
        WriteText(mFolder / name, "old");
        EXPECT_EQ(WriteTo(Accepted(), name), platform::kExportCancelled) << name;
        EXPECT_EQ(ReadText(mFolder / name), "old") << name;
    }
    EXPECT_EQ(mFolder.FileCount(), 4U);
    EXPECT_THAT(mSurroundings.progressTitles, testing::Each("正在输出到文件…"));
    EXPECT_THAT(mSurroundings.failures, IsEmpty());
    EXPECT_THAT(mWindows.messages, IsEmpty());
}

TEST_F(PrintControlTest, ShowsHowFarLongWorkIs) {
    mNow = SlowNow;
    std::vector<std::pair<std::size_t, std::size_t>> shown;
    mSurroundings.goesOn = [&](std::size_t done, std::size_t total) {
        shown.emplace_back(done, total);
        return true;
    };
    for (const char* name : {"a.xlsx", "a.csv", "a.xml"}) {
        shown.clear();
        EXPECT_EQ(WriteTo(Accepted(), name), 0) << name;
        EXPECT_THAT(shown, ElementsAre(std::pair(1U, 3U), std::pair(2U, 3U), std::pair(3U, 3U)));
    }
    EXPECT_THAT(mSurroundings.progressTitles, SizeIs(3));
}

TEST_F(PrintControlTest, FailsForATextThatIsNoFormat) {
    mSurroundings.file = (mFolder / "a.csv").string();
    EXPECT_EQ(Accepted().WriteToFile(DataText(), "no format"), output::kRefused);
    EXPECT_EQ(mFolder.FileCount(), 0U);
}

TEST_F(PrintControlTest, SavesSettingsOnlyWhereThatIsAllowed) {
    std::vector<std::string> saved;
    Accepted().SaveSettings = [&](const std::string& first, const std::string& second) {
        saved = {first, second};
    };
    const auto save = [](controls::Form& form) {
        dynamic_cast<PreviewWindow&>(form).Toolbar1.Click("SaveSettings");
    };
    mWindows.acts = {save};
    mControl->Preview();
    EXPECT_THAT(saved, IsEmpty());
    mControl->SetEnableSave(true);
    mWindows.acts = {save};
    mControl->Preview();
    ASSERT_THAT(saved, SizeIs(2));
    EXPECT_TRUE(saved[0].starts_with("<页面设置 ")) << saved[0];
    EXPECT_TRUE(saved[1].starts_with("<版式 名称=\"Default\">")) << saved[1];
}

TEST_F(PrintControlTest, PreviewsPrintsAndSavesWithChangedSettings) {
    std::string settings;
    Accepted(100).SaveSettings = [&](const std::string& first, const std::string&) {
        settings = first;
    };
    mControl->SetEnableSave(true);
    mWindows.acts = {[](controls::Form& form) {
                         auto& preview = dynamic_cast<PreviewWindow&>(form);
                         EXPECT_EQ(preview.lblPage.Caption(), "第 1 页 共 3 页");
                         preview.Toolbar1.Click("Last");
                         preview.Toolbar1.Click("Setup");
                         // The paper is larger: the last page is an earlier one now.
                         EXPECT_EQ(preview.lblPage.Caption(), "第 2 页 共 2 页");
                         preview.Toolbar1.Click("Print");
                         preview.Toolbar1.Click("SaveSettings");
                     },
                     [](controls::Form& form) {
                         auto& setup = dynamic_cast<SettingsWindow&>(form);
                         setup.cboPaper.SetText("A3");
                         setup.cmdOK.Press();
                     }};
    mControl->Preview();
    EXPECT_THAT(mSurroundings.printedPages, ElementsAre(2));
    EXPECT_THAT(settings, testing::HasSubstr("纸张=\"A3\""));
}

TEST_F(PrintControlTest, TurnsPagesAndZooms) {
    mWindows.acts = {[](controls::Form& form) {
        auto& preview = dynamic_cast<PreviewWindow&>(form);
        EXPECT_FALSE(preview.Toolbar1.Button("First")->Enabled());
        EXPECT_FALSE(preview.Toolbar1.Button("Previous")->Enabled());
        preview.KeyDown(platform::Key::PageDown, 0);
        EXPECT_EQ(preview.lblPage.Caption(), "第 2 页 共 3 页");
        EXPECT_TRUE(preview.Toolbar1.Button("Previous")->Enabled());
        preview.Toolbar1.Click("Next");
        EXPECT_FALSE(preview.Toolbar1.Button("Next")->Enabled());
        preview.Toolbar1.Click("First");
        EXPECT_EQ(preview.Pages.Page(), 1);
        preview.Pages.SetZoom(100);
        preview.KeyPress(U'+');
        EXPECT_EQ(preview.Pages.Zoom(), 125);
        preview.Toolbar1.Click("ZoomOut");
        preview.Toolbar1.Click("ZoomOut");
        EXPECT_EQ(preview.Pages.Zoom(), 90);
        preview.Toolbar1.Click("WholePage");
        EXPECT_EQ(preview.Pages.Zoom(), controls::PageView::kWholePage);
        preview.cmdClose.Press();
        EXPECT_FALSE(preview.IsLoaded());
    }};
    Accepted(100).Preview();
}

}  // namespace

}  // namespace kelvane::output_test
