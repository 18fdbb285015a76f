#include "adapters/com/machine_registry.h"

#include <vector>

#include "adapters/com/wide_text.h"

namespace kelvane::com {

namespace {

using Outcome = platform::Registry::Outcome;

platform::Registry::Answer Read(HKEY key, const std::string& name, std::size_t bufferLength) {
    std::vector<char> buffer(bufferLength);
    auto length = static_cast<DWORD>(buffer.size());
    DWORD type = REG_NONE;
    const LONG code = RegQueryValueExA(key, name.c_str(), nullptr, &type,
                                       reinterpret_cast<BYTE*>(buffer.data()), &length);
    const bool isText = type == REG_SZ || type == REG_EXPAND_SZ;
    if (code != ERROR_SUCCESS || !isText) return {Outcome::NoValue, {}};
    // The end need not be stored with the text.
    const std::string_view text(buffer.data(), length);
    return {Outcome::Found, TextOfCodePage(text.substr(0, text.find('\0')))};
}

}  // namespace

platform::Registry::Answer MachineRegistry::ReadMachineText(std::string_view key,
                                                            std::string_view name,
                                                            std::size_t bufferLength) try {
    HKEY opened = nullptr;
    const LONG code =
        RegOpenKeyExA(HKEY_LOCAL_MACHINE, std::string(key).c_str(), 0, KEY_QUERY_VALUE, &opened);
    if (code != ERROR_SUCCESS) return {};
    Answer answer = Read(opened, std::string(name), bufferLength);
    RegCloseKey(opened);
    return answer;
} catch (const std::exception&) {
    return {};
}

}  // namespace kelvane::com
