// The windows in a session whose own windows are dark: nothing of them is.
#include <gtest/gtest.h>
#include <wx/button.h>
#include <wx/textctrl.h>

#include "tests/desktop/find_windows.h"
#include "tests/desktop/person.h"
#include "tests/desktop/photo.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

namespace {

constexpr int kLight = 200;

// How many hundredths of `area` are light.
int LightShare(const Photo& photo, const wxRect& area) {
    int light = 0;
    for (int y = area.y; y <= area.GetBottom(); ++y) {
        for (int x = area.x; x <= area.GetRight(); ++x) {
            light += photo.Brightness(x, y) > kLight ? 1 : 0;
        }
    }
    return 100 * light / (area.width * area.height);
}

}  // namespace

TEST(DesktopTheme, FieldsAreLight) {
    FieldForm form;
    ShowTo(form, [&](Person& person) {
        person.SeePainted();
        person.Look([&] {
            const Photo photo;
            const auto fields = FindAll<wxTextCtrl>();
            EXPECT_EQ(fields.size(), 2U);
            for (const wxTextCtrl* field : fields) EXPECT_GT(LightShare(photo, DotsOf(*field)), 70);
            EXPECT_GT(LightShare(photo, wxRect(0, 0, photo.Width(), photo.Height())), 90);
            return true;
        });
    });
}

TEST(DesktopTheme, AnOpenCellIsLight) {
    ListForm form(1000);
    ShowTo(form, [&](Person& person) {
        person.Keys({"Right", "F2"});
        person.See("open", [&] { return form.grid.IsEditing(); });
        person.Keys({"ctrl+a", "BackSpace"});
        person.See("empty", [&] { return form.grid.EditText().empty(); });
        person.Look([&] {
            const Photo photo;
            int shown = 0;
            for (const wxTextCtrl* field : FindAll<wxTextCtrl>()) {
                if (!field->IsShownOnScreen()) continue;
                ++shown;
                EXPECT_GT(LightShare(photo, DotsOf(*field)), 80);
            }
            EXPECT_EQ(shown, 1);
            // With the scroll bar at the right.
            const wxRect right(photo.Width() - 30, photo.Height() / 2, 30, photo.Height() / 4);
            EXPECT_GT(LightShare(photo, right), 60);
            return true;
        });
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.grid.IsEditing(); });
    });
}

TEST(DesktopTheme, AMessageBoxIsLight) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        Windows().Post([] {
            Windows().ShowMessage({.text = "没有找到！",
                                   .caption = "提示信息",
                                   .icon = platform::MessageIcon::Information});
        });
        person.SeeWindow("提示信息");
        EXPECT_TRUE(person.Look([] { return FindAll<wxButton>().size() == 1; }));
        person.See("light", [] {
            const Photo photo;
            return LightShare(photo, wxRect(0, 0, photo.Width(), photo.Height())) > 80;
        });
        person.Keys({"Return"});
        person.See("answered", [] { return FindAll<wxButton>().empty(); });
    });
}

}  // namespace kelvane::test
