#include "adapters/desktop/held_keys.h"

#include <wx/utils.h>

#include "adapters/desktop/key_stroke.h"

namespace kelvane::desktop {

namespace {

// Milliseconds. A key silent for longer was released where no window saw it.
constexpr long kMaxPause = 1200;

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

bool HeldKeys::RepeatsFromElsewhere(const wxKeyEvent& event, const void* owner) {
    const platform::Key key = StrokeOfKey(event).key;
    if (key == platform::Key::None) return false;
    const long time = event.GetTimestamp();
    Press& press = mPresses.try_emplace(key, Press{owner, time, event.GetKeyCode()}).first->second;
    if (time - press.time > kMaxPause) press.owner = owner;
    press.time = time;
    return press.owner != owner;
}

int HeldKeys::FilterEvent(wxEvent& event) {
    if (event.GetEventType() == wxEVT_KEY_UP) {
        mPresses.erase(StrokeOfKey(static_cast<wxKeyEvent&>(event)).key);
    } else if (event.GetEventType() == wxEVT_SET_FOCUS) {
        // A key released while the keyboard went from one window to another was seen by neither.
        std::erase_if(mPresses, [](const auto& press) {
            return !wxGetKeyState(static_cast<wxKeyCode>(press.second.code));
        });
    }
    return Event_Skip;
}

}  // namespace kelvane::desktop
