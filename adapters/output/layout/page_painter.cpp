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

PagePainter::PagePainter(cairo_t* target)
    : mTarget(target), mContext(MakePageContext()), mLayout(pango_layout_new(mContext.get())) {
    cairo_set_line_cap(mTarget, CAIRO_LINE_CAP_SQUARE);
}

const PangoFontDescription* PagePainter::FontFor(const PageText& text) {
    PangoFontPointer& font = mFonts[{text.size, text.bold}];
    if (!font) font = MakePageFont({text.size, text.bold});
    return font.get();
}

void PagePainter::Paint(const platform::Page& page) {
    for (const platform::PageArea& area : page.areas) PaintArea(mTarget, area);
    SetColor(mTarget, 0);
    for (const platform::PageLine& line : page.lines) PaintLine(mTarget, line);
    for (const PageText& text : page.texts) PaintText(text);
}

void PagePainter::PaintText(const PageText& text) {
    const std::string shown = ReadableUtf8(text.text);
    pango_layout_set_font_description(mLayout.get(), FontFor(text));
    pango_layout_set_text(mLayout.get(), shown.data(), static_cast<int>(shown.size()));
    PangoRectangle extents;
    pango_layout_get_extents(mLayout.get(), nullptr, &extents);
    const double needed = static_cast<double>(extents.width) / PANGO_SCALE;
    const double height = static_cast<double>(extents.height) / PANGO_SCALE;
    const double room = PointsOfTenths(text.box.width);
    // The whole text can come out wider than its letters, which were measured one by one.
    const double narrowed = needed > room ? room / needed : 1;

    cairo_save(mTarget);
    cairo_translate(
        mTarget,
        PointsOfTenths(text.box.left) + (room - needed * narrowed) * ShareBefore(text.alignment),
        PointsOfTenths(text.box.top) + (PointsOfTenths(text.box.height) - height) / 2);
    cairo_scale(mTarget, narrowed, 1);
    cairo_move_to(mTarget, 0, 0);
    pango_cairo_show_layout(mTarget, mLayout.get());
    cairo_restore(mTarget);
}

}  // namespace kelvane::output
