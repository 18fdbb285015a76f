// A line of text as the system shapes it: which glyphs of which fonts, in any script and direction.
#pragma once

#include <windows.h>

#include <usp10.h>

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "adapters/output/layout/gdi_fonts.h"

namespace kelvane::output {

// A font and what the system keeps about it.
class ShapingFont {
public:
    // Throws std::runtime_error.
    explicit ShapingFont(const LOGFONTW& font) : mFont(MakeFont(font)) {}
    ~ShapingFont() { ScriptFreeCache(&mCache); }
    ShapingFont(ShapingFont&& other) noexcept
        : mFont(std::move(other.mFont)), mCache(std::exchange(other.mCache, nullptr)) {}
    ShapingFont& operator=(ShapingFont&&) = delete;

    HFONT Handle() const { return mFont.get(); }
    SCRIPT_CACHE& Cache() { return mCache; }

private:
    FontPointer mFont;
    SCRIPT_CACHE mCache = nullptr;
};

// Characters and glyphs that belong together.
struct ShapedCluster {
    int bytes;
    int glyphs;
};

// Letters of one font and one direction, in the order of the text.
struct ShapedRun {
    std::string text;  // UTF-8
    std::size_t font = 0;
    BYTE level = 0;  // of the bidirectional algorithm; odd: from right to left
    std::vector<WORD> glyphs;
    std::vector<int> advances;     // in dots
    std::vector<GOFFSET> offsets;  // in dots
    std::vector<ShapedCluster> clusters;

    int Width() const;
};

// The runs from left to right. A letter is of the first of `fonts` that has it; what none has is
// shown as the first font shows what it lacks. Throws std::runtime_error.
std::vector<ShapedRun> ShapeLine(HDC context, std::span<ShapingFont> fonts, std::string_view text);

}  // namespace kelvane::output
