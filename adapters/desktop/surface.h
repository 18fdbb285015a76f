// Surface: the inner area of a form's window. It paints the coloured strips and the labels itself,
// so that a label on a strip is transparent; the other controls are windows on it.
#pragma once

#include <wx/dc.h>
#include <wx/panel.h>
#include <wx/window.h>

#include <memory>
#include <vector>

#include "adapters/desktop/spoken_window.h"
#include "controls/form.h"
#include "controls/label.h"

namespace kelvane::desktop {

class Surface : public wxPanel, public SpokenSource {
public:
    Surface(wxWindow& parent, const controls::Form& form);
    // Repaints when a strip or a label has changed.
    void Sync();

private:
    controls::Spoken Whole() override { return {}; }
    // The labels.
    int PartCount() override { return static_cast<int>(mLabels.size()); }
    controls::Spoken Part(int part) override;
    wxRect PlaceOf(int part) override;
    void Paint();
    void PaintLabel(wxDC& dc, const controls::Label& label) const;

    const controls::Form& mForm;
    // Found anew at each look: a label may join a form that is shown.
    std::vector<const controls::Label*> mLabels;
    std::uint64_t mDrawn = 0;
    std::unique_ptr<SpokenWindow> mSpoken;
};

}  // namespace kelvane::desktop
