#include "adapters/desktop/surface.h"

#include <wx/dcbuffer.h>

#include "adapters/desktop/look.h"
#include "controls/picture.h"

namespace kelvane::desktop {

namespace {

constexpr int kTitlePoints = 15;

}  // namespace

Surface::Surface(wxWindow& parent, const controls::Form& form) : mForm(form) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE);
    mSpoken = std::make_unique<SpokenWindow>(*this, *this);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh(false);
        event.Skip();
    });
}

controls::Spoken Surface::Part(int part) {
    return SpokenOf(*mLabels[static_cast<std::size_t>(part)]);
}

wxRect Surface::PlaceOf(int part) {
    const controls::Label& label = *mLabels[static_cast<std::size_t>(part)];
    return label.Visible() ? ToPixels(*this, label) : wxRect();
}

void Surface::Sync() {
    std::uint64_t revision = 0;
    mLabels.clear();
    for (const controls::Control* control : mForm.Controls()) {
        const auto* label = dynamic_cast<const controls::Label*>(control);
        if (label != nullptr) mLabels.push_back(label);
        if (label != nullptr || dynamic_cast<const controls::Picture*>(control) != nullptr) {
            revision += control->Revision();
        }
    }
    if (revision == mDrawn) return;
    mDrawn = revision;
    Refresh(false);
}

void Surface::Paint() {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxBrush(look::kWindow));
    dc.Clear();
    for (const controls::Control* control : mForm.Controls()) {
        const auto* picture = dynamic_cast<const controls::Picture*>(control);
        if (picture == nullptr || !picture->Visible()) continue;
        dc.SetPen(*wxTRANSPARENT_PEN);
        dc.SetBrush(wxBrush(ToColour(picture->BackColor())));
        dc.DrawRectangle(ToPixels(*this, *picture));
    }
    for (const controls::Label* label : mLabels) {
        if (label->Visible()) PaintLabel(dc, *label);
    }
}

void Surface::PaintLabel(wxDC& dc, const controls::Label& label) const {
    const wxRect place = ToPixels(*this, label);
    const wxString caption = Text(label.Caption());
    dc.SetFont(label.IsTitle() ? UiFont(kTitlePoints, true) : UiFont());
    dc.SetTextForeground(label.Enabled() ? look::kText : look::kFaintText);
    const wxSize extent = dc.GetTextExtent(caption);
    const int x = label.IsTitle() ? place.x + (place.width - extent.x) / 2 : place.x;
    dc.DrawText(caption, x, place.y + (place.height - extent.y) / 2);
}

}  // namespace kelvane::desktop
