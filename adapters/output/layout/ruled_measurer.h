// RuledMeasurer: text widths by a ruler. What a character is wide is asked for once; only scripts
// whose letters join are measured as whole texts.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <unordered_map>
#include <utility>

#include "adapters/output/layout/letter_ruler.h"
#include "adapters/output/layout/text_measurer.h"
#include "platform/utf8.h"

namespace kelvane::output {

class RuledMeasurer : public TextMeasurer {
public:
    using RulerMaker = std::function<std::unique_ptr<LetterRuler>()>;

    // The ruler is made when something is measured first.
    explicit RuledMeasurer(RulerMaker makeRuler = SystemRuler);

    // Throws what making the ruler throws.
    int Width(std::string_view text, const Letters& letters) override;

private:
    // Advances of characters at the ruler's letter size, in its units.
    struct Advances {
        std::array<std::int64_t, 128> ascii{};
        std::unordered_map<char32_t, std::int64_t> others;
    };

    LetterRuler& Ruler();
    std::int64_t AdvanceOf(const platform::Utf8Character& character, std::string_view bytes,
                           bool bold);

    RulerMaker mMakeRuler;
    std::unique_ptr<LetterRuler> mRuler;
    std::array<Advances, 2> mAdvances;  // plain and bold
};

}  // namespace kelvane::output
