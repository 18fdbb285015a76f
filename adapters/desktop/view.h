// View: what draws one control of a form. It looks at the control's state when it is told to, and
// forwards what the operator does with it.
#pragma once

#include <wx/window.h>

#include <cstdint>
#include <string>

#include "adapters/desktop/key_stroke.h"
#include "adapters/desktop/look.h"
#include "controls/control.h"

namespace kelvane::desktop {

class View {
public:
    explicit View(controls::Control& control) : mControl(control) {}
    virtual ~View() = default;
    View(const View&) = delete;
    View& operator=(const View&) = delete;

    controls::Control& Control() { return mControl; }
    virtual wxWindow& Window() = 0;

    // Brings the window up to the control's state when that has changed since the last time.
    void Sync() {
        if (mDrawn == mControl.Revision()) return;
        mDrawn = mControl.Revision();
        Window().SetSize(Place());
        Window().Show(mControl.Visible());
        Window().Enable(mControl.Enabled());
        Update();
    }

    // The window that has the keyboard when the control is the active one; null when it takes none.
    virtual wxWindow* FocusWindow() { return nullptr; }

    // The control's own use of a key that the form has left; true when it used it.
    virtual bool TakeKey(const KeyStroke& /*stroke*/) { return false; }
    // The same for a character; false leaves it to the native field.
    virtual bool TakeCharacter(char32_t /*character*/) { return false; }
    // The whole text of the place where the keyboard is, where it is shown in part; empty
    // otherwise.
    virtual std::string CutText() { return {}; }
    // Types a character that no keyboard sent.
    virtual void TypeCharacter(char32_t /*character*/) {}

protected:
    // The control's place in the pixels of its parent window.
    virtual wxRect Place() { return ToPixels(Window(), mControl); }
    virtual void Update() = 0;

private:
    controls::Control& mControl;
    std::uint64_t mDrawn = 0;
};

}  // namespace kelvane::desktop
