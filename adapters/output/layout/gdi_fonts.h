// The pages' fonts as GDI has them, for measuring and for painting.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <type_traits>
#include <vector>

namespace kelvane::output {

struct ContextRelease {
    void operator()(HDC context) const { DeleteDC(context); }
};
struct FontRelease {
    void operator()(HFONT font) const { DeleteObject(font); }
};
using ContextPointer = std::unique_ptr<std::remove_pointer_t<HDC>, ContextRelease>;
using FontPointer = std::unique_ptr<std::remove_pointer_t<HFONT>, FontRelease>;

// Height of the letters, in dots.
inline constexpr int kFontDots = 2000;

// A context to measure in, which needs neither a window nor a printer. Throws std::runtime_error.
ContextPointer MakeFontContext();

// Those of the pages' fonts that are there, the first one first. Without one the system chooses:
// then it is one empty name.
std::vector<std::wstring> PageFontNames(HDC context);

// Fonts for letters that the pages' fonts do not have: those of them that are there.
std::vector<std::wstring> SpareFontNames(HDC context);

LOGFONTW FontNamed(const std::wstring& name, bool bold);

// Throws std::runtime_error.
FontPointer MakeFont(const LOGFONTW& font);

}  // namespace kelvane::output
