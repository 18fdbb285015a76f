#include "adapters/output/style/style_service.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/output/formats/xml_parser.h"
#include "adapters/output/output_print_control.h"
#include "tests/unit/host/temporary_folder.h"
#include "tests/unit/output/sample_sheet.h"

namespace kelvane::output_test {

using host_test::TemporaryFolder;
using host_test::WriteText;
using output::PageSettings;
using output::Position;
using output::Sheet;
using output::StyleService;
using output::StyleTexts;

namespace {

constexpr const char* kDefault = "Default";

class StyleServiceTest : public testing::Test {
protected:
    // What a window hands over.
    std::optional<Sheet> Make(std::vector<platform::ColumnText> columns = SampleColumns(),
                              bool replaceStored = false) {
        mService.Open(mFolder.Path().string() + "\\style.xml", "项目期初录入");
        mService.SetTitle("0,200", "700");
        mService.AddHeaderItem({"年度", "2004", "0,200", "700"});
        mService.AddFooterItem({"单位", "演示公司", "0,0", "500"});
        mService.SetColumns("0,260", platform::EncodeColumns(columns), replaceStored);
        mService.SetRows(1, [](int) { return std::string("\ta\tb\t1.00"); });
        return mService.MakeSheet(kDefault);
    }
    void Store(const StyleTexts& texts) {
        WriteText(mFolder / "style.xml", "<格式>" + texts.settings + texts.layout + "</格式>");
    }

    TemporaryFolder mFolder;
    StyleService mService;
};

TEST_F(StyleServiceTest, LaysOutAfreshWithoutAFile) {
    const auto sheet = Make();
    ASSERT_TRUE(sheet);
    EXPECT_EQ(sheet->titleEnd, (Position{0, 200}));
    EXPECT_EQ(sheet->table, (Position{0, 260}));
    // Letters of 7 mm are 19.8 points high.
    EXPECT_EQ(sheet->settings.titleSize, 198);
    EXPECT_EQ(sheet->settings.paper, "A4");
    EXPECT_EQ(sheet->header.front().position, (Position{0, 200}));
    EXPECT_EQ(sheet->header.front().width, 700);
    EXPECT_EQ(sheet->columns, SampleColumns());
    EXPECT_EQ(mService.ErrorText(), "");
}

TEST_F(StyleServiceTest, TurnsThePaperForAWideTable) {
    EXPECT_FALSE(Make()->settings.landscape);
    auto columns = SampleColumns();
    columns[2].width = 12'000;
    EXPECT_TRUE(Make(columns)->settings.landscape);
}

TEST_F(StyleServiceTest, GivesBackWhatWasSaved) {
    Sheet sheet = *Make();
    sheet.settings = {.paper = "B5",
                      .landscape = true,
                      .marginLeft = 101,
                      .marginTop = 102,
                      .marginRight = 103,
                      .marginBottom = 104,
                      .titleSize = 141,
                      .headSize = 81,
                      .bodySize = 82,
                      .repeatHead = false,
                      .fitWidth = false};
    sheet.titleEnd = {5, 150};
    sheet.table = {7, 300};
    sheet.header.front().position = {30, 210};
    sheet.footer.front().width = 640;
    sheet.columns[2].width = 3100;
    Store(TextsOf(sheet, kDefault));

    const auto again = Make();
    ASSERT_TRUE(again);
    EXPECT_EQ(again->settings, sheet.settings);
    EXPECT_EQ(again->titleEnd, sheet.titleEnd);
    EXPECT_EQ(again->table, sheet.table);
    EXPECT_EQ(again->header.front().position, sheet.header.front().position);
    EXPECT_EQ(again->footer.front().width, 640);
    EXPECT_EQ(again->columns, sheet.columns);
}

TEST_F(StyleServiceTest, WritesTwoWellFormedTexts) {
    Sheet sheet = *Make();
    sheet.header.push_back({"<&\"'>\x01", "", {1, 2}, 3});
    const StyleTexts texts = TextsOf(sheet, kDefault);
    EXPECT_TRUE(output::IsReadableXml(texts.settings));
    EXPECT_TRUE(output::IsReadableXml(texts.layout));
    EXPECT_TRUE(texts.settings.starts_with("<页面设置 ")) << texts.settings;
    EXPECT_TRUE(texts.layout.starts_with("<版式 名称=\"Default\">")) << texts.layout;
}

TEST_F(StyleServiceTest, FollowsAGridThatWasChanged) {
    Sheet sheet = *Make();
    sheet.columns[2].width = 3100;
    Store(TextsOf(sheet, kDefault));
    auto columns = SampleColumns();
    columns[2].width = 2000;
    EXPECT_EQ(Make(columns, false)->columns[2].width, 3100);
    EXPECT_EQ(Make(columns, true)->columns[2].width, 2000);
}

TEST_F(StyleServiceTest, KeepsOtherWindowsItemsAndColumns) {
    Store(TextsOf(*Make(), kDefault));
    mService.Open((mFolder / "style.xml").string(), "项目期初设备明细");
    mService.SetTitle("0,200", "700");
    mService.AddHeaderItem({"项目要素", "水泥费", "0,210", "500"});
    mService.SetColumns("0,260", platform::EncodeColumns({Column("设备编码", 1500)}), true);
    mService.SetRows(1, [](int) { return std::string("E1"); });
    Store(TextsOf(*mService.MakeSheet(kDefault), kDefault));

    auto style = output::ReadStyle((mFolder / "style.xml").string(), kDefault);
    EXPECT_TRUE(style.header.contains("年度"));
    EXPECT_TRUE(style.header.contains("项目要素"));
    EXPECT_NE(FindColumns(style, SampleColumns()), nullptr);
    EXPECT_NE(FindColumns(style, {Column("设备编码", 1)}), nullptr);
    EXPECT_EQ(style.columnGroups.size(), 2U);
}

TEST_F(StyleServiceTest, SavesAGroupOfColumnsOnce) {
    Store(TextsOf(*Make(), kDefault));
    Store(TextsOf(*Make(), kDefault));
    EXPECT_EQ(output::ReadStyle((mFolder / "style.xml").string(), kDefault).columnGroups.size(),
              1U);
}

TEST_F(StyleServiceTest, LaysOutAfreshWithADamagedFile) {
    const StyleTexts good = TextsOf(*Make(), kDefault);
    for (const std::string& text :
         {std::string(), std::string("no xml"), std::string("<格式>"),
          std::string("<other>") + good.settings + good.layout + "</other>",
          std::string("<格式><页面设置 纸张=\"A4\"/></格式>"),
          std::string("<格式><页面设置 纸张=\"<\"/></格式>"),
          "<格式>" + good.settings + "<版式 名称=\"Other\"><标题 位置=\"1,1\"/></版式></格式>",
          std::string("<格式><版式 名称=\"Default\"><标题 位置=\"-1,x\"/><列区/>"
                      "<页眉项 名称=\"年度\" 位置=\"9\" 宽度=\"1\"/>"
                      "<列组><列 名称=\"\"/></列组></版式></格式>")}) {
        WriteText(mFolder / "style.xml", text);
        const auto sheet = Make();
        ASSERT_TRUE(sheet) << text;
        EXPECT_EQ(sheet->settings, (PageSettings{.titleSize = 198})) << text;
        EXPECT_EQ(sheet->titleEnd, (Position{0, 200})) << text;
        EXPECT_EQ(sheet->header.front().width, 700) << text;
        EXPECT_EQ(sheet->columns, SampleColumns()) << text;
    }
}

TEST_F(StyleServiceTest, TakesNothingOfAFileWithADocumentType) {
    Sheet sheet = *Make();
    sheet.settings.paper = "B5";
    const StyleTexts texts = TextsOf(sheet, kDefault);
    const std::string root = "<格式>" + texts.settings + texts.layout + "</格式>";
    const std::string file = (mFolder / "style.xml").string();
    WriteText(file, root);
    EXPECT_EQ(Make()->settings.paper, "B5");
    EXPECT_EQ(mService.FileRefusal(), "");
    WriteText(file, "<!DOCTYPE a [<!ENTITY e \"x\">]>" + root);
    EXPECT_EQ(Make()->settings.paper, "A4");
    EXPECT_EQ(mService.FileRefusal(), file + ": line 1: a document type is not allowed");
}

TEST_F(StyleServiceTest, TakesNothingOfAFileThatIsTooLong) {
    Sheet sheet = *Make();
    sheet.settings.paper = "B5";
    StyleTexts texts = TextsOf(sheet, kDefault);
    texts.settings += std::string(65'536, ' ');
    Store(texts);
    EXPECT_EQ(Make()->settings.paper, "A4");
    EXPECT_EQ(mService.FileRefusal(),
              (mFolder / "style.xml").string() + ": it has more than 65536 bytes");
}

TEST_F(StyleServiceTest, ForgetsOtherWindowsBeforeTheFileGrowsTooLong) {
    StyleTexts texts = TextsOf(*Make(), kDefault);
    const std::string group =
        "<列组><列 名称=\"" + std::string(1000, '\'') + "\" 宽度=\"1\"/></列组>";
    const std::string end = "</版式>";
    for (int count = 0; count < 62; ++count) {
        texts.layout.insert(texts.layout.size() - end.size(), group);
    }
    Store(texts);
    auto columns = SampleColumns();
    columns.front().title = std::string(2000, '"');
    const auto sheet = Make(columns);
    ASSERT_EQ(mService.FileRefusal(), "");
    Store(TextsOf(*sheet, kDefault));
    auto style = output::ReadStyle((mFolder / "style.xml").string(), kDefault);
    EXPECT_EQ(style.refusal, "");
    EXPECT_NE(FindColumns(style, columns), nullptr);
    EXPECT_EQ(style.columnGroups.size(), 1U);
}

TEST_F(StyleServiceTest, DoesNotTakeStoredSettingsBeyondTheirLimits) {
    for (const auto& [from, to] :
         {std::pair{"左边距=\"150\"", "左边距=\"1001\""},
          std::pair{"左边距=\"150\"", "左边距=\"-1\""},
          std::pair{"正文字号=\"90\"", "正文字号=\"0\""}, std::pair{"纸张=\"A4\"", "纸张=\"A9\""},
          std::pair{"方向=\"纵向\"", "方向=\"斜\""},
          std::pair{"标题字号=\"198\"", "标题字号=\"99999999999\""}}) {
        StyleTexts texts = TextsOf(*Make(), kDefault);
        const std::size_t at = texts.settings.find(from);
        ASSERT_NE(at, std::string::npos) << from;
        texts.settings.replace(at, std::string(from).size(), to);
        Store(texts);
        EXPECT_EQ(Make()->settings, (PageSettings{.titleSize = 198})) << to;
    }
}

TEST_F(StyleServiceTest, SaysWhatItRefuses) {
    auto columns = SampleColumns();
    for (auto& column : columns) column.width = 0;
    EXPECT_FALSE(Make(columns));
    EXPECT_EQ(mService.ErrorText(), "表格没有可打印的列！");

    mService.Open("", "");
    mService.AddFooterItem({"单位", "", "0;0", "500"});
    EXPECT_FALSE(mService.MakeSheet(kDefault));
    EXPECT_EQ(mService.ErrorText(), "打印版式中“单位”的位置或宽度不正确！");

    mService.Open("", "");
    mService.SetColumns("0,260", "no format", false);
    EXPECT_FALSE(mService.MakeSheet(kDefault));
    EXPECT_EQ(mService.ErrorText(), "表格的列格式不正确，不能打印！");
}

}  // namespace

}  // namespace kelvane::output_test
