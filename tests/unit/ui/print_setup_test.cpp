#include "ui/common/print_setup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "data/login_context.h"
#include "tests/support/login_context_reset.h"
#include "tests/support/recording_diagnostics.h"
#include "tests/support/recording_windows.h"

namespace kelvane::ui {
namespace {

using platform::MessageAnswer;
using support::MessageLines;
using testing::ElementsAre;
using testing::IsEmpty;

// What a style service and a print control are told, one text a call, in the order of the calls.
struct Told {
    std::vector<std::string> calls;
    int layoutResult = 0;
    int exportResult = 0;
};

std::string ItemLine(const platform::PrintItem& item) {
    return item.caption + "=" + item.value + " at " + item.position + " size " + item.size;
}

class ToldStyle : public platform::PrintStyleService {
public:
    explicit ToldStyle(Told& told) : mTold(told) {}

    void Open(std::string_view path, std::string_view title) override {
        Note("open " + std::string(path) + " " + std::string(title));
    }
    void SetTitle(std::string_view position, std::string_view height) override {
        Note("title at " + std::string(position) + " height " + std::string(height));
    }
    void AddHeaderItem(const platform::PrintItem& item) override {
        Note("header " + ItemLine(item));
    }
    void AddFooterItem(const platform::PrintItem& item) override {
        Note("footer " + ItemLine(item));
    }
    void SetColumns(std::string_view position, std::string_view /*formatText*/,
                    bool replaceStored) override {
        Note("columns at " + std::string(position) + (replaceStored ? " of the grid" : ""));
    }
    void SetRows(int count, std::function<std::string(int)> cells) override {
        std::string line = "rows " + std::to_string(count);
        for (int row = 0; row < count; ++row) line += " " + cells(row);
        Note(line);
    }
    std::string ErrorText() const override { return "版式不能使用！"; }

private:
    void Note(const std::string& call) { mTold.calls.push_back(call); }

    Told& mTold;
};

class ToldControl : public platform::PrintControl {
public:
    explicit ToldControl(Told& told) : mTold(told) {}

    void SetEnableSave(bool enabled) override {
        mTold.calls.emplace_back(enabled ? "EnableSave" : "no EnableSave");
    }
    int SetDataStyleXml(platform::PrintStyleService&, std::string_view styleName) override {
        mTold.calls.push_back("apply " + std::string(styleName));
        return mTold.layoutResult;
    }
    void Preview() override {}
    void Print() override {}
    int WriteToFile(std::string_view dataText, std::string_view) override {
        mTold.calls.push_back("write " + std::string(dataText));
        return mTold.exportResult;
    }

private:
    Told& mTold;
};

class ToldDocument : public platform::XmlDocument {
public:
    ToldDocument(std::vector<std::string>& calls, bool fails) : mCalls(calls), mFails(fails) {}

    bool LoadXml(std::string_view text) override {
        mCalls.push_back("load " + std::string(text));
        return false;
    }
    void Save(std::string_view path) override {
        mCalls.push_back("save " + std::string(path));
        if (mFails) throw std::runtime_error("模拟的错误");
    }

private:
    std::vector<std::string>& mCalls;
    bool mFails;
};

class PrintSetupTest : public testing::Test {
protected:
    PrintSetupTest() : control(told) {
        services.windows = &windows;
        services.diagnostics = &diagnostics;
        services.createPrintStyle = [this] { return std::make_unique<ToldStyle>(told); };
        services.createXmlDocument = [this] {
            return std::make_unique<ToldDocument>(documentCalls, savingFails);
        };
        data::gServices = &services;
        data::gPrintStylePath = "host\\printStyle\\";
        grid.SetRows(3);
        grid.SetCols(2);
        grid.SetText(1, 1, "甲");
        grid.SetText(2, 1, "乙");
        loaded = grid.FormatText();
    }
    ~PrintSetupTest() override { support::ResetLoginContext(); }

    bool Prepare() {
        return SetUpPrint(control, {.grid = grid,
                                    .title = "标题",
                                    .loadedLayout = loaded,
                                    .header = {{"年度", "2004", "0,200", "700"}},
                                    .footer = {{"单位", "公司", "0,0", "500"}}});
    }

    support::RecordingWindows windows;
    support::RecordingDiagnostics diagnostics;
    platform::Services services;
    Told told;
    ToldControl control;
    std::vector<std::string> documentCalls;
    bool savingFails = false;
    controls::Form form{"frmSample"};
    controls::Grid grid{form, "Grid1"};
    std::string loaded;
};

TEST_F(PrintSetupTest, HandsOverEverythingInItsOrder) {
    EXPECT_TRUE(Prepare());
    EXPECT_THAT(told.calls,
                ElementsAre("EnableSave", "open host\\printStyle\\PeriodItemStyle.xml 标题",
                            "title at 0,200 height 700", "header 年度=2004 at 0,200 size 700",
                            "footer 单位=公司 at 0,0 size 500", "columns at 0,260",
                            "rows 2 \t甲 \t乙", "apply Default"));
    EXPECT_THAT(windows.messages, IsEmpty());
}

TEST_F(PrintSetupTest, TakesTheColumnsOfAGridThatWasChanged) {
    grid.SetColumnWidth(1, grid.ColumnWidth(1) + 15);
    EXPECT_TRUE(Prepare());
    EXPECT_THAT(told.calls, testing::Contains("columns at 0,260 of the grid"));
    // Back again, nothing was changed.
    grid.SetColumnWidth(1, grid.ColumnWidth(1) - 15);
    told.calls.clear();
    EXPECT_TRUE(Prepare());
    EXPECT_THAT(told.calls, testing::Contains("columns at 0,260"));
}

TEST_F(PrintSetupTest, AsksNothingOfThePrintControlWithoutARow) {
    for (const int rows : {1, 0}) {
        windows.messages.clear();
        grid.SetRows(rows);
        EXPECT_FALSE(Prepare());
        EXPECT_THAT(MessageLines(windows), ElementsAre("[提示|information] 没有数据！"));
    }
    EXPECT_THAT(told.calls, IsEmpty());
}

TEST_F(PrintSetupTest, ShowsWhatTheStyleServiceSaysOfARefusal) {
    for (const int result : {1, -1, 3999}) {
        windows.messages.clear();
        told.layoutResult = result;
        EXPECT_FALSE(Prepare()) << result;
        EXPECT_THAT(MessageLines(windows), ElementsAre("[项目管理|information] 版式不能使用！"));
    }
}

TEST_F(PrintSetupTest, TellsHowWritingWent) {
    const std::string failed = "[输出失败信息|information] 输出到文件失败！";
    for (const auto& [result, lines] :
         {std::pair(0, std::vector<std::string>{"[输出成功信息|information] 成功输出到文件。"}),
          std::pair(3999, std::vector<std::string>{}), std::pair(1, std::vector{failed}),
          std::pair(-1, std::vector{failed}), std::pair(3998, std::vector{failed}),
          std::pair(4000, std::vector{failed})}) {
        windows.messages.clear();
        told.exportResult = result;
        EXPECT_EQ(ExportGrid(control, grid), result == 0);
        EXPECT_EQ(MessageLines(windows), lines) << result;
        EXPECT_EQ(told.calls.back(), "write \t甲\n\t乙\n");
    }
}

// A text that does not parse is saved all the same.
TEST_F(PrintSetupTest, SavesBothTextsInTheirOrderAndNothingElse) {
    windows.answers = {MessageAnswer::Yes};
    SavePrintSettings("<a b='1'/>", "<c");
    EXPECT_THAT(documentCalls, ElementsAre("load <格式><a b='1'/><c</格式>",
                                           "save host\\printStyle\\PeriodItemStyle.xml"));
    ASSERT_EQ(windows.messages.size(), 2U);
    EXPECT_EQ(windows.messages[0].text, "确定要保存现有的打印设置？");
    EXPECT_EQ(windows.messages[0].caption, "保存提示");
    EXPECT_EQ(windows.messages[0].icon, platform::MessageIcon::Question);
    EXPECT_EQ(windows.messages[0].buttons, platform::MessageButtons::YesNo);
    EXPECT_EQ(MessageLines(windows)[1], "[提示|information] 格式保存成功！");
}

TEST_F(PrintSetupTest, SavesNothingWhenTheOperatorSaysNo) {
    windows.answers = {MessageAnswer::No};
    SavePrintSettings("<a/>", "<b/>");
    EXPECT_THAT(documentCalls, IsEmpty());
    EXPECT_EQ(windows.messages.size(), 1U);
}

TEST_F(PrintSetupTest, EndsSilentlyWhenSavingFails) {
    windows.answers = {MessageAnswer::Yes};
    savingFails = true;
    EXPECT_NO_THROW(SavePrintSettings("<a/>", "<b/>"));
    EXPECT_EQ(windows.messages.size(), 1U);
    EXPECT_THAT(diagnostics.places, ElementsAre("xmlPrt_SaveSettings"));
}

}  // namespace
}  // namespace kelvane::ui
