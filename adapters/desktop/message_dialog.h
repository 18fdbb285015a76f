// MessageDialog: a message box. It is the windows' own, so that a scripted operator can answer it.
#pragma once

#include <wx/dialog.h>

#include "platform/windows.h"

namespace kelvane::desktop {

class MessageDialog : public wxDialog {
public:
    MessageDialog(wxWindow* parent, const platform::Message& message);

    // Shows the box and returns the pressed button.
    platform::MessageAnswer Ask();
    const platform::Message& Shown() const { return mMessage; }
    // Ends Ask() with `answer`, as if its button had been pressed.
    void Press(platform::MessageAnswer answer);
    bool IsPainted() const { return mPainted; }

private:
    wxWindow* CreateBody();
    wxSizer* CreateButtons();
    void OnKey(wxKeyEvent& event);

    platform::Message mMessage;
    // What Escape and the close box answer.
    platform::MessageAnswer mDismissed;
    bool mPainted = false;
};

}  // namespace kelvane::desktop
