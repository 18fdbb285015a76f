// With the system's own conversion. Where a system was set up without it, code page 936 stands in,
// which has the characters of two bytes alone; the others are then refused.
#include <windows.h>

#include "adapters/tables/gb18030.h"
#include "platform/utf16.h"

namespace kelvane::tables {

bool AppendGb18030(std::string_view text, std::string& utf8) {
    constexpr UINT kGb18030 = 54936;
    constexpr UINT kPairsAlone = 936;
    if (text.empty()) return true;
    const UINT page = IsValidCodePage(kGb18030) != 0 ? kGb18030 : kPairsAlone;
    const int length = static_cast<int>(text.size());
    // No text has more units than bytes.
    std::wstring wide(text.size(), L'\0');
    const int units =
        MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, text.data(), length, wide.data(), length);
    if (units <= 0) return false;
    std::string converted;
    platform::ReadUtf16(wide.data(), static_cast<std::size_t>(units), converted);
    utf8 += converted;
    return true;
}

}  // namespace kelvane::tables
