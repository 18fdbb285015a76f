#include "tests/windows/automation/text.h"

#include <new>

namespace kelvane::automation {

std::wstring ToWide(std::string_view utf8) {
    if (utf8.empty()) return {};
    const int length = static_cast<int>(utf8.size());
    std::wstring wide(
        static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, nullptr, 0)),
        L'\0');
    MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(),
                        static_cast<int>(wide.size()));
    return wide;
}

std::string ToUtf8(std::wstring_view wide) {
    if (wide.empty()) return {};
    const int length = static_cast<int>(wide.size());
    std::string utf8(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length,
                                                                  nullptr, 0, nullptr, nullptr)),
                     '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(), static_cast<int>(utf8.size()),
                        nullptr, nullptr);
    return utf8;
}

BSTR NewBstr(std::string_view utf8) {
    const std::wstring wide = ToWide(utf8);
    BSTR text = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (text == nullptr) throw std::bad_alloc();
    return text;
}

std::string TextOf(BSTR text) {
    return text == nullptr ? std::string() : ToUtf8({text, SysStringLen(text)});
}

}  // namespace kelvane::automation
