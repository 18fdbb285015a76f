// Edit boxes, combo boxes, buttons, and what all controls share.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"

namespace kelvane::controls {
namespace {

using platform::Key;
using testing::ElementsAre;

TEST(EditBoxTest, TypingAppendsAndBackspaceTakesAway) {
    Form form("Form");
    EditBox box(form, "Box");
    EXPECT_TRUE(box.KeyPress(U'a'));
    EXPECT_TRUE(box.KeyPress(U'项'));
    EXPECT_EQ(box.Text(), "a项");
    EXPECT_TRUE(box.KeyDown(Key::Backspace, 0));
    EXPECT_EQ(box.Text(), "a");
    EXPECT_FALSE(box.KeyPress(U'\r'));
    EXPECT_FALSE(box.KeyDown(Key::Left, 0));
    box.SetEnabled(false);
    EXPECT_FALSE(box.KeyPress(U'b'));
    EXPECT_FALSE(box.KeyDown(Key::Backspace, 0));
    EXPECT_EQ(box.Text(), "a");
}

TEST(EditBoxTest, AChangedTextIsToldOnce) {
    Form form("Form");
    EditBox box(form, "Box");
    std::vector<std::string> told;
    box.Change = [&] { told.push_back(box.Text()); };
    box.SetText("x");
    box.SetText("x");
    box.KeyPress(U'y');
    EXPECT_THAT(told, ElementsAre("x", "xy"));
}

TEST(ComboBoxTest, SelectingAnItemPutsItIntoTheText) {
    Form form("Form");
    ComboBox box(form, "Box");
    box.AddItem("one");
    box.AddItem("two");
    EXPECT_EQ(box.ListIndex(), -1);
    box.SetListIndex(1);
    EXPECT_EQ(box.Text(), "two");
    EXPECT_EQ(box.ListIndex(), 1);
    box.SetListIndex(2);
    EXPECT_EQ(box.ListIndex(), -1);
    box.SetListIndex(0);
    box.Clear();
    EXPECT_EQ(box.ListIndex(), -1);
    EXPECT_EQ(box.Text(), "");
    EXPECT_TRUE(box.Items().empty());
}

TEST(ComboBoxTest, AChangedTextIsToldOnce) {
    Form form("Form");
    ComboBox box(form, "Box");
    box.AddItem("one");
    std::vector<std::string> told;
    box.Change = [&] { told.push_back(box.Text()); };
    box.SetListIndex(0);
    box.SetText("one");
    box.SetText("x");
    box.Clear();
    EXPECT_THAT(told, ElementsAre("one", "x", ""));
}

TEST(ComboBoxTest, OpeningRaisesDropDownWhenTheOperatorCanOpenIt) {
    Form form("Form");
    ComboBox box(form, "Box");
    box.Open();
    int opened = 0;
    box.DropDown = [&] {
        ++opened;
        box.AddItem("item");
    };
    box.Open();
    box.SetEnabled(false);
    box.Open();
    box.SetEnabled(true);
    box.SetVisible(false);
    box.Open();
    EXPECT_EQ(opened, 1);
    EXPECT_THAT(box.Items(), ElementsAre("item"));
}

TEST(ButtonTest, PressingIsForVisibleEnabledButtons) {
    Form form("Form");
    Button button(form, "cmdRef");
    button.Press();
    int pressed = 0;
    button.Click = [&] { ++pressed; };
    button.Press();
    button.SetEnabled(false);
    button.Press();
    button.SetEnabled(true);
    button.SetVisible(false);
    button.Press();
    EXPECT_EQ(pressed, 1);
}

TEST(ControlTest, SizesAreNotNegative) {
    Form form("Form");
    Button button(form, "cmdRef");
    button.SetWidth(0);
    EXPECT_THROW(button.SetWidth(-1), std::invalid_argument);
    EXPECT_THROW(button.SetHeight(-1), std::invalid_argument);
}

TEST(ControlTest, ColoursAreWrittenBlueGreenRed) {
    EXPECT_EQ(Rgb(205, 208, 215), 0xD7D0CDU);
}

}  // namespace
}  // namespace kelvane::controls
