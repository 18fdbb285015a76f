#include "adapters/output/style/settings_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/recording_windows.h"

namespace kelvane::output_test {

using output::PageSettings;
using output::SettingsWindow;
using support::MessageLines;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class SettingsWindowTest : public testing::Test {
protected:
    SettingsWindow& Open(const PageSettings& settings = {}) {
        mWindow = std::make_unique<SettingsWindow>(mWindows, settings);
        mWindow->Load();
        return *mWindow;
    }

    support::RecordingWindows mWindows;
    std::unique_ptr<SettingsWindow> mWindow;
};

TEST_F(SettingsWindowTest, ShowsTheSettings) {
    const SettingsWindow& window = Open({.paper = "B5", .landscape = true, .marginTop = 155});
    EXPECT_EQ(window.cboPaper.Text(), "B5");
    EXPECT_EQ(window.cboOrientation.Text(), "横向");
    EXPECT_EQ(window.txtTop.Text(), "15.5");
    EXPECT_EQ(window.txtLeft.Text(), "15");
    EXPECT_EQ(window.cboRepeatHead.Text(), "是");
    EXPECT_EQ(window.ActiveControl(), &window.cboPaper);
}

TEST_F(SettingsWindowTest, GivesBackWhatWasShown) {
    const PageSettings settings{.paper = "Letter",
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
    Open(settings).cmdOK.Press();
    ASSERT_TRUE(mWindow->Accepted());
    EXPECT_EQ(*mWindow->Accepted(), settings);
    EXPECT_FALSE(mWindow->IsLoaded());
}

TEST_F(SettingsWindowTest, TakesWhatIsTyped) {
    SettingsWindow& window = Open();
    window.cboOrientation.SetText("横向");
    window.txtBottom.SetText("20.5");
    window.txtBodySize.SetText("10");
    window.cmdOK.Press();
    ASSERT_TRUE(window.Accepted());
    EXPECT_TRUE(window.Accepted()->landscape);
    EXPECT_EQ(window.Accepted()->marginBottom, 205);
    EXPECT_EQ(window.Accepted()->bodySize, 100);
}

TEST_F(SettingsWindowTest, ForgetsWhatIsGivenUp) {
    SettingsWindow& window = Open();
    window.txtLeft.SetText("30");
    window.cmdCancel.Press();
    EXPECT_FALSE(window.Accepted());
    EXPECT_FALSE(window.IsLoaded());
    EXPECT_THAT(mWindows.messages, IsEmpty());
}

TEST_F(SettingsWindowTest, RefusesMarginsBeyondTheirLimits) {
    SettingsWindow& window = Open();
    for (const char* text : {"", "-1", "100.1", "abc", "1.55", "1e1", "99999999999", "1.", ".5"}) {
        mWindows.messages.clear();
        window.txtTop.SetText(text);
        window.cmdOK.Press();
        EXPECT_THAT(MessageLines(mWindows),
                    ElementsAre("[打印设置|information] 页边距须为 0 到 100 "
                                "毫米之间的数字，最多一位小数！"))
            << text;
        EXPECT_EQ(window.ActiveControl(), &window.txtTop);
        EXPECT_TRUE(window.IsLoaded());
    }
}

TEST_F(SettingsWindowTest, RefusesLettersBeyondTheirLimits) {
    SettingsWindow& window = Open();
    for (const char* text : {"4.9", "72.1", "0", "x"}) {
        mWindows.messages.clear();
        window.txtHeadSize.SetText(text);
        window.cmdOK.Press();
        EXPECT_THAT(
            MessageLines(mWindows),
            ElementsAre("[打印设置|information] 字号须为 5 到 72 磅之间的数字，最多一位小数！"))
            << text;
    }
}

TEST_F(SettingsWindowTest, RefusesWhatIsNotInItsList) {
    SettingsWindow& window = Open();
    window.cboPaper.SetText("A9");
    window.cmdOK.Press();
    EXPECT_THAT(MessageLines(mWindows), ElementsAre("[打印设置|information] 请选择列表中的一项！"));
    EXPECT_EQ(window.ActiveControl(), &window.cboPaper);
}

TEST_F(SettingsWindowTest, RefusesMarginsThatLeaveNoRoom) {
    SettingsWindow& window = Open();
    window.cboPaper.SetText("A5");
    window.txtLeft.SetText("60");
    window.txtRight.SetText("60");
    window.cmdOK.Press();
    EXPECT_THAT(MessageLines(mWindows),
                ElementsAre("[打印设置|information] 页边距太大，纸上没有表格的位置！"));
    EXPECT_FALSE(window.Accepted());
}

}  // namespace

}  // namespace kelvane::output_test
