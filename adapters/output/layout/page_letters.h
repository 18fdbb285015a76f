// PageLetters: lines of text as the system's fonts draw them with cairo. What a page looks like is
// one program text for every system; only its letters are the system's.
#pragma once

#include <cairo.h>

#include <memory>
#include <string_view>

#include "adapters/output/layout/text_measurer.h"

namespace kelvane::output {

class PageLetters {
public:
    virtual ~PageLetters() = default;

    // In points.
    struct Extent {
        double width = 0;
        double height = 0;
    };

    // Lays out one line of UTF-8 text, which Paint() then paints. Throws std::runtime_error.
    virtual Extent Lay(std::string_view text, const Letters& letters) = 0;

    // Paints that line with its left upper corner at the origin of `target`, which counts points.
    virtual void Paint(cairo_t* target) = 0;
};

// Letters in the fonts that SystemRuler() measures. Throws std::runtime_error when the system gives
// none.
std::unique_ptr<PageLetters> SystemLetters();

}  // namespace kelvane::output
