// PagePainter: paints pages with cairo and Pango, as real text.
#pragma once

#include <cairo.h>

#include <map>
#include <string>
#include <utility>

#include "adapters/output/layout/pango_text.h"
#include "platform/page.h"

namespace kelvane::output {

class PagePainter {
public:
    // `target`, which outlives the painter, measures points from the page's left upper corner.
    explicit PagePainter(cairo_t* target);

    void Paint(const platform::Page& page);

private:
    void PaintText(const platform::PageText& text);
    const PangoFontDescription* FontFor(const platform::PageText& text);

    cairo_t* mTarget;
    PangoContextPointer mContext;
    PangoLayoutPointer mLayout;
    std::map<std::pair<int, bool>, PangoFontPointer> mFonts;
};

// Points in so many tenths of a millimetre.
constexpr double PointsOfTenths(int tenths) {
    return tenths * 72.0 / 254.0;
}

}  // namespace kelvane::output
