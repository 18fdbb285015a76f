// PassingNotice: a sentence on a form's notice line that goes with the operator's next step; what
// stood there before comes back.
#pragma once

#include <wx/eventfilter.h>

#include <string>

#include "controls/form.h"

namespace kelvane::desktop {

class PassingNotice : public wxEventFilter {
public:
    PassingNotice();
    ~PassingNotice() override;
    PassingNotice(const PassingNotice&) = delete;
    PassingNotice& operator=(const PassingNotice&) = delete;

    // `form` must live until End().
    void Say(controls::Form& form, const std::string& sentence);
    void End();

    // Every key and mouse button that goes down is a step.
    int FilterEvent(wxEvent& event) override;

private:
    controls::Form* mForm = nullptr;
    std::string mSentence;
    std::string mBefore;
};

}  // namespace kelvane::desktop
