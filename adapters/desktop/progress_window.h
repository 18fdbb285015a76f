// ProgressWindow: shows how far a piece of work is, and lets the operator end it.
#pragma once

#include <wx/dialog.h>
#include <wx/gauge.h>
#include <wx/utils.h>

#include <string>

#include "platform/print_surroundings.h"

namespace kelvane::desktop {

class ProgressWindow : public platform::Progress {
public:
    // Shown at once over `parent`, which may be null; the program's other windows take no input
    // until it has gone.
    ProgressWindow(wxWindow* parent, const std::string& title);

    bool Show(std::size_t done, std::size_t total) override;

private:
    void Cancel();

    wxDialog mWindow;
    wxGauge* mGauge;
    wxWindowDisabler mOthers;
    bool mCancelled = false;
};

}  // namespace kelvane::desktop
