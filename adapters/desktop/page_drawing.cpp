#include "adapters/desktop/page_drawing.h"

#include <wx/brush.h>
#include <wx/font.h>
#include <wx/pen.h>

#include <algorithm>
#include <map>
#include <memory>
#include <utility>

#include "adapters/desktop/look.h"

namespace kelvane::desktop {

using platform::PageAlignment;

namespace {

// Letters are placed in whole units of the drawing, so those are finer than what pages measure in.
constexpr int kUnitsPerTenth = 10;
constexpr double kUnitsPerInch = 254.0 * kUnitsPerTenth;
// What the toolkit takes for an inch when it makes letters of a size in points.
constexpr double kDotsPerInch = 96;

class PageDrawing {
public:
    PageDrawing(wxGraphicsContext& target, double thinnest)
        : mTarget(target), mThinnest(thinnest) {}

    void Draw(const platform::PageArea& area) {
        mTarget.SetPen(wxGraphicsPen());
        mTarget.SetBrush(wxBrush(ToColour(area.color)));
        mTarget.DrawRectangle(Units(area.box.left), Units(area.box.top), Units(area.box.width),
                              Units(area.box.height));
    }

    void Draw(const platform::PageLine& line) {
        const double width = std::max(Units(line.width), mThinnest);
        mTarget.SetPen(mTarget.CreatePen(
            wxGraphicsPenInfo(*wxBLACK, width, wxPENSTYLE_SOLID).Cap(wxCAP_PROJECTING)));
        mTarget.StrokeLine(Units(line.left), Units(line.top), Units(line.right),
                           Units(line.bottom));
    }

    void Draw(const platform::PageText& text) {
        const wxString shown = Text(text.text);
        mTarget.SetFont(FontOf(text));
        double needed = 0;
        double height = 0;
        mTarget.GetTextExtent(shown, &needed, &height);
        const double room = Units(text.box.width);
        // What this device's letters make wider than was measured is drawn narrower.
        const double narrowed = needed > room ? room / needed : 1;
        mTarget.PushState();
        mTarget.Translate(
            Units(text.box.left) + (room - needed * narrowed) * ShareBefore(text.alignment),
            Units(text.box.top) + (Units(text.box.height) - height) / 2);
        mTarget.Scale(narrowed, 1);
        mTarget.DrawText(shown, 0, 0);
        mTarget.PopState();
    }

private:
    static double Units(int tenths) { return static_cast<double>(tenths) * kUnitsPerTenth; }

    static double ShareBefore(PageAlignment alignment) {
        if (alignment == PageAlignment::Left) return 0;
        return alignment == PageAlignment::Center ? 0.5 : 1;
    }

    const wxGraphicsFont& FontOf(const platform::PageText& text) {
        wxGraphicsFont& font = mFonts[{text.size, text.bold}];
        if (font.IsNull()) {
            const double points = text.size / 10.0 * kUnitsPerInch / kDotsPerInch;
            wxFontInfo info(points);
            info.FaceName(wxString::FromUTF8(platform::kPageFonts));
            if (text.bold) info.Bold();
            font = mTarget.CreateFont(wxFont(info), *wxBLACK);
        }
        return font;
    }

    wxGraphicsContext& mTarget;
    double mThinnest;
    std::map<std::pair<int, bool>, wxGraphicsFont> mFonts;
};

}  // namespace

void DrawPage(wxGraphicsContext& target, const platform::Page& page, double scale, double pixel) {
    target.PushState();
    target.Scale(scale / kUnitsPerTenth, scale / kUnitsPerTenth);
    PageDrawing drawing(target, pixel / scale * kUnitsPerTenth);
    if (pixel > 0) target.SetAntialiasMode(wxANTIALIAS_NONE);
    for (const platform::PageArea& area : page.areas) drawing.Draw(area);
    for (const platform::PageLine& line : page.lines) drawing.Draw(line);
    target.SetAntialiasMode(wxANTIALIAS_DEFAULT);
    for (const platform::PageText& text : page.texts) drawing.Draw(text);
    target.PopState();
}

}  // namespace kelvane::desktop
