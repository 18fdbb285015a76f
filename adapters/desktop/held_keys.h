// HeldKeys: which window a key was pressed in. A key held so long that it repeats belongs to that
// window alone: once the window has closed, its repeats must not act on the one below.
#pragma once

#include <wx/event.h>
#include <wx/eventfilter.h>

#include <map>

#include "platform/keys.h"

namespace kelvane::desktop {

class HeldKeys : public wxEventFilter {
public:
    // The keys of the one keyboard; on the user-interface thread, as long as the program runs.
    static HeldKeys& OfKeyboard();

    ~HeldKeys() override;

    // Whether the key that goes down in the window of `owner` (compared, never used) is the repeat
    // of one that was pressed in another window; if not, it counts as pressed in this one.
    bool RepeatsFromElsewhere(const wxKeyEvent& event, const void* owner);

    // Sees a key released in, and the keyboard given to, any window, message boxes included.
    int FilterEvent(wxEvent& event) override;

private:
    struct Press {
        const void* owner;
        long time;  // of the event, in milliseconds
        int code;   // as the toolkit counts keys
    };

    HeldKeys();

    std::map<platform::Key, Press> mPresses;
};

}  // namespace kelvane::desktop
