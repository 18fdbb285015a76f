#include "adapters/output/layout/pango_text.h"

#include "platform/page.h"

namespace kelvane::output {

PangoContextPointer MakePageContext() {
    PangoContextPointer context(pango_font_map_create_context(pango_cairo_font_map_get_default()));
    pango_cairo_context_set_resolution(context.get(), 72);
    pango_context_set_round_glyph_positions(context.get(), FALSE);
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context.get(), options);
    cairo_font_options_destroy(options);
    pango_context_set_language(context.get(), pango_language_from_string("zh-cn"));
    return context;
}

PangoFontPointer MakePageFont(const Letters& letters) {
    PangoFontPointer font(pango_font_description_new());
    pango_font_description_set_family_static(font.get(), platform::kPageFonts);
    pango_font_description_set_size(font.get(), letters.size * PANGO_SCALE / 10);
    pango_font_description_set_weight(font.get(),
                                      letters.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    return font;
}

}  // namespace kelvane::output
