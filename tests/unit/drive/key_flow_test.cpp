#include "adapters/drive/key_flow.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/edit_box.h"
#include "controls/grid.h"
#include "platform/key_names.h"

namespace kelvane::drive {
namespace {

using platform::FindKey;
using platform::Key;
using platform::KeyStroke;
using platform::StrokeOf;
using testing::ElementsAre;
using testing::IsEmpty;

// Notes the keys its code sees, and consumes those it is told to.
class KeyForm : public controls::Form {
public:
    KeyForm() : Form("KeyForm") {}

    std::vector<std::string> seen;
    Key eaten = Key::None;

protected:
    void Form_KeyDown(Key& key, int shift) override {
        seen.push_back("down " + std::to_string(static_cast<int>(key)) + " " +
                       std::to_string(shift));
        if (key == eaten) key = Key::None;
    }
    void Form_KeyPress(char32_t& character) override {
        seen.push_back("press " + std::to_string(static_cast<unsigned>(character)));
    }
    void Form_KeyUp(Key& key, int shift) override {
        seen.push_back("up " + std::to_string(static_cast<int>(key)) + " " + std::to_string(shift));
    }
};

KeyStroke Named(std::string_view name) {
    return FindKey(name).value();
}

TEST(KeyFlow, ACharacterGoesDownIsPressedAndGoesUp) {
    KeyForm form;
    controls::EditBox box(form, "Box");
    form.Load();
    EXPECT_TRUE(PressKey(form, StrokeOf(U'a')));
    EXPECT_THAT(form.seen, ElementsAre("down 65 0", "press 97", "up 65 0"));
    EXPECT_EQ(box.Text(), "a");
}

TEST(KeyFlow, WhatKeyDownConsumesIsNotPressedButReleased) {
    KeyForm form;
    controls::EditBox box(form, "Box");
    form.Load();
    form.eaten = Key::A;
    EXPECT_TRUE(PressKey(form, StrokeOf(U'a')));
    EXPECT_THAT(form.seen, ElementsAre("down 65 0", "up 65 0"));
    EXPECT_EQ(box.Text(), "");
}

TEST(KeyFlow, AKeyWithCtrlOrWithoutACharacterPressesNothing) {
    KeyForm form;
    form.Load();
    EXPECT_FALSE(PressKey(form, Named("Ctrl+P")));
    EXPECT_FALSE(PressKey(form, Named("F3")));
    EXPECT_THAT(form.seen, ElementsAre("down 80 2", "up 80 2", "down 114 0", "up 114 0"));
}

TEST(KeyFlow, TabAndEscapeGoToTheGridPastTheForm) {
    KeyForm form;
    controls::Grid grid(form, "Grid");
    grid.SetCols(4);
    form.Load();
    ASSERT_TRUE(grid.MoveTo(1, 1));
    EXPECT_TRUE(PressKey(form, Named("Tab")));
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_TRUE(PressKey(form, Named("Shift+Tab")));
    EXPECT_EQ(grid.Col(), 1);
    ASSERT_TRUE(grid.BeginEdit());
    EXPECT_TRUE(PressKey(form, Named("Escape")));
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_FALSE(PressKey(form, Named("Escape")));
    EXPECT_THAT(form.seen, IsEmpty());
}

TEST(KeyFlow, TabWalksTheControlsOfAWindowWithoutAGrid) {
    KeyForm form;
    controls::EditBox code(form, "Code");
    controls::ComboBox hidden(form, "Hidden");
    controls::ComboBox list(form, "List");
    controls::Button ok(form, "Ok");
    hidden.SetVisible(false);
    form.Load();
    std::vector<std::string> walk{form.ActiveControl()->Name()};
    for (const char* key : {"Tab", "Tab", "Tab", "Shift+Tab"}) {
        PressKey(form, Named(key));
        walk.push_back(form.ActiveControl()->Name());
    }
    EXPECT_THAT(walk, ElementsAre("Code", "List", "Ok", "Code", "Ok"));
}

TEST(KeyFlow, EnterAndEscapePressTheWindowsButtons) {
    KeyForm form;
    controls::EditBox code(form, "Code");
    controls::Button ok(form, "Ok");
    controls::Button cancel(form, "Cancel");
    ok.SetDefault(true);
    cancel.SetCancel(true);
    std::vector<std::string> pressed;
    ok.Click = [&] { pressed.emplace_back("ok"); };
    cancel.Click = [&] { pressed.emplace_back("cancel"); };
    form.Load();
    EXPECT_TRUE(PressKey(form, Named("Enter")));
    EXPECT_TRUE(PressKey(form, Named("Escape")));
    cancel.SetFocus();
    EXPECT_TRUE(PressKey(form, Named("Enter")));
    EXPECT_TRUE(PressKey(form, Named("Space")));
    EXPECT_THAT(pressed, ElementsAre("ok", "cancel", "cancel", "cancel"));

    ok.SetEnabled(false);
    code.SetFocus();
    PressKey(form, Named("Enter"));
    EXPECT_EQ(pressed.size(), 4U);
    EXPECT_THAT(form.seen, ElementsAre("down 13 0", "up 13 0", "down 13 0", "up 13 0", "down 32 0",
                                       "up 32 0", "down 13 0", "up 13 0"));
}

TEST(KeyFlow, AltF4ClosesTheWindow) {
    KeyForm form;
    form.Load();
    EXPECT_TRUE(PressKey(form, Named("Alt+F4")));
    EXPECT_FALSE(form.IsLoaded());
    EXPECT_THAT(form.seen, IsEmpty());
}

}  // namespace
}  // namespace kelvane::drive
