#include "adapters/desktop/lower_line.h"

#include <wx/control.h>
#include <wx/dcbuffer.h>

#include <algorithm>

#include "adapters/desktop/look.h"
#include "adapters/desktop/pictures.h"

namespace kelvane::desktop {

namespace {

constexpr int kIcon = 14;
constexpr int kMargin = 6;

}  // namespace

LowerLine::LowerLine(wxWindow& parent) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    Create(&parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxBORDER_NONE);
    SetCanFocus(false);
    SetFont(UiFont(9));
    mSpoken = std::make_unique<SpokenWindow>(*this, *this);
    Bind(wxEVT_PAINT, [this](wxPaintEvent&) { Paint(); });
}

void LowerLine::Show(const wxString& notice, const wxString& hint, const wxString& figures) {
    if (notice == mNotice && hint == mHint && figures == mFigures) return;
    const bool said = notice != mNotice && !notice.empty();
    mNotice = notice;
    mHint = hint;
    mFigures = figures;
    SetToolTip(notice.empty() ? hint : notice);
    Refresh(false);
    mSpoken->Follow();
    if (said) mSpoken->Announce(0);
}

controls::Spoken LowerLine::Whole() {
    return {.role = controls::SpokenRole::Status,
            .name = mNotice.empty() ? Utf8(mHint) : std::string(),
            .text = Utf8(mFigures)};
}

controls::Spoken LowerLine::Part(int /*part*/) {
    return {.role = controls::SpokenRole::Notice, .name = Utf8(mNotice)};
}

void LowerLine::Paint() {
    wxAutoBufferedPaintDC dc(this);
    const wxSize size = GetClientSize();
    dc.SetBackground(wxBrush(mNotice.empty() ? look::kWindow : look::kNoticeBack));
    dc.Clear();
    dc.SetPen(wxPen(look::kEdge));
    dc.DrawLine(0, 0, size.x, 0);
    dc.SetFont(GetFont());
    const int margin = Scaled(*this, kMargin);
    // Figures shown in part would be others: what is too long at the left gives way to them.
    const int width = mFigures.empty() ? 0 : dc.GetTextExtent(mFigures).x + margin;
    const int end = std::max(0, size.x - width - margin);
    PaintLeft(dc, end);
    if (width == 0 || width + margin > size.x) return;
    dc.SetTextForeground(look::kText);
    dc.DrawText(mFigures, size.x - width, (size.y - dc.GetCharHeight()) / 2 + 1);
}

void LowerLine::PaintLeft(wxDC& dc, int end) {
    const wxSize size = GetClientSize();
    const int margin = Scaled(*this, kMargin);
    int left = margin;
    if (!mNotice.empty()) {
        const int side = Scaled(*this, kIcon);
        const wxBitmap icon = PictureFor(*this, kPictureExclamation, side);
        dc.DrawBitmap(icon, margin, (size.y - side) / 2 + 1, true);
        left += side + margin;
    }
    dc.SetTextForeground(mNotice.empty() ? look::kText : look::kNoticeText);
    const wxString shown = wxControl::Ellipsize(mNotice.empty() ? mHint : mNotice, dc,
                                                wxELLIPSIZE_END, std::max(0, end - left));
    dc.DrawText(shown, left, (size.y - dc.GetCharHeight()) / 2 + 1);
}

}  // namespace kelvane::desktop
