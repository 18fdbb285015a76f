#include "adapters/drive/key_flow.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <vector>

#include "controls/button.h"
#include "controls/combo_box.h"
#include "controls/grid.h"

namespace kelvane::drive {

using controls::Button;
using controls::Control;
using controls::Form;
using controls::Grid;
using platform::Key;
using platform::KeyStroke;

namespace {

bool CanFocus(Control* control) {
    if (!control->Visible() || !control->Enabled() || !control->TakesFocus()) return false;
    return dynamic_cast<controls::KeyTarget*>(control) != nullptr ||
           dynamic_cast<controls::ComboBox*>(control) != nullptr ||
           dynamic_cast<Button*>(control) != nullptr;
}

// The control next to the active one in the order they joined the form, round its end.
Control* NextControl(const Form& form, int step) {
    std::vector<Control*> stops;
    std::copy_if(form.Controls().begin(), form.Controls().end(), std::back_inserter(stops),
                 CanFocus);
    if (stops.empty()) return nullptr;
    const auto count = static_cast<std::ptrdiff_t>(stops.size());
    const auto active = std::find(stops.begin(), stops.end(), form.ActiveControl());
    const std::ptrdiff_t at =
        active == stops.end() ? (step > 0 ? -1 : count) : active - stops.begin();
    return stops[static_cast<std::size_t>((at + step + count) % count)];
}

Button* FindButton(const Form& form, bool (Button::*is)() const) {
    for (Control* control : form.Controls()) {
        auto* button = dynamic_cast<Button*>(control);
        if (button != nullptr && (button->*is)() && button->Visible() && button->Enabled()) {
            return button;
        }
    }
    return nullptr;
}

bool Press(Button* button) {
    if (button == nullptr) return false;
    button->Press();
    return true;
}

bool IsPlain(const KeyStroke& stroke) {
    return (stroke.shift & (platform::kCtrl | platform::kAlt)) == 0;
}

bool MoveFocus(Form& form, int step) {
    Control* next = NextControl(form, step);
    if (next != nullptr) next->SetFocus();
    return next != nullptr;
}

// Tab and Escape, which do not pass the window's code.
bool Navigate(Form& form, const KeyStroke& stroke) {
    auto* grid = dynamic_cast<Grid*>(form.ActiveControl());
    if (grid != nullptr && grid->NavigationKey(stroke.key, stroke.shift)) return true;
    if (stroke.key == Key::Escape) return Press(FindButton(form, &Button::IsCancel));
    return MoveFocus(form, (stroke.shift & platform::kShift) != 0 ? -1 : 1);
}

// What a window does with a key that its code and its controls left.
bool PressDialogKey(const Form& form, const KeyStroke& stroke) {
    auto* active = dynamic_cast<Button*>(form.ActiveControl());
    if (stroke.key == Key::Space) return Press(active);
    if (stroke.key != Key::Enter) return false;
    return Press(active != nullptr ? active : FindButton(form, &Button::IsDefault));
}

}  // namespace

bool PressKey(Form& form, const KeyStroke& stroke) {
    if (stroke.key == Key::F4 && stroke.shift == platform::kAlt) {
        form.Unload(controls::UnloadMode::CloseBox);
        return true;
    }
    const bool plain = IsPlain(stroke);
    if (plain && (stroke.key == Key::Tab || stroke.key == Key::Escape)) {
        return Navigate(form, stroke);
    }
    bool used = form.KeyDown(stroke.key, stroke.shift);
    if (!used && plain && form.IsLoaded()) used = PressDialogKey(form, stroke);
    if (!used && plain && stroke.character != 0 && form.IsLoaded()) {
        used = form.KeyPress(stroke.character);
    }
    if (form.IsLoaded()) form.KeyUp(stroke.key, stroke.shift);
    return used;
}

}  // namespace kelvane::drive
