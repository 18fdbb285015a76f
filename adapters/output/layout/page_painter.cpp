#include "adapters/output/layout/page_painter.h"

#include "adapters/output/layout/readable_text.h"

namespace kelvane::output {

using platform::PageAlignment;
using platform::PageText;

namespace {

void SetColor(cairo_t* target, std::uint32_t color) {
    const auto part = [color](unsigned shift) { return ((color >> shift) & 0xFFU) / 255.0; };
    cairo_set_source_rgb(target, part(0), part(8), part(16));
}

void PaintArea(cairo_t* target, const platform::PageArea& area) {
    SetColor(target, area.color);
    cairo_rectangle(target, PointsOfTenths(area.box.left), PointsOfTenths(area.box.top),
                    PointsOfTenths(area.box.width), PointsOfTenths(area.box.height));
    cairo_fill(target);
}

void PaintLine(cairo_t* target, const platform::PageLine& line) {
    cairo_set_line_width(target, PointsOfTenths(line.width));
    cairo_move_to(target, PointsOfTenths(line.left), PointsOfTenths(line.top));
    cairo_line_to(target, PointsOfTenths(line.right), PointsOfTenths(line.bottom));
    cairo_stroke(target);
}

double ShareBefore(PageAlignment alignment) {
    if (alignment == PageAlignment::Left) return 0;
    return alignment == PageAlignment::Center ? 0.5 : 1;
}

}  // namespace

PagePainter::PagePainter(cairo_t* target) : mTarget(target), mLetters(SystemLetters()) {
    cairo_set_line_cap(mTarget, CAIRO_LINE_CAP_SQUARE);
}

void PagePainter::Paint(const platform::Page& page) {
    for (const platform::PageArea& area : page.areas) PaintArea(mTarget, area);
    SetColor(mTarget, 0);
    for (const platform::PageLine& line : page.lines) PaintLine(mTarget, line);
    for (const PageText& text : page.texts) PaintText(text);
}

void PagePainter::PaintText(const PageText& text) {
    const PageLetters::Extent extent =
        mLetters->Lay(ReadableUtf8(text.text), {text.size, text.bold});
    const double room = PointsOfTenths(text.box.width);
    // The whole text can come out wider than its letters, which were measured one by one.
    const double narrowed = extent.width > room ? room / extent.width : 1;

    cairo_save(mTarget);
    cairo_translate(
        mTarget,
        PointsOfTenths(text.box.left) +
            (room - extent.width * narrowed) * ShareBefore(text.alignment),
        PointsOfTenths(text.box.top) + (PointsOfTenths(text.box.height) - extent.height) / 2);
    cairo_scale(mTarget, narrowed, 1);
    mLetters->Paint(mTarget);
    cairo_restore(mTarget);
}

}  // namespace kelvane::output
