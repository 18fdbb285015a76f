// A printed page as a list of what stands on it. Who shows or prints pages asks for them one by one
// and paints them; what a page holds is decided elsewhere.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelvane::platform {

// The fonts that page texts were measured with, the first that is there.
#ifdef _WIN32
inline constexpr const char* kPageFonts = "Microsoft YaHei, SimSun, Noto Sans CJK SC";
#else
inline constexpr const char* kPageFonts = "Noto Sans CJK SC, Noto Sans, sans-serif";
#endif

// Measures are tenths of a millimetre from the page's left upper corner.
struct PageBox {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const PageBox&, const PageBox&) = default;
};

enum class PageAlignment { Left, Center, Right };

// One line of text, in the vertical middle of its box. It was measured to fit the box.
struct PageText {
    std::string text;
    PageBox box;
    PageAlignment alignment = PageAlignment::Left;
    int size = 90;  // of the letters, in tenths of a point
    bool bold = false;

    friend bool operator==(const PageText&, const PageText&) = default;
};

// A black line, horizontal or vertical.
struct PageLine {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    int width = 2;

    friend bool operator==(const PageLine&, const PageLine&) = default;
};

struct PageArea {
    PageBox box;
    std::uint32_t color = 0;  // 0xBBGGRR

    friend bool operator==(const PageArea&, const PageArea&) = default;
};

// Painted in this order: areas, lines, texts.
struct Page {
    std::vector<PageArea> areas;
    std::vector<PageLine> lines;
    std::vector<PageText> texts;
};

class PageSource {
public:
    virtual ~PageSource() = default;
    virtual std::string Title() const = 0;
    // All pages have one size.
    virtual int PageWidth() const = 0;
    virtual int PageHeight() const = 0;
    // At least 1.
    virtual int PageCount() const = 0;
    // The page `number`, from 1, made anew for each call. Throws std::out_of_range.
    virtual Page MakePage(int number) const = 0;
};

}  // namespace kelvane::platform
