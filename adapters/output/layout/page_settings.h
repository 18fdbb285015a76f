// What the operator sets for printed pages: paper, margins, letter sizes, and how the table stands
// on them. Lengths are tenths of a millimetre, letter sizes tenths of a point.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kelvane::output {

struct Paper {
    std::string_view name;
    int width;  // upright
    int height;
};

inline constexpr std::array kPapers{
    Paper{"A4", 2100, 2970}, Paper{"A3", 2970, 4200},     Paper{"A5", 1480, 2100},
    Paper{"B5", 1760, 2500}, Paper{"Letter", 2159, 2794},
};

inline constexpr int kMaxMargin = 1000;
inline constexpr int kMinLetters = 50;
inline constexpr int kMaxLetters = 720;

struct PageSettings {
    std::string paper = "A4";
    bool landscape = false;
    int marginLeft = 150;
    int marginTop = 150;
    int marginRight = 150;
    int marginBottom = 150;
    int titleSize = 200;
    int headSize = 90;  // column titles
    int bodySize = 90;  // rows, header and footer items
    bool repeatHead = true;
    bool fitWidth = true;

    friend bool operator==(const PageSettings&, const PageSettings&) = default;
};

// The page's whole size, and what its margins leave.
int PageWidth(const PageSettings& settings);
int PageHeight(const PageSettings& settings);
int PrintableWidth(const PageSettings& settings);
int PrintableHeight(const PageSettings& settings);

// Whether the paper is known, all lengths are within their limits and the margins leave room for a
// table.
bool IsUsable(const PageSettings& settings);

// Whether a margin, a letter size is within its limits.
bool IsMargin(int tenths);
bool IsLetterSize(int tenths);

}  // namespace kelvane::output
