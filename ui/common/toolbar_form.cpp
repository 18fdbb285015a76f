#include "ui/common/toolbar_form.h"

#include <algorithm>
#include <array>

#include "data/login_context.h"
#include "ui/common/toolbar_table.h"

namespace kelvane::ui {

using controls::ToolbarButton;
using platform::Key;
using platform::Registry;

namespace {

constexpr std::int16_t kSuiteStyle = 1;
constexpr std::int16_t kPlainStyle = 2;

// The keystrokes that click toolbar buttons in every window. One whose button a window does not
// have does nothing there.
struct ToolbarKey {
    ToolbarStroke stroke;
    std::string_view button;
};

constexpr std::array kToolbarKeys{
    ToolbarKey{{Key::F3}, "Query"},  ToolbarKey{{Key::F4, true}, "Quit"},
    ToolbarKey{{Key::F5}, "Addnew"}, ToolbarKey{{Key::F6}, "Save"},
    ToolbarKey{{Key::F8}, "Modify"}, ToolbarKey{{Key::P, true}, "Print"},
};

}  // namespace

ToolbarForm::ToolbarForm(std::string name)
    : Form(std::move(name)), Toolbar1(*this, "Toolbar1"), CTBCtrl1(*this, "CTBCtrl1") {
    Toolbar1.ButtonClick = [this](ToolbarButton& button) { Toolbar1_ButtonClick(button); };
    CTBCtrl1.ButtonClick = [this](const std::string& key, const std::string& caption) {
        CTBCtrl1_Click(key, caption);
    };
}

void ToolbarForm::CTBCtrl1_Click(const std::string& key, const std::string& /*caption*/) {
    if (ToolbarButton* button = Toolbar1.Button(key)) Toolbar1_ButtonClick(*button);
}

std::string HelpFilePath() {
    return data::gEnv->HostPath() + "\\help\\" + "项目管理.chm";
}

std::int16_t ReadToolbarStyle() {
    static constexpr std::size_t kBufferLength = 128;
    const Registry::Answer answer = data::gServices->registry->ReadMachineText(
        "SOFTWARE\\Marrowind\\Kx\\V8.50\\Appearance", "Toolbar Style", kBufferLength);
    if (answer.outcome != Registry::Outcome::Found) return kSuiteStyle;
    return answer.text.starts_with('T') ? kSuiteStyle : kPlainStyle;
}

void ApplyToolbarStyle(ToolbarForm& form) {
    try {
        if (data::gToolbarStyle != 0) {
            form.CTBCtrl1.SetDisplayStyle(kPlainStyle);
            form.Toolbar1.SetVisible(true);
            form.CTBCtrl1.SetVisible(false);
        } else {
            if (form.CTBCtrl1.GetToolbarStyle() == 1) return;
            form.CTBCtrl1.SetToolbar(form.Toolbar1);
            form.CTBCtrl1.SetSpecialEffect(true);
            form.CTBCtrl1.SetDisplayStyle(kSuiteStyle);
            form.Toolbar1.SetVisible(false);
            form.CTBCtrl1.SetVisible(true);
            form.CTBCtrl1.SetTop(0);
        }
        form.Form_Resize();
    } catch (...) {
        data::ReportTrapped("ApplyToolbarStyle");
    }
}

void NameToolbarKeys(ToolbarForm& form) {
    for (const ToolbarKey& each : kToolbarKeys) {
        ToolbarButton* button = form.Toolbar1.Button(each.button);
        if (button != nullptr) button->SetStroke(StrokeOf(each.stroke));
    }
}

void AddToolbarAction(ToolbarForm& form, const ToolbarEntry& entry, bool startsGroup) {
    controls::Toolbar& toolbar = form.Toolbar1;
    const auto canClick = [&toolbar, key = entry.key] {
        const ToolbarButton* button = toolbar.Button(key);
        return button != nullptr && button->Enabled() && button->Visible();
    };
    form.AddAction({.stroke = toolbar.Button(entry.key)->Stroke(),
                    .takesKey = false,
                    .caption = std::string(entry.caption),
                    .inMenu = entry.inMenu,
                    .startsGroup = startsGroup,
                    .possible = canClick,
                    .run = [&toolbar, key = entry.key] { toolbar.Click(key); }});
}

void SetToolbarButtons(ToolbarForm& form, Key& key, int shift) {
    const bool ctrl = (shift & platform::kCtrl) != 0;
    const auto mapped =
        std::find_if(kToolbarKeys.begin(), kToolbarKeys.end(), [&](const ToolbarKey& entry) {
            return entry.stroke.key == key && (ctrl || !entry.stroke.needsCtrl);
        });
    if (mapped == kToolbarKeys.end()) return;
    ToolbarButton* button = form.Toolbar1.Button(mapped->button);
    if (button == nullptr || !button->Enabled() || !button->Visible()) return;
    key = Key::None;
    try {
        form.Toolbar1_ButtonClick(*button);
    } catch (...) {
        data::ReportTrapped("SetToolbarButtons");
    }
}

}  // namespace kelvane::ui
