#include "controls/toolbar.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/form.h"
#include "controls/toolbar_style_control.h"

namespace kelvane::controls {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ToolbarTest : public testing::Test {
protected:
    ToolbarTest() {
        toolbar.AddButton("Print", "打印");
        toolbar.AddSeparator();
        toolbar.AddButton("Add", "增加");
        toolbar.ButtonClick = [this](ToolbarButton& button) { clicked.push_back(button.Key()); };
        styled.ButtonClick = [this](const std::string& key, const std::string& caption) {
            clicked.push_back(key + "/" + caption);
        };
    }
    Form form{"Form"};
    Toolbar toolbar{form, "Toolbar1"};
    ToolbarStyleControl styled{form, "CTBCtrl1"};
    std::vector<std::string> clicked;
};

TEST_F(ToolbarTest, ButtonsAndSeparatorsKeepTheirPlaces) {
    ASSERT_EQ(toolbar.Buttons().size(), 3U);
    EXPECT_EQ(toolbar.Buttons()[0].Caption(), "打印");
    EXPECT_TRUE(toolbar.Buttons()[1].IsSeparator());
    EXPECT_EQ(toolbar.Buttons()[2].Key(), "Add");
    EXPECT_EQ(toolbar.Button("Add"), &toolbar.Buttons()[2]);
    EXPECT_EQ(toolbar.Button(""), nullptr);
    EXPECT_EQ(toolbar.Button("add"), nullptr);
}

TEST_F(ToolbarTest, AClickReachesAnEnabledVisibleButton) {
    toolbar.Click("Print");
    toolbar.Button("Add")->SetEnabled(false);
    toolbar.Click("Add");
    toolbar.Button("Print")->SetVisible(false);
    toolbar.Click("Print");
    toolbar.Click("Missing");
    EXPECT_THAT(clicked, ElementsAre("Print"));
}

TEST_F(ToolbarTest, AChangedButtonIsAChangeOfTheToolbar) {
    const auto revision = toolbar.Revision();
    toolbar.Button("Add")->SetEnabled(true);
    EXPECT_EQ(toolbar.Revision(), revision);
    toolbar.Button("Add")->SetEnabled(false);
    EXPECT_EQ(toolbar.Revision(), revision + 1);
}

TEST_F(ToolbarTest, ImagesAreAListOfTheirOwn) {
    toolbar.AddImage("Print", 100);
    toolbar.AddImage("Addnew", 103);
    ASSERT_EQ(toolbar.Images().size(), 2U);
    EXPECT_EQ(toolbar.Images()[1].picture, 103);
    toolbar.ClearImages();
    EXPECT_THAT(toolbar.Images(), IsEmpty());
}

TEST_F(ToolbarTest, TheStyleControlShowsTheButtonsAsTheyWereAtTheLastRefresh) {
    toolbar.AddImage("Addnew", 103);
    toolbar.Button("Add")->SetImage("Addnew");
    toolbar.Button("Print")->SetImage("Missing");
    styled.SetToolbar(toolbar);
    ASSERT_EQ(styled.Items().size(), 3U);
    EXPECT_EQ(styled.Items()[2].picture, 103);
    EXPECT_EQ(styled.Items()[0].picture, 0);
    EXPECT_TRUE(styled.Items()[1].separator);

    toolbar.Button("Add")->SetEnabled(false);
    EXPECT_TRUE(styled.Items()[2].enabled);
    styled.Refresh();
    EXPECT_FALSE(styled.Items()[2].enabled);
}

TEST_F(ToolbarTest, TheStyleControlRelaysClicksWithKeyAndCaption) {
    styled.SetToolbar(toolbar);
    styled.Click("Add");
    styled.Click("Missing");
    styled.Click("");
    toolbar.Button("Print")->SetEnabled(false);
    styled.Refresh();
    styled.Click("Print");
    EXPECT_THAT(clicked, ElementsAre("Add/增加"));
}

TEST_F(ToolbarTest, TheStyleControlHostsAToolbarInTheSuitesLookOnly) {
    EXPECT_EQ(styled.GetToolbarStyle(), 0);
    styled.SetDisplayStyle(1);
    EXPECT_EQ(styled.GetToolbarStyle(), 0);
    styled.SetToolbar(toolbar);
    EXPECT_EQ(styled.GetToolbarStyle(), 1);
    styled.SetDisplayStyle(2);
    EXPECT_EQ(styled.GetToolbarStyle(), 0);
}

TEST_F(ToolbarTest, TheStyleControlWithoutAToolbarIsEmpty) {
    styled.Refresh();
    EXPECT_THAT(styled.Items(), IsEmpty());
    styled.Click("Add");
    EXPECT_THAT(clicked, IsEmpty());
}

}  // namespace
}  // namespace kelvane::controls
