// A form's window: its life, its size, its fields and its notice line.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

#include "controls/label.h"
#include "tests/desktop/person.h"
#include "tests/desktop/photo.h"
#include "tests/desktop/sample_forms.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::test {

namespace {

constexpr const char* kTitle = "项目期初";

using Events = std::vector<std::string>;

// Counts what the window tells it, and can refuse to be closed.
class StubbornForm : public ListForm {
public:
    int refusals = 0;
    Events life;

protected:
    void Form_Load() override { life.emplace_back("load"); }
    void Form_Activate() override { life.emplace_back("activate"); }
    void Form_QueryUnload(bool& cancel, controls::UnloadMode mode) override {
        life.emplace_back(mode == controls::UnloadMode::CloseBox ? "close box" : "code");
        cancel = refusals-- > 0;
    }
    void Form_Unload() override { life.emplace_back("unload"); }
};

}  // namespace

TEST(DesktopForm, LivesFromLoadToUnload) {
    StubbornForm form;
    ShowTo(form, [&](Person&) {});
    EXPECT_EQ(form.life, (Events{"load", "activate", "code", "unload"}));
    EXPECT_FALSE(form.IsLoaded());
}

TEST(DesktopForm, CanRefuseItsCloseBox) {
    StubbornForm form;
    form.refusals = 1;
    ShowTo(form, [&](Person& person) {
        person.Keys({"alt+F4"});
        person.See("asked", [&] { return form.life.size() == 3; });
        EXPECT_TRUE(person.Look([&] { return form.IsLoaded(); }));
        person.Keys({"alt+F4"});
        person.See("closed", [&] { return !form.IsLoaded(); });
    });
    EXPECT_EQ(form.life, (Events{"load", "activate", "close box", "close box", "unload"}));
}

TEST(DesktopForm, IsShownAgainAfterItsUnload) {
    ListForm form;
    for (int round = 1; round <= 2; ++round) {
        ShowTo(form, [&](Person& person) {
            person.Keys({"Down"});
            person.See("next row", [&] { return form.grid.Row() == round + 1; });
        });
    }
}

TEST(DesktopForm, FollowsItsWindowsSize) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Resize(900, 600);
        person.See("wider", [&] { return form.ScaleWidth() == 900 * 15; });
        EXPECT_TRUE(person.Look([&] {
            return form.ScaleHeight() == (600 - 22) * 15 && form.grid.Width() == form.ScaleWidth();
        }));
        person.Resize(200, 150);
        person.See("no smaller than its least size",
                   [&] { return form.Width() <= 9195 + 15 && form.Height() <= 6190 + 15; });
    });
    EXPECT_GE(form.Width(), 9195 - 15);
    EXPECT_GE(form.Height(), 6190 - 15);
}

TEST(DesktopForm, ChangesItsWindowsSizeByCode) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Look([&] {
            form.SetSize(15000, 9000);
            return true;
        });
        person.SeePainted();
        // The last column's right half was hidden before.
        person.Click(kTitle, 800, 300);
        person.See("cell in the part that was added", [&] { return form.grid.Col() == 9; });
        EXPECT_TRUE(person.Look([&] { return form.Width() == 15000 && form.Height() == 9000; }));
    });
}

TEST(DesktopForm, IsNoLargerThanTheScreen) {
    ListForm form(1000);
    form.SetSize(100000, 90000);
    ShowTo(form, [&](Person& person) {
        person.See("as large as the screen", [&] {
            return std::abs(form.ScaleWidth() - Windows().ScreenWidth()) <= 15 &&
                   form.ScaleHeight() < Windows().ScreenHeight();
        });
        person.Keys({"ctrl+End"});
        person.See("last row", [&] { return form.grid.IsRowShown(1000); });
    });
    EXPECT_EQ(form.grid.Width(), form.ScaleWidth());
}

TEST(DesktopForm, BeginsOnTheScreenWhenItCannotBeSmallEnough) {
    ListForm form;
    form.SetMinSize(100000, 90000);
    form.SetSize(100000, 90000);
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, 73, 20);
        person.See("button", [&] { return form.events == Events{"click PreView"}; });
    });
}

TEST(DesktopForm, FieldsTakeTextAndKeys) {
    FieldForm form;
    ShowTo(form, [&](Person& person) {
        person.Type("XM01项目");
        person.See("typed", [&] { return form.code.Text() == "XM01项目"; });
        person.Keys({"BackSpace", "Tab", "space"});
        person.See("button by keyboard", [&] { return form.events == Events{"reference"}; });
        person.Look([&] {
            form.code.SetText("XM02");
            form.code.SetFocus();
            return true;
        });
        person.Keys({"End"});
        person.Type("3");
        person.See("typed on", [&] { return form.code.Text() == "XM023"; });
        person.Keys({"Return"});
        person.See("closed by the default button", [&] { return !form.IsLoaded(); });
    });
    EXPECT_EQ(form.events, (Events{"reference", "ok XM023 "}));
}

TEST(DesktopForm, AFieldThatJoinsAShownFormIsTypedInto) {
    ListForm form;
    std::unique_ptr<controls::EditBox> field;
    ShowTo(form, [&](Person& person) {
        person.Look([&] {
            field = std::make_unique<controls::EditBox>(form, "txtLate");
            field->SetTop(form.strip.Top() + 60);
            field->SetWidth(2400);
            field->SetHeight(345);
            field->SetFocus();
            return true;
        });
        person.Type("ab");
        person.See("typed", [&] { return field->Text() == "ab"; });
        person.Look([&] {
            field->SetVisible(false);
            form.grid.SetFocus();
            return true;
        });
        person.Keys({"Down"});
        person.See("the grid has the keys", [&] { return form.grid.Row() == 2; });
    });
}

TEST(DesktopForm, ALabelThatJoinsAShownFormIsDrawn) {
    ListForm form;
    std::unique_ptr<controls::Label> label;
    ShowTo(form, [&](Person& person) {
        std::unique_ptr<Photo> before;
        person.Look([&] {
            before = std::make_unique<Photo>();
            label = std::make_unique<controls::Label>(form, "lblLate");
            label->SetTop(form.strip.Top() + 60);
            label->SetLeft(120);
            label->SetWidth(960);
            label->SetHeight(300);
            label->SetCaption("查找");
            return true;
        });
        person.See("the label", [&] {
            const wxRect all(0, 0, before->Width(), before->Height());
            return Photo().Differences(*before, all) > 0;
        });
    });
}

TEST(DesktopForm, EscapePressesTheCancelButton) {
    FieldForm form;
    ShowTo(form, [&](Person& person) {
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.IsLoaded(); });
    });
    EXPECT_EQ(form.events, Events{"cancel"});
}

TEST(DesktopForm, AComboBoxFillsItsListWhenItOpens) {
    FieldForm form;
    ShowTo(form, [&](Person& person) {
        person.SeePopup([&] { person.Click("定位", (1400 + 3060) / 15 - 8, (700 + 165) / 15); });
        person.See("dropped", [&] { return form.events == Events{"drop"}; });
        person.Keys({"Down", "Return"});
        person.See("chosen", [&] { return form.key.ListIndex() >= 0; });
        EXPECT_TRUE(person.Look([&] {
            return form.key.Text() ==
                   form.key.Items()[static_cast<std::size_t>(form.key.ListIndex())];
        }));
    });
}

TEST(DesktopForm, WritesAPictureOfItself) {
    ListForm form;
    form.SetNotice("保存失败：账套被占用");
    const host_test::TemporaryFolder folder;
    const auto path = folder / "form.png";
    ShowTo(form, [&](Person& person) {
        EXPECT_TRUE(person.Look([&] { return Windows().SaveScreenshot(path.string()); }));
    });
    EXPECT_GT(std::filesystem::file_size(path), 10000U);
    EXPECT_FALSE(Windows().SaveScreenshot(path.string()));
}

TEST(DesktopForm, WithoutAHelpFileF1ShowsThePageOfKeys) {
    ListForm form;
    form.toolbar.Button("Print")->SetStroke({platform::Key::P, platform::kCtrl});
    Windows().SetHelpFile("/nowhere\\help\\项目管理.chm");
    ShowTo(form, [&](Person& person) {
        const std::string page = "按键 - " + form.Caption();
        for (const char* closing : {"Escape", "Return"}) {
            person.Keys({"F1"});
            person.SeeWindow(page);
            // The page has none of its own.
            person.Keys({"F1", "Down", closing});
            person.SeeWindow(form.Caption());
            person.See("the keyboard is back in the list",
                       [&] { return form.ActiveControl() == &form.grid; });
        }
        person.Keys({"Down"});
        person.See("the next row", [&] { return form.grid.Row() == 2; });
    });
    EXPECT_EQ(form.Notice(), "");
}

TEST(DesktopForm, TheScreenIsMeasuredInTwips) {
    EXPECT_EQ(Windows().TwipsPerPixelX(), 15);
    EXPECT_EQ(Windows().TwipsPerPixelY(), 15);
    EXPECT_GE(Windows().ScreenWidth(), 1200 * 15);
    EXPECT_GE(Windows().ScreenHeight(), 800 * 15);
}

}  // namespace kelvane::test
