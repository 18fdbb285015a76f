// PangoMeasurer: text widths by the fonts that the pages are painted with. What a character is wide
// is asked for once; only scripts whose letters join are measured as whole texts.
#pragma once

#include <array>
#include <memory>
#include <unordered_map>

#include "adapters/output/text_measurer.h"

namespace kelvane::output {

class PangoMeasurer : public TextMeasurer {
public:
    PangoMeasurer();
    ~PangoMeasurer() override;

    int Width(std::string_view text, const Letters& letters) override;

private:
    class Ruler;
    // Advances of characters at the ruler's letter size, in Pango units.
    struct Advances {
        std::array<int, 128> ascii{};
        std::unordered_map<char32_t, int> others;
    };

    int AdvanceOf(char32_t character, bool bold);

    std::unique_ptr<Ruler> mRuler;
    std::array<Advances, 2> mAdvances;  // plain and bold
};

}  // namespace kelvane::output
