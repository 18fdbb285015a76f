#include "adapters/desktop/page_drawing.h"

#include <wx/brush.h>
#include <wx/font.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

#include "adapters/desktop/look.h"
#include "adapters/desktop/system.h"

namespace kelvane::desktop {

using platform::PageAlignment;

namespace {

// Letters are placed at whole units of the drawing, so the units are finer than the tenths of a
// millimetre that pages are measured in.
constexpr double kUnitsPerTenth = 10;
constexpr double kUnitsPerInch = 254 * kUnitsPerTenth;

class PageDrawing {
public:
    PageDrawing(wxGraphicsContext& target, double scale, double pixel)
        : mTarget(target), mScale(scale), mPixel(pixel) {}

    void Draw(const platform::PageArea& area) {
        const double left = Snap(area.box.left * mScale);
        const double top = Snap(area.box.top * mScale);
        mTarget.SetBrush(wxBrush(ToColour(area.color)));
        mTarget.DrawRectangle(left, top, Snap((area.box.left + area.box.width) * mScale) - left,
                              Snap((area.box.top + area.box.height) * mScale) - top);
    }

    void Draw(const platform::PageLine& line) {
        const double width = std::max(Snap(line.width * mScale), mPixel);
        const auto edge = [&](int tenths) { return Snap(tenths * mScale - width / 2); };
        mTarget.SetBrush(*wxBLACK_BRUSH);
        mTarget.DrawRectangle(edge(line.left), edge(line.top),
                              edge(line.right) - edge(line.left) + width,
                              edge(line.bottom) - edge(line.top) + width);
    }

    void Draw(const platform::PageText& text) {
        const wxString shown = Text(text.text);
        const double unit = mScale / kUnitsPerTenth;
        mTarget.PushState();
        mTarget.Translate(text.box.left * mScale, text.box.top * mScale);
        mTarget.Scale(unit, unit);
        mTarget.SetFont(FontOf(text));
        double needed = 0;
        double height = 0;
        double descent = 0;
        mTarget.GetTextExtent(shown, &needed, &height, &descent);
        const double room = text.box.width * kUnitsPerTenth;
        // A text that this device's letters make wider than it was measured is narrowed to its box.
        const double narrowed = needed > room ? room / needed : 1;
        const double ascent = height - descent;
        const double middle = (text.box.height * kUnitsPerTenth - height) / 2;
        const double baseline = Snap(text.box.top * mScale + (middle + ascent) * unit);
        mTarget.Translate((room - needed * narrowed) * ShareBefore(text.alignment),
                          (baseline - text.box.top * mScale) / unit - ascent);
        mTarget.Scale(narrowed, 1);
        mTarget.DrawText(shown, 0, 0);
        mTarget.PopState();
    }

private:
    // The nearest whole dot.
    double Snap(double place) const {
        return mPixel > 0 ? std::round(place / mPixel) * mPixel : place;
    }

    static double ShareBefore(PageAlignment alignment) {
        if (alignment == PageAlignment::Left) return 0;
        return alignment == PageAlignment::Center ? 0.5 : 1;
    }

    const wxGraphicsFont& FontOf(const platform::PageText& text) {
        wxGraphicsFont& font = mFonts[{text.size, text.bold}];
        if (font.IsNull()) {
            const double points = text.size / 10.0 * kUnitsPerInch / DotsPerInch();
            wxFontInfo info(points);
            info.FaceName(PageFace());
            if (text.bold) info.Bold();
            font = mTarget.CreateFont(wxFont(info), *wxBLACK);
        }
        return font;
    }

    wxGraphicsContext& mTarget;
    double mScale;
    double mPixel;
    std::map<std::pair<int, bool>, wxGraphicsFont> mFonts;
};

}  // namespace

void DrawPage(wxGraphicsContext& target, const platform::Page& page, double scale, double pixel) {
    PageDrawing drawing(target, scale, pixel);
    target.SetPen(wxGraphicsPen());
    for (const platform::PageArea& area : page.areas) drawing.Draw(area);
    for (const platform::PageLine& line : page.lines) drawing.Draw(line);
    for (const platform::PageText& text : page.texts) drawing.Draw(text);
}

}  // namespace kelvane::desktop
