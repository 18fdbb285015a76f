#include "adapters/output/pango_measurer.h"

#include <pango/pangocairo.h>

#include <cstdint>
#include <string>

#include "adapters/output/pango_text.h"
#include "adapters/output/utf8_reader.h"

namespace kelvane::output {

namespace {

// Large letters, so that rounding to Pango units does not add up.
constexpr int kRulerSize = 1000;
constexpr int kNotAsked = -1;

// Letters that stand side by side whatever stands next to them.
bool StandsAlone(char32_t character) {
    struct Range {
        char32_t first;
        char32_t last;
    };
    static constexpr Range kRanges[] = {
        {0x20, 0x7E},     {0xA0, 0x2AF},    {0x391, 0x3C9},   {0x400, 0x45F},     {0x2010, 0x2027},
        {0x2030, 0x205E}, {0x20A0, 0x20BF}, {0x2100, 0x27BF}, {0x3000, 0x9FFF},   {0xF900, 0xFAFF},
        {0xFE30, 0xFE4F}, {0xFF00, 0xFFEF}, {0xFFFD, 0xFFFD}, {0x20000, 0x3FFFF},
    };
    for (const Range& range : kRanges) {
        if (character >= range.first && character <= range.last) return true;
    }
    return false;
}

int ThousandthsOf(std::int64_t units, int size, int atSize) {
    constexpr std::int64_t kThousandthsOfInch = 25'400;
    constexpr std::int64_t kPointsOfInch = 72;
    return static_cast<int>(units * kThousandthsOfInch * size /
                            (kPointsOfInch * PANGO_SCALE * atSize));
}

}  // namespace

// One line of text in large letters.
class PangoMeasurer::Ruler {
public:
    Ruler() : mContext(MakePageContext()), mLayout(pango_layout_new(mContext.get())) {}

    int Units(std::string_view text, bool bold) {
        const auto font = MakePageFont({kRulerSize, bold});
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

PangoMeasurer::PangoMeasurer() : mRuler(std::make_unique<Ruler>()) {
    for (Advances& advances : mAdvances) advances.ascii.fill(kNotAsked);
}

PangoMeasurer::~PangoMeasurer() = default;

int PangoMeasurer::AdvanceOf(char32_t character, bool bold) {
    Advances& advances = mAdvances[bold ? 1 : 0];
    int& known = character < advances.ascii.size()
                     ? advances.ascii[character]
                     : advances.others.try_emplace(character, kNotAsked).first->second;
    if (known == kNotAsked) {
        std::string text(4, '\0');
        text.resize(static_cast<std::size_t>(g_unichar_to_utf8(character, text.data())));
        known = mRuler->Units(text, bold);
    }
    return known;
}

int PangoMeasurer::Width(std::string_view text, const Letters& letters) {
    std::int64_t units = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const Utf8Character next = FirstCharacter(rest);
        if (!StandsAlone(next.value)) {
            return ThousandthsOf(mRuler->Units(ReadableUtf8(text), letters.bold), letters.size,
                                 kRulerSize);
        }
        units += AdvanceOf(next.value, letters.bold);
        rest.remove_prefix(next.length);
    }
    return ThousandthsOf(units, letters.size, kRulerSize);
}

}  // namespace kelvane::output
