#include "adapters/desktop/look.h"

#include <wx/fontenum.h>
#include <wx/settings.h>
#include <wx/tooltip.h>

#include <array>
#include <cmath>

#include "adapters/desktop/system.h"

namespace kelvane::desktop {

namespace {

double PixelsPerTwip(const wxWindow& window) {
    return TextScale(&window) / kTwipsPerPixel;
}

wxString FindFace() {
    static constexpr std::array kFaces{"Microsoft YaHei UI", "Noto Sans CJK SC",
                                       "Source Han Sans SC", "WenQuanYi Micro Hei"};
    for (const char* face : kFaces) {
        if (wxFontEnumerator::IsValidFacename(face)) return face;
    }
    return wxSystemSettings::GetFont(wxSYS_DEFAULT_GUI_FONT).GetFaceName();
}

}  // namespace

wxString Text(const std::string& utf8) {
    return wxString::FromUTF8(utf8);
}

std::string Utf8(const wxString& text) {
    return text.utf8_string();
}

wxColour ToColour(controls::Color color) {
    return wxColour(static_cast<unsigned long>(color));
}

wxColour Mixed(const wxColour& colour, const wxColour& other, int percent) {
    const auto mix = [percent](int own, int added) {
        return static_cast<unsigned char>((own * (100 - percent) + added * percent) / 100);
    };
    return {mix(colour.Red(), other.Red()), mix(colour.Green(), other.Green()),
            mix(colour.Blue(), other.Blue())};
}

int ToPixels(const wxWindow& window, int twips) {
    return static_cast<int>(std::lround(twips * PixelsPerTwip(window)));
}

int ToTwips(const wxWindow& window, int pixels) {
    return static_cast<int>(std::lround(pixels / PixelsPerTwip(window)));
}

wxRect ToPixels(const wxWindow& window, const controls::Control& control) {
    const wxPoint from(ToPixels(window, control.Left()), ToPixels(window, control.Top()));
    const wxPoint to(ToPixels(window, control.Left() + control.Width()),
                     ToPixels(window, control.Top() + control.Height()));
    return {from.x, from.y, to.x - from.x, to.y - from.y};
}

int Scaled(const wxWindow& window, int pixels) {
    return ToPixels(window, pixels * kTwipsPerPixel);
}

void DrawFocus(wxDC& dc, wxRect place) {
    dc.SetPen(wxPen(look::kCurrent));
    dc.SetBrush(*wxTRANSPARENT_BRUSH);
    for (int line = 0; line < 2; ++line) {
        dc.DrawRectangle(place);
        place.Deflate(1);
    }
}

void ShowTip(wxWindow& window, const std::string& tip) {
    if (tip.empty()) {
        window.UnsetToolTip();
    } else {
        window.SetToolTip(Text(tip));
    }
}

wxFont UiFont(int points, bool bold) {
    static const wxString face = FindFace();
    wxFontInfo info(points);
    info.FaceName(face);
    if (bold) info.Bold();
    return wxFont(info);
}

}  // namespace kelvane::desktop
