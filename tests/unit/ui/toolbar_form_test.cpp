#include "ui/common/toolbar_form.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "data/login_context.h"
#include "tests/support/login_context_reset.h"
#include "tests/support/memory_record_set.h"
#include "tests/support/recording_diagnostics.h"
#include "tests/support/recording_registry.h"
#include "tests/support/test_host.h"

namespace kelvane::ui {
namespace {

using platform::Key;
using platform::Registry;
using testing::ElementsAre;
using testing::IsEmpty;

class SampleForm : public ToolbarForm {
public:
    SampleForm() : ToolbarForm("frmSample") {
        for (const char* key : {"Query", "Quit", "Addnew", "Save", "Modify", "Print"}) {
            Toolbar1.AddButton(key, key);
        }
    }
    std::vector<std::string> clicks;
    int resizes = 0;
    bool fails = false;

    void Toolbar1_ButtonClick(controls::ToolbarButton& button) override {
        clicks.push_back(button.Key());
        if (fails) throw std::runtime_error("模拟的错误");
    }
    void Form_Resize() override {
        ++resizes;
        if (fails) throw std::runtime_error("模拟的错误");
    }
};

class ToolbarFormTest : public testing::Test {
protected:
    ToolbarFormTest() {
        services.registry = &registry;
        services.diagnostics = &diagnostics;
        data::gServices = &services;
    }
    ~ToolbarFormTest() override { support::ResetLoginContext(); }

    support::RecordingRegistry registry;
    support::RecordingDiagnostics diagnostics;
    platform::Services services;
    SampleForm form;
};

// The stored setting.

struct StoredStyle {
    const char* name;
    Registry::Outcome outcome;
    const char* text;
    int style;
};

class ReadToolbarStyleTest : public ToolbarFormTest,
                             public testing::WithParamInterface<StoredStyle> {};

TEST_P(ReadToolbarStyleTest, GivesTheStyle) {
    registry.answer = {GetParam().outcome, GetParam().text};
    EXPECT_EQ(ReadToolbarStyle(), GetParam().style);
    EXPECT_THAT(registry.asked,
                ElementsAre("SOFTWARE\\Marrowind\\Kx\\V8.50\\Appearance | Toolbar Style | 128"));
}

INSTANTIATE_TEST_SUITE_P(
    Settings, ReadToolbarStyleTest,
    testing::Values(StoredStyle{"NoKey", Registry::Outcome::NoKey, "", 1},
                    StoredStyle{"NoValue", Registry::Outcome::NoValue, "", 1},
                    StoredStyle{"BeginsWithT", Registry::Outcome::Found, "Tool", 1},
                    StoredStyle{"TAlone", Registry::Outcome::Found, "T", 1},
                    StoredStyle{"LowerCaseT", Registry::Outcome::Found, "tool", 2},
                    StoredStyle{"TLater", Registry::Outcome::Found, " T", 2},
                    StoredStyle{"AnotherWord", Registry::Outcome::Found, "Plain", 2},
                    StoredStyle{"Empty", Registry::Outcome::Found, "", 2}),
    [](const auto& each) { return each.param.name; });

// Arranging the toolbars.

TEST_F(ToolbarFormTest, ThePlainStyleShowsThePlainToolbar) {
    data::gToolbarStyle = 1;
    ApplyToolbarStyle(form);
    EXPECT_EQ(form.CTBCtrl1.DisplayStyle(), 2);
    EXPECT_TRUE(form.Toolbar1.Visible());
    EXPECT_FALSE(form.CTBCtrl1.Visible());
    EXPECT_THAT(form.CTBCtrl1.Items(), IsEmpty());
    EXPECT_EQ(form.resizes, 1);
    ApplyToolbarStyle(form);
    EXPECT_EQ(form.resizes, 2);
}

TEST_F(ToolbarFormTest, TheSuiteStyleHandsTheButtonsOver) {
    form.CTBCtrl1.SetTop(90);
    data::gToolbarStyle = 0;
    ApplyToolbarStyle(form);
    EXPECT_EQ(form.CTBCtrl1.DisplayStyle(), 1);
    EXPECT_TRUE(form.CTBCtrl1.SpecialEffect());
    EXPECT_EQ(form.CTBCtrl1.GetToolbarStyle(), 1);
    EXPECT_EQ(form.CTBCtrl1.Items().size(), 6U);
    EXPECT_EQ(form.CTBCtrl1.Top(), 0);
    EXPECT_FALSE(form.Toolbar1.Visible());
    EXPECT_TRUE(form.CTBCtrl1.Visible());
    EXPECT_EQ(form.resizes, 1);
}

TEST_F(ToolbarFormTest, AControlThatHostsTheButtonsIsLeftAsItIs) {
    data::gToolbarStyle = 0;
    ApplyToolbarStyle(form);
    form.CTBCtrl1.SetTop(90);
    ApplyToolbarStyle(form);
    EXPECT_EQ(form.CTBCtrl1.Top(), 90);
    EXPECT_EQ(form.resizes, 1);
}

TEST_F(ToolbarFormTest, TheStyleCanChangeBothWays) {
    data::gToolbarStyle = 0;
    ApplyToolbarStyle(form);
    data::gToolbarStyle = 1;
    ApplyToolbarStyle(form);
    EXPECT_TRUE(form.Toolbar1.Visible());
    EXPECT_FALSE(form.CTBCtrl1.Visible());
    data::gToolbarStyle = 0;
    ApplyToolbarStyle(form);
    EXPECT_FALSE(form.Toolbar1.Visible());
    EXPECT_TRUE(form.CTBCtrl1.Visible());
    EXPECT_EQ(form.resizes, 3);
}

TEST_F(ToolbarFormTest, AnErrorOfTheLayoutIsIgnored) {
    form.fails = true;
    data::gToolbarStyle = 1;
    ApplyToolbarStyle(form);
    EXPECT_TRUE(form.Toolbar1.Visible());
    EXPECT_THAT(diagnostics.places, ElementsAre("ApplyToolbarStyle"));
    EXPECT_THAT(diagnostics.details, ElementsAre("模拟的错误"));
}

// Function keys.

struct FunctionKey {
    const char* name;
    Key key;
    int shift;
    const char* button;  // empty: none
};

class SetToolbarButtonsTest : public ToolbarFormTest,
                              public testing::WithParamInterface<FunctionKey> {
protected:
    const bool mapped = GetParam().button[0] != '\0';
};

TEST_P(SetToolbarButtonsTest, ClicksTheButtonAndTakesTheKey) {
    Key key = GetParam().key;
    SetToolbarButtons(form, key, GetParam().shift);
    if (mapped) {
        EXPECT_THAT(form.clicks, ElementsAre(GetParam().button));
        EXPECT_EQ(key, Key::None);
    } else {
        EXPECT_THAT(form.clicks, IsEmpty());
        EXPECT_EQ(key, GetParam().key);
    }
}

TEST_P(SetToolbarButtonsTest, LeavesTheKeyWhenTheButtonIsDisabledHiddenOrMissing) {
    Key key = GetParam().key;
    for (controls::ToolbarButton& button : form.Toolbar1.Buttons()) button.SetEnabled(false);
    SetToolbarButtons(form, key, GetParam().shift);
    for (controls::ToolbarButton& button : form.Toolbar1.Buttons()) {
        button.SetEnabled(true);
        button.SetVisible(false);
    }
    SetToolbarButtons(form, key, GetParam().shift);
    form.Toolbar1.Buttons().clear();
    SetToolbarButtons(form, key, GetParam().shift);
    EXPECT_THAT(form.clicks, IsEmpty());
    EXPECT_EQ(key, GetParam().key);
}

TEST_P(SetToolbarButtonsTest, AnErrorOfTheCommandIsIgnoredAndTheKeyIsTaken) {
    form.fails = true;
    Key key = GetParam().key;
    SetToolbarButtons(form, key, GetParam().shift);
    EXPECT_EQ(key, mapped ? Key::None : GetParam().key);
    EXPECT_EQ(diagnostics.places.size(), mapped ? 1U : 0U);
}

constexpr int kCtrlShift = platform::kCtrl | platform::kShift;

INSTANTIATE_TEST_SUITE_P(
    Keys, SetToolbarButtonsTest,
    testing::Values(
        FunctionKey{"F3", Key::F3, 0, "Query"},
        FunctionKey{"ShiftF3", Key::F3, platform::kShift, "Query"},
        FunctionKey{"CtrlF4", Key::F4, platform::kCtrl, "Quit"},
        FunctionKey{"CtrlShiftF4", Key::F4, kCtrlShift, "Quit"}, FunctionKey{"F4", Key::F4, 0, ""},
        FunctionKey{"ShiftF4", Key::F4, platform::kShift, ""},
        FunctionKey{"AltF4", Key::F4, platform::kAlt, ""}, FunctionKey{"F5", Key::F5, 0, "Addnew"},
        FunctionKey{"F6", Key::F6, 0, "Save"}, FunctionKey{"F8", Key::F8, 0, "Modify"},
        FunctionKey{"CtrlP", Key::P, platform::kCtrl, "Print"}, FunctionKey{"P", Key::P, 0, ""},
        FunctionKey{"ShiftP", Key::P, platform::kShift, ""}, FunctionKey{"F1", Key::F1, 0, ""},
        FunctionKey{"F2", Key::F2, 0, ""}, FunctionKey{"F7", Key::F7, 0, ""},
        FunctionKey{"F9", Key::F9, 0, ""}, FunctionKey{"F10", Key::F10, 0, ""},
        FunctionKey{"F11", Key::F11, 0, ""}, FunctionKey{"F12", Key::F12, 0, ""},
        FunctionKey{"PageUp", Key::PageUp, 0, ""}, FunctionKey{"PageDown", Key::PageDown, 0, ""}),
    [](const auto& each) { return each.param.name; });

// The toolbar-style control's clicks.

TEST_F(ToolbarFormTest, BothToolbarsClickTheSameButtons) {
    ApplyToolbarStyle(form);
    form.CTBCtrl1.Click("Save");
    form.Toolbar1.Click("Print");
    EXPECT_THAT(form.clicks, ElementsAre("Save", "Print"));
}

TEST_F(ToolbarFormTest, AClickWithAnUnknownKeyDoesNothing) {
    form.CTBCtrl1.ButtonClick("Other", "其他");
    EXPECT_THAT(form.clicks, IsEmpty());
}

class NoDataAccess : public platform::HostDataAccess {
protected:
    std::unique_ptr<platform::RecordSet> DoQuery(const std::string& /*statement*/,
                                                 int /*option*/) override {
        return std::make_unique<support::MemoryRecordSet>(
            std::vector<std::string>{}, std::vector<support::MemoryRecordSet::Row>{});
    }
};

TEST_F(ToolbarFormTest, TheHelpFileLiesBelowTheHostsFolder) {
    NoDataAccess access;
    support::TestEnvironment environment(access);
    environment.hostPath = "C:\\Kx";
    data::gEnv = &environment;
    EXPECT_EQ(HelpFilePath(), "C:\\Kx\\help\\项目管理.chm");
}

}  // namespace
}  // namespace kelvane::ui
