// FormKeys: the way of a key through a window. The form's handlers see a key before its controls
// do, but they never see Tab and Escape, which move in a grid or leave a dialog. A key that nobody
// used works the window itself: F1 its help, F10 its toolbar, Enter its default button. The menu
// key, and Shift+F10, open the context menu before the handlers see them.
#pragma once

#include <wx/window.h>

#include <functional>
#include <map>

#include "adapters/desktop/key_stroke.h"
#include "adapters/desktop/view.h"
#include "controls/button.h"
#include "controls/form.h"

namespace kelvane::desktop {

class FormKeys {
public:
    struct Hooks {
        std::function<View*()> activeView;
        std::function<void()> close;
        std::function<void()> help;
        std::function<bool()> enterToolbar;
        std::function<bool()> openDropDown;
        std::function<bool()> openMenu;
        // Brings the windows up to what a key has changed.
        std::function<void()> catchUp;
    };

    FormKeys(controls::Form& form, Hooks hooks);

    // Lets the keys that `window` receives take this way. Keys are taken when they have become
    // characters, so that an input method sees them first.
    void Attach(wxWindow& window);

    // Delivers a key that no keyboard sent, as pressed and released.
    void Send(const KeyStroke& stroke);

private:
    bool Stroke(const KeyStroke& stroke);
    bool Take(KeyStroke stroke);
    bool Release(const KeyStroke& stroke);
    bool DialogKey(const KeyStroke& stroke);
    bool PressButton(bool (controls::Button::*chosen)() const);

    controls::Form& mForm;
    Hooks mHooks;
    int mDownCode = 0;
    // The shift state that a key was pressed with: it still counts when the key is released after
    // Ctrl, as quick fingers do.
    std::map<platform::Key, int> mPressed;
};

}  // namespace kelvane::desktop
