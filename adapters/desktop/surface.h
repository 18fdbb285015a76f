// Surface: the inner area of a form's window. It paints the coloured strips and the labels itself,
// so that a label on a strip is transparent; the other controls are windows on it.
#pragma once

#include <wx/dc.h>
#include <wx/panel.h>
#include <wx/window.h>

#include "controls/form.h"
#include "controls/label.h"

namespace kelvane::desktop {

class Surface : public wxPanel {
public:
    Surface(wxWindow& parent, const controls::Form& form);
    // Repaints when a strip or a label has changed.
    void Sync();

private:
    void Paint();
    void PaintLabel(wxDC& dc, const controls::Label& label) const;

    const controls::Form& mForm;
    std::uint64_t mDrawn = 0;
};

}  // namespace kelvane::desktop
