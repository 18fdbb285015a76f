// LetterRuler: what the system's fonts make of a text, for measuring where nothing is drawn yet.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

namespace kelvane::output {

class LetterRuler {
public:
    virtual ~LetterRuler() = default;

    // The letters are so large that rounding their widths to whole units does no harm.
    static constexpr int kLetterSize = 1000;  // in tenths of a point
    static constexpr int kUnitsPerPoint = 1024;

    // Width of one line of UTF-8 text in the pages' font, in units, with its letters at
    // kLetterSize.
    virtual std::int64_t Width(std::string_view text, bool bold) = 0;
};

// A ruler in the fonts that this system prints pages with. Throws std::runtime_error when the
// system gives none.
std::unique_ptr<LetterRuler> SystemRuler();

}  // namespace kelvane::output
