// Both toolbars on the screen.
#include <gtest/gtest.h>
#include <wx/tooltip.h>
#include <wx/toplevel.h>

#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

namespace {

constexpr const char* kTitle = "项目期初";

using Events = std::vector<std::string>;

// Whether a window in `window` or the window itself offers the tip.
bool HasTip(const wxWindow& window, const std::string& tip) {
    if (window.GetToolTipText() == wxString::FromUTF8(tip)) return true;
    for (const wxWindow* child : window.GetChildren()) {
        if (HasTip(*child, tip)) return true;
    }
    return false;
}

bool IsTipOffered(const std::string& tip) {
    for (const wxWindow* window : wxTopLevelWindows) {
        if (HasTip(*window, tip)) return true;
    }
    return false;
}

class DesktopToolbar : public testing::TestWithParam<bool> {
protected:
    // The middle of the second button, and of the one with key "Add".
    int PreviewX() const { return GetParam() ? 73 : 112; }
    int AddX() const { return GetParam() ? 174 : 265; }
};

}  // namespace

TEST_P(DesktopToolbar, AButtonIsClicked) {
    ListForm form(5, GetParam());
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, PreviewX(), 20);
        person.See("click", [&] { return form.events == Events{"click PreView"}; });
        person.Click(kTitle, AddX(), 20);
        person.See("click", [&] { return form.events == Events{"click PreView", "click Add"}; });
    });
}

TEST_P(DesktopToolbar, TwoQuickClicksAreTwo) {
    ListForm form(5, GetParam());
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, PreviewX(), 20, 2);
        person.See("clicks", [&] {
            return form.events == Events{"click PreView", "click PreView"};
        });
    });
}

TEST_P(DesktopToolbar, ADisabledButtonDoesNothing) {
    ListForm form(5, GetParam());
    form.toolbar.Button("Add")->SetEnabled(false);
    form.style.Refresh();
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, AddX(), 20);
        person.Click(kTitle, PreviewX(), 20);
        person.See("the other one", [&] { return form.events == Events{"click PreView"}; });
        person.Look([&] {
            form.toolbar.Button("Add")->SetEnabled(true);
            form.style.Refresh();
            return true;
        });
        person.Click(kTitle, AddX(), 20);
        person.See("click", [&] { return form.events == Events{"click PreView", "click Add"}; });
    });
}

TEST_P(DesktopToolbar, AClickLeavesTheOpenCellOpen) {
    ListForm form(5, GetParam());
    ShowTo(form, [&](Person& person) {
        person.Keys({"Right", "Right"});
        person.Type("ab");
        person.See("typed", [&] { return form.grid.EditText() == "ab"; });
        person.Click(kTitle, PreviewX(), 20);
        person.See("click", [&] { return form.events == Events{"click PreView"}; });
        person.Type("c");
        person.See("typed on", [&] { return form.grid.EditText() == "abc"; });
        person.Keys({"Escape"});
        person.See("closed", [&] { return !form.grid.IsEditing(); });
    });
}

TEST_P(DesktopToolbar, IsWorkedByTheKeyboard) {
    ListForm form(5, GetParam());
    ShowTo(form, [&](Person& person) {
        person.Keys({"F10", "Right", "Right", "Right", "Return"});
        person.See("over the separator", [&] { return form.events == Events{"click Add"}; });
        person.Keys({"Down"});
        person.See("keyboard back in the grid", [&] { return form.grid.Row() == 2; });
        person.Keys({"F10", "Escape", "Down"});
        person.See("and again", [&] { return form.grid.Row() == 3; });
    });
    EXPECT_EQ(form.events, (Events{"click Add", "leave 1", "leave 2"}));
}

TEST_P(DesktopToolbar, TheTipNamesTheButtonsKey) {
    ListForm form(5, GetParam());
    form.toolbar.Button("Add")->SetStroke({platform::Key::I, platform::kCtrl});
    form.style.Refresh();
    ShowTo(form, [&](Person& person) {
        person.SeePainted();
        // The first move enters the toolbar, the second one moves on it.
        person.MoveTo(kTitle, AddX() - 5, 20);
        person.MoveTo(kTitle, AddX(), 20);
        person.See("its tip", [&] { return IsTipOffered("增加 (Ctrl+I)"); });
    });
}

TEST(DesktopToolbarTips, OtherButtonsNameTheirKeys) {
    FieldForm form;
    form.reference.SetStroke({platform::Key::F2});
    ShowTo(form, [&](Person& person) {
        person.See("Enter's button", [] { return IsTipOffered("确定 (Enter)"); });
        person.See("Escape's button", [] { return IsTipOffered("取消 (Esc)"); });
        person.See("one without a caption", [] { return IsTipOffered("F2"); });
    });
}

INSTANTIATE_TEST_SUITE_P(Look, DesktopToolbar, testing::Bool(), [](const auto& look) {
    return look.param ? std::string("Suite") : std::string("Plain");
});

TEST(DesktopToolbarSwitch, TheOtherToolbarTakesThePlace) {
    ListForm form(5, false);
    ShowTo(form, [&](Person& person) {
        person.Look([&] {
            form.toolbar.SetVisible(false);
            form.style.SetVisible(true);
            form.Form_Resize();
            return true;
        });
        person.SeePainted();
        person.Click(kTitle, 73, 20);
        person.See("click", [&] { return form.events == Events{"click PreView"}; });
    });
}

}  // namespace kelvane::test
