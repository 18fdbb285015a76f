// The system's ruler is GDI, which needs neither a window nor a printer to know its letters.

#include <array>
#include <memory>
#include <string>

#include "adapters/output/layout/gdi_fonts.h"
#include "adapters/output/layout/letter_ruler.h"
#include "platform/utf16.h"

namespace kelvane::output {

namespace {

constexpr std::int64_t kPoints = LetterRuler::kLetterSize / 10;

class GdiRuler : public LetterRuler {
public:
    GdiRuler() : mContext(MakeFontContext()) {
        const std::wstring name = PageFontNames(mContext.get()).front();
        for (const bool bold : {false, true})
            mFonts[bold ? 1 : 0] = MakeFont(FontNamed(name, bold));
    }

    std::int64_t Width(std::string_view text, bool bold) override {
        const std::wstring wide = platform::ToUtf16<wchar_t>(text);
        HGDIOBJ before = SelectObject(mContext.get(), mFonts[bold ? 1 : 0].get());
        SIZE extent{};
        GetTextExtentPoint32W(mContext.get(), wide.data(), static_cast<int>(wide.size()), &extent);
        SelectObject(mContext.get(), before);
        return extent.cx * kPoints * kUnitsPerPoint / kFontDots;
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
