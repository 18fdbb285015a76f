// PagePainter: paints pages with cairo, as real text.
#pragma once

#include <cairo.h>

#include <memory>

#include "adapters/output/layout/page_letters.h"
#include "platform/page.h"

namespace kelvane::output {

class PagePainter {
public:
    // `target`, which outlives the painter, measures points from the page's left upper corner.
    // Throws std::runtime_error when the system has no letters.
    explicit PagePainter(cairo_t* target);

    void Paint(const platform::Page& page);

private:
    void PaintText(const platform::PageText& text);

    cairo_t* mTarget;
    std::unique_ptr<PageLetters> mLetters;
};

// Points in so many tenths of a millimetre.
constexpr double PointsOfTenths(int tenths) {
    return tenths * 72.0 / 254.0;
}

}  // namespace kelvane::output
