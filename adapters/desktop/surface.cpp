#include "adapters/desktop/surface.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>

#include "adapters/desktop/look.h"
#include "adapters/desktop/pictures.h"
#include "controls/picture.h"

namespace kelvane::desktop {

namespace {

constexpr int kTitlePoints = 15;
constexpr int kNoticeIcon = 14;
constexpr int kNoticeMargin = 6;

}  // namespace

Surface::Surface(wxWindow& parent, const controls::Form& form) : mForm(form) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxTAB_TRAVERSAL | wxBORDER_NONE);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        Refresh(false);
        event.Skip();
    });
}

void Surface::Sync() {
    std::uint64_t revision = 0;
    for (const controls::Control* control : mForm.Controls()) {
        if (dynamic_cast<const controls::Label*>(control) != nullptr ||
            dynamic_cast<const controls::Picture*>(control) != nullptr) {
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
    for (const controls::Control* control : mForm.Controls()) {
        const auto* label = dynamic_cast<const controls::Label*>(control);
        if (label != nullptr && label->Visible()) PaintLabel(dc, *label);
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

NoticeStrip::NoticeStrip(wxWindow& parent) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    SetCanFocus(false);
    SetFont(UiFont(9));
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
}

void NoticeStrip::SetNotice(const wxString& notice) {
    if (notice == mNotice) return;
    mNotice = notice;
    SetToolTip(notice);
    Refresh(false);
}

void NoticeStrip::Paint() {
    wxAutoBufferedPaintDC dc(this);
    const wxSize size = GetClientSize();
    dc.SetBackground(wxBrush(mNotice.empty() ? look::kWindow : look::kNoticeBack));
    dc.Clear();
    dc.SetPen(wxPen(look::kEdge));
    dc.DrawLine(0, 0, size.x, 0);
    if (mNotice.empty()) return;
    const wxBitmap icon = PictureFor(*this, kPictureExclamation, kNoticeIcon);
    const int side = FromDIP(kNoticeIcon);
    const int margin = FromDIP(kNoticeMargin);
    dc.DrawBitmap(icon, margin, (size.y - side) / 2 + 1, true);
    dc.SetFont(GetFont());
    dc.SetTextForeground(look::kNoticeText);
    const int left = 2 * margin + side;
    const wxString shown =
        wxControl::Ellipsize(mNotice, dc, wxELLIPSIZE_END, size.x - left - margin);
    dc.DrawText(shown, left, (size.y - dc.GetCharHeight()) / 2 + 1);
}

}  // namespace kelvane::desktop
