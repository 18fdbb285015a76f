#include <windows.h>

#include <cstdlib>
#include <cwchar>
#include <string>

#include "host/surroundings/environment.h"

namespace kelvane::host {

// The variable lies in the C library twice, and once in the process.
database::SharedSecret TakeVariable(const char* name) {
    char* value = std::getenv(name);
    if (value == nullptr) return {};
    auto taken = std::make_shared<const database::Secret>(value);
    const std::wstring wideName(name, name + std::char_traits<char>::length(name));
    if (wchar_t* wide = _wgetenv(wideName.c_str()); wide != nullptr) {
        const std::size_t length = std::wcslen(wide);
        SetEnvironmentVariableW(wideName.c_str(), std::wstring(length, L'*').c_str());
        database::WipeBytes(wide, length * sizeof(wchar_t));
    }
    database::WipeBytes(value, taken->Text().size());
    _putenv_s(name, "");
    SetEnvironmentVariableW(wideName.c_str(), nullptr);
    return taken;
}

void KeepMemoryPrivate() {}

}  // namespace kelvane::host
