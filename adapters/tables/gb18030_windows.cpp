// With the system's own conversion.
#include <windows.h>

#include "adapters/tables/gb18030.h"
#include "platform/utf16.h"

namespace kelvane::tables {

bool AppendGb18030(std::string_view text, std::string& utf8) {
    constexpr UINT kGb18030 = 54936;
    if (text.empty()) return true;
    const int length = static_cast<int>(text.size());
    // No text has more units than bytes.
    std::wstring wide(text.size(), L'\0');
    const int units = MultiByteToWideChar(kGb18030, MB_ERR_INVALID_CHARS, text.data(), length,
                                          wide.data(), length);
    if (units <= 0) return false;
    std::string converted;
    platform::ReadUtf16(wide.data(), static_cast<std::size_t>(units), converted);
    utf8 += converted;
    return true;
}

}  // namespace kelvane::tables
