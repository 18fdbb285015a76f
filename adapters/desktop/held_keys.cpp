#include "adapters/desktop/held_keys.h"

#include "adapters/desktop/key_stroke.h"

namespace kelvane::desktop {

namespace {

// Milliseconds. A key silent for longer was released where no window saw it.
constexpr long kLongestPause = 1200;

}  // namespace

HeldKeys& HeldKeys::OfKeyboard() {
    static HeldKeys keys;
    return keys;
}

HeldKeys::HeldKeys() {
    wxEvtHandler::AddFilter(this);
}

HeldKeys::~HeldKeys() {
    wxEvtHandler::RemoveFilter(this);
}

bool HeldKeys::RepeatsFromElsewhere(platform::Key key, const void* owner, long time) {
    if (key == platform::Key::None) return false;
    Press& press = mPresses.try_emplace(key, Press{owner, time}).first->second;
    if (time - press.time > kLongestPause) press.owner = owner;
    press.time = time;
    return press.owner != owner;
}

int HeldKeys::FilterEvent(wxEvent& event) {
    if (event.GetEventType() == wxEVT_KEY_UP) {
        mPresses.erase(StrokeOfKey(static_cast<wxKeyEvent&>(event)).key);
    }
    return Event_Skip;
}

}  // namespace kelvane::desktop
