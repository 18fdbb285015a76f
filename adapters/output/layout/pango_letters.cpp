// Pango lays out the lines, joins letters and finds a font for each of them.

#include <map>
#include <utility>

#include "adapters/output/layout/page_letters.h"
#include "adapters/output/layout/pango_text.h"

namespace kelvane::output {

namespace {

class PangoLetters : public PageLetters {
public:
    PangoLetters() : mContext(MakePageContext()), mLayout(pango_layout_new(mContext.get())) {}

    Extent Lay(std::string_view text, const Letters& letters) override {
        PangoFontPointer& font = mFonts[{letters.size, letters.bold}];
        if (!font) font = MakePageFont(letters);
        pango_layout_set_font_description(mLayout.get(), font.get());
        pango_layout_set_text(mLayout.get(), text.data(), static_cast<int>(text.size()));
        PangoRectangle extents;
        pango_layout_get_extents(mLayout.get(), nullptr, &extents);
        return {static_cast<double>(extents.width) / PANGO_SCALE,
                static_cast<double>(extents.height) / PANGO_SCALE};
    }

    void Paint(cairo_t* target) override {
        cairo_move_to(target, 0, 0);
        pango_cairo_show_layout(target, mLayout.get());
    }

private:
    PangoContextPointer mContext;
    PangoLayoutPointer mLayout;
    std::map<std::pair<int, bool>, PangoFontPointer> mFonts;
};

}  // namespace

std::unique_ptr<PageLetters> SystemLetters() {
    return std::make_unique<PangoLetters>();
}

}  // namespace kelvane::output
