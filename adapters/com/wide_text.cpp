#include "adapters/com/wide_text.h"

#include <array>
#include <cstdio>

#include "platform/utf16.h"

namespace kelvane::com {

std::wstring WideText(std::string_view utf8) {
    return platform::ToUtf16<wchar_t>(utf8);
}

std::string NarrowText(std::wstring_view utf16) {
    std::string narrow;
    platform::ReadUtf16(utf16.data(), utf16.size(), narrow);
    return narrow;
}

std::string TextOf(BSTR text) {
    return NarrowText({text == nullptr ? L"" : text, SysStringLen(text)});
}

std::string TextOfCodePage(std::string_view bytes) {
    if (bytes.empty()) return {};
    const int length = static_cast<int>(bytes.size());
    const int units = MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, wide.data(), units);
    return NarrowText(wide);
}

std::string SystemText(HRESULT code) {
    std::array<wchar_t, 512> buffer{};
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                        nullptr, static_cast<DWORD>(code), 0, buffer.data(),
                                        static_cast<DWORD>(buffer.size()), nullptr);
    std::wstring_view text(buffer.data(), length);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L' ')) {
        text.remove_suffix(1);
    }
    if (!text.empty()) return NarrowText(text);
    std::array<char, 16> number{};
    std::snprintf(number.data(), number.size(), "0x%08lX", static_cast<unsigned long>(code));
    return number.data();
}

std::wstring EnvironmentText(const wchar_t* name) {
    std::wstring value;
    DWORD length = GetEnvironmentVariableW(name, nullptr, 0);
    while (length > value.size()) {
        value.resize(length);
        length = GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
    }
    value.resize(length);
    return value;
}

}  // namespace kelvane::com
