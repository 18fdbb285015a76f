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

    // Whether `key`, going down in the window of `owner` (compared, never used), is the repeat of
    // one that was pressed in another window; if not, it counts as pressed in this one. `time` is
    // the event's, in milliseconds.
    bool RepeatsFromElsewhere(platform::Key key, const void* owner, long time);

    // Sees keys released in whatever window, message boxes included.
    int FilterEvent(wxEvent& event) override;

private:
    struct Press {
        const void* owner;
        long time;
    };

    HeldKeys();

    std::map<platform::Key, Press> mPresses;
};

}  // namespace kelvane::desktop
