// The system's ruler is GDI, which needs neither a window nor a printer to know its letters.

#include <windows.h>

#include <algorithm>
#include <array>
#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>

#include "adapters/output/layout/letter_ruler.h"
#include "platform/native_path.h"
#include "platform/page.h"
#include "platform/utf16.h"

namespace kelvane::output {

namespace {

// Height of the letters in dots.
constexpr int kDots = 2000;
constexpr std::int64_t kPoints = LetterRuler::kLetterSize / 10;

struct ContextRelease {
    void operator()(HDC context) const { DeleteDC(context); }
};
struct FontRelease {
    void operator()(HFONT font) const { DeleteObject(font); }
};
using ContextPointer = std::unique_ptr<std::remove_pointer_t<HDC>, ContextRelease>;
using FontPointer = std::unique_ptr<std::remove_pointer_t<HFONT>, FontRelease>;

LOGFONTW FontNamed(std::wstring_view name) {
    LOGFONTW font{};
    font.lfHeight = -kDots;
    font.lfCharSet = DEFAULT_CHARSET;
    name = name.substr(0, LF_FACESIZE - 1);
    std::copy(name.begin(), name.end(), font.lfFaceName);
    return font;
}

int CALLBACK NoteFound(const LOGFONTW*, const TEXTMETRICW*, DWORD, LPARAM found) {
    *reinterpret_cast<bool*>(found) = true;
    return 0;
}

bool IsThere(HDC context, std::wstring_view name) {
    LOGFONTW font = FontNamed(name);
    bool found = false;
    EnumFontFamiliesExW(context, &font, NoteFound, reinterpret_cast<LPARAM>(&found), 0);
    return found;
}

// The first of the pages' fonts that is there; without one the system chooses.
std::wstring PageFont(HDC context) {
    std::wstring rest = platform::ToUtf16<wchar_t>(platform::kPageFonts);
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(L", "), rest.size());
        const std::wstring name = rest.substr(0, end);
        if (IsThere(context, name)) return name;
        rest.erase(0, end + 2);
    }
    return {};
}

class GdiRuler : public LetterRuler {
public:
    GdiRuler() : mContext(CreateCompatibleDC(nullptr)) {
        if (!mContext) throw std::runtime_error("the system measures no letters");
        LOGFONTW font = FontNamed(PageFont(mContext.get()));
        for (const LONG weight : {FW_NORMAL, FW_BOLD}) {
            font.lfWeight = weight;
            FontPointer& made = mFonts[weight == FW_BOLD ? 1 : 0];
            made.reset(CreateFontIndirectW(&font));
            if (!made) throw std::runtime_error("the system has no letters for pages");
        }
    }

    std::int64_t Width(std::string_view text, bool bold) override {
        const std::wstring wide = platform::ToUtf16<wchar_t>(text);
        HGDIOBJ before = SelectObject(mContext.get(), mFonts[bold ? 1 : 0].get());
        SIZE extent{};
        GetTextExtentPoint32W(mContext.get(), wide.data(), static_cast<int>(wide.size()), &extent);
        SelectObject(mContext.get(), before);
        return extent.cx * kPoints * kUnitsPerPoint / kDots;
    }

private:
    ContextPointer mContext;
    std::array<FontPointer, 2> mFonts;  // plain and bold
};

}  // namespace

std::unique_ptr<LetterRuler> SystemRuler() {
    return std::make_unique<GdiRuler>();
}

}  // namespace kelvane::output
