// The system's ruler is Pango, which also paints the pages.

#include "adapters/output/layout/letter_ruler.h"
#include "adapters/output/layout/pango_text.h"

namespace kelvane::output {

namespace {

class PangoRuler : public LetterRuler {
public:
    PangoRuler() : mContext(MakePageContext()), mLayout(pango_layout_new(mContext.get())) {}

    std::int64_t Width(std::string_view text, bool bold) override {
        static_assert(PANGO_SCALE == kUnitsPerPoint);
        const auto font = MakePageFont({kLetterSize, bold});
        pango_layout_set_font_description(mLayout.get(), font.get());
        pango_layout_set_text(mLayout.get(), text.data(), static_cast<int>(text.size()));
        int width = 0;
        pango_layout_get_size(mLayout.get(), &width, nullptr);
        return width;
    }

private:
    PangoContextPointer mContext;
    PangoLayoutPointer mLayout;
};

}  // namespace

std::unique_ptr<LetterRuler> SystemRuler() {
    return std::make_unique<PangoRuler>();
}

}  // namespace kelvane::output
