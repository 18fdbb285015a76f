#include "adapters/desktop/passing_notice.h"

#include <wx/event.h>

#include <utility>

namespace kelvane::desktop {

PassingNotice::PassingNotice() {
    wxEvtHandler::AddFilter(this);
}

PassingNotice::~PassingNotice() {
    wxEvtHandler::RemoveFilter(this);
}

void PassingNotice::Say(controls::Form& form, const std::string& sentence) {
    End();
    mForm = &form;
    mSentence = sentence;
    mBefore = form.Notice();
    form.SetNotice(sentence);
}

// A notice that the form's own code has set since stays.
void PassingNotice::End() {
    if (mForm == nullptr) return;
    controls::Form& form = *std::exchange(mForm, nullptr);
    if (form.Notice() == mSentence) form.SetNotice(mBefore);
}

int PassingNotice::FilterEvent(wxEvent& event) {
    const wxEventType type = event.GetEventType();
    const bool isStep = type == wxEVT_KEY_DOWN || type == wxEVT_LEFT_DOWN ||
                        type == wxEVT_RIGHT_DOWN || type == wxEVT_MIDDLE_DOWN;
    if (isStep) End();
    return Event_Skip;
}

}  // namespace kelvane::desktop
