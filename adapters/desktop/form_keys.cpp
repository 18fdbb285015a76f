#include "adapters/desktop/form_keys.h"

#include <utility>

#include "adapters/desktop/held_keys.h"
#include "controls/grid.h"

namespace kelvane::desktop {

using platform::Key;

namespace {

bool IsMenuKey(const KeyStroke& stroke) {
    return (stroke.key == Key::Menu && stroke.shift == 0) ||
           (stroke.key == Key::F10 && stroke.shift == platform::kShift);
}

}  // namespace

FormKeys::FormKeys(controls::Form& form, Hooks hooks) : mForm(form), mHooks(std::move(hooks)) {}

void FormKeys::Attach(wxWindow& window) {
    window.Bind(wxEVT_KEY_DOWN, [this](wxKeyEvent& event) {
        mDownCode = event.GetKeyCode();
        const KeyStroke stroke = StrokeOfKey(event);
        if (HeldKeys::OfKeyboard().RepeatsFromElsewhere(event, this)) return;
        mPressed[stroke.key] = stroke.shift;
        event.Skip();
    });
    window.Bind(wxEVT_CHAR, [this](wxKeyEvent& event) {
        if (!Stroke(StrokeOfCharacter(event, mDownCode))) event.Skip();
    });
    window.Bind(wxEVT_KEY_UP, [this](wxKeyEvent& event) {
        if (!Release(StrokeOfKey(event))) event.Skip();
    });
}

bool FormKeys::Release(const KeyStroke& stroke) {
    // A key that closed the window above is released here, and means nothing here.
    const auto pressed = mPressed.extract(stroke.key);
    if (stroke.key == Key::None || !pressed) return false;
    const bool used = mForm.KeyUp(stroke.key, pressed.mapped());
    mHooks.catchUp();
    return used;
}

void FormKeys::Send(const KeyStroke& stroke) {
    if (!Stroke(stroke) && stroke.character != 0) {
        if (View* view = mHooks.activeView()) view->TypeCharacter(stroke.character);
    }
    mForm.KeyUp(stroke.key, stroke.shift);
}

// Catches up at once: the next key may already be waiting, and it belongs to the field that this
// key opens, not to the one that it closes.
bool FormKeys::Stroke(const KeyStroke& stroke) {
    const bool used = Take(stroke);
    mHooks.catchUp();
    return used;
}

bool FormKeys::Take(KeyStroke stroke) {
    if (stroke.key == Key::None) return false;
    if (stroke.key == Key::F4 && (stroke.shift & platform::kAlt) != 0) {
        mHooks.close();
        return true;
    }
    const bool plain = (stroke.shift & (platform::kCtrl | platform::kAlt)) == 0;
    if (plain && (stroke.key == Key::Tab || stroke.key == Key::Escape)) {
        auto* grid = dynamic_cast<controls::Grid*>(mForm.ActiveControl());
        if (grid != nullptr && grid->NavigationKey(stroke.key, stroke.shift)) return true;
        return stroke.key == Key::Escape && PressButton(&controls::Button::IsCancel);
    }
    if (IsMenuKey(stroke) && mHooks.openMenu()) return true;
    if (mForm.OfferKeyDown(stroke.key, stroke.shift)) return true;
    if (stroke.key == Key::Down && stroke.shift == platform::kAlt && mHooks.openDropDown()) {
        return true;
    }
    View* view = mHooks.activeView();
    if (view != nullptr && view->TakeKey(stroke)) return true;
    if (DialogKey(stroke)) return true;
    if (stroke.character == 0) return false;
    const char32_t typed = stroke.character;
    if (mForm.OfferKeyPress(stroke.character)) return true;
    if (view == nullptr || view->TakeCharacter(stroke.character)) return true;
    if (stroke.character == typed) return false;
    view->TypeCharacter(stroke.character);
    return true;
}

bool FormKeys::DialogKey(const KeyStroke& stroke) {
    if (stroke.shift != 0) return false;
    switch (stroke.key) {
        case Key::F1:
            mHooks.help();
            return true;
        case Key::F10:
            return mHooks.enterToolbar();
        case Key::Enter:
            return PressButton(&controls::Button::IsDefault);
        default:
            return false;
    }
}

bool FormKeys::PressButton(bool (controls::Button::*chosen)() const) {
    for (controls::Control* control : mForm.Controls()) {
        auto* button = dynamic_cast<controls::Button*>(control);
        if (button == nullptr || !(button->*chosen)()) continue;
        button->Press();
        return true;
    }
    return false;
}

}  // namespace kelvane::desktop
