#include "adapters/output/layout/gdi_fonts.h"

#include <algorithm>
#include <stdexcept>
#include <string_view>

#include "platform/page.h"
#include "platform/utf16.h"

namespace kelvane::output {

namespace {

// Scripts and signs that fonts for Chinese leave out, rare Chinese characters, and what there is
// where none of these is.
constexpr std::wstring_view kSpareFonts =
    L"Segoe UI, Segoe UI Symbol, Tahoma, Nirmala UI, Leelawadee UI, SimSun-ExtB, DejaVu Sans";

int CALLBACK NoteFound(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

bool IsThere(HDC context, const std::wstring& name) {
    LOGFONTW font = FontNamed(name, false);
    bool found = false;
    EnumFontFamiliesExW(context, &font, NoteFound, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

std::vector<std::wstring> ThoseThere(HDC context, std::wstring_view names) {
    std::vector<std::wstring> there;
    while (!names.empty()) {
        const std::size_t end = std::min(names.find(L", "), names.size());
        const std::wstring name(names.substr(0, end));
        if (IsThere(context, name)) there.push_back(name);
        names.remove_prefix(std::min(end + 2, names.size()));
    }
    return there;
}

}  // namespace

ContextPointer MakeFontContext() {
    ContextPointer context(CreateCompatibleDC(nullptr));
    if (!context) throw std::runtime_error("the system measures no letters");
    return context;
}

std::vector<std::wstring> PageFontNames(HDC context) {
    auto names = ThoseThere(context, platform::ToUtf16<wchar_t>(platform::kPageFonts));
    if (names.empty()) names.emplace_back();
    return names;
}

std::vector<std::wstring> SpareFontNames(HDC context) {
    return ThoseThere(context, kSpareFonts);
}

LOGFONTW FontNamed(const std::wstring& name, bool bold) {
    LOGFONTW font{};
    font.lfHeight = -kFontDots;
    font.lfWeight = bold ? FW_BOLD : FW_NORMAL;
    font.lfCharSet = DEFAULT_CHARSET;
    std::copy_n(name.begin(), std::min<std::size_t>(name.size(), LF_FACESIZE - 1), font.lfFaceName);
    return font;
}

FontPointer MakeFont(const LOGFONTW& font) {
    FontPointer made(CreateFontIndirectW(&font));
    if (!made) throw std::runtime_error("the system has no letters for pages");
    return made;
}

}  // namespace kelvane::output
