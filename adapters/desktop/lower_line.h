// LowerLine: the line at a form's lower edge, below the surface: at its left the form's notice or,
// while there is none, its hint; at its right the form's figures.
#pragma once

#include <wx/dc.h>
#include <wx/window.h>

#include "adapters/desktop/spoken_window.h"

namespace kelvane::desktop {

class LowerLine : public wxWindow, public SpokenSource {
public:
    static constexpr int kHeight = 22;  // pixels at 100 % scaling

    explicit LowerLine(wxWindow& parent);
    void Show(const wxString& notice, const wxString& hint, const wxString& figures);
    using wxWindow::Show;

private:
    controls::Spoken Whole() override;
    // The notice, when there is one.
    int PartCount() override { return mNotice.empty() ? 0 : 1; }
    controls::Spoken Part(int part) override;
    wxRect PlaceOf(int /*part*/) override { return GetClientRect(); }
    void Paint();
    // Where the left text may begin and must end.
    void PaintLeft(wxDC& dc, int end);

    wxString mNotice;
    wxString mHint;
    wxString mFigures;
    std::unique_ptr<SpokenWindow> mSpoken;
};

}  // namespace kelvane::desktop
