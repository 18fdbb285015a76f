// SpokenWindow: lets screen readers read a window that we draw ourselves. What there is to say
// comes from a SpokenSource; how a reader gets it differs on each system, which has one source file
// for it (accessible_gtk.cpp, accessible_windows.cpp).
#pragma once

#include <wx/window.h>

#include <memory>
#include <string>

#include "controls/spoken.h"

namespace kelvane::desktop {

// A drawn window in words: itself and its parts, counted from 0. Parts are made up whenever a
// reader asks: a grid may have very many.
class SpokenSource {
public:
    static constexpr int kWhole = -1;  // in place of a part: the window itself

    // How the parts of a table lie: row by row, the titles' rows and columns first.
    struct Shape {
        int rows = 0;
        int columns = 0;  // 0: the parts are no table
        int titleRows = 0;
        int titleColumns = 0;
    };

    virtual ~SpokenSource() = default;

    virtual controls::Spoken Whole() = 0;
    virtual int PartCount() { return 0; }
    virtual controls::Spoken Part(int /*part*/) { return {}; }
    // A part's place in the window's pixels; empty when it is not shown.
    virtual wxRect PlaceOf(int /*part*/) { return {}; }
    // The part at a place in the window's pixels; kWhole when there is none.
    virtual int PartAt(wxPoint point);
    // The part that the keyboard works on; kWhole when there is none.
    virtual int CurrentPart() { return kWhole; }
    // Whether the keyboard works on the current part although another window has it.
    virtual bool WorksFromElsewhere() { return false; }
    virtual Shape TableShape() { return {}; }
    // Presses a button: a part or the whole.
    virtual void Press(int /*part*/) {}
};

class SpokenReader;

class SpokenWindow {
public:
    // Set up before `window` is shown, and gone before it. `source` outlives it.
    SpokenWindow(wxWindow& window, SpokenSource& source);
    ~SpokenWindow();
    SpokenWindow(const SpokenWindow&) = delete;
    SpokenWindow& operator=(const SpokenWindow&) = delete;

    // To be called when anything may have changed: tells a reader when another part is the current
    // one, or when the current one or the whole says something else than before.
    void Follow();
    // Has a part read at once, wherever the keyboard is.
    void Announce(int part);

private:
    std::unique_ptr<SpokenReader> mReader;
};

// Everything that is said of something, to see whether it has changed.
std::string AllWords(const controls::Spoken& spoken);

// What readers call a native field.
void CallField(wxWindow& field, const std::string& name);
// Has readers say a dialog's texts when it opens, as they do of a message.
void CallMessage(wxWindow& dialog);

}  // namespace kelvane::desktop
