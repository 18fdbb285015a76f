#include "host/com_server/registration.h"

#include <array>
#include <filesystem>
#include <string>
#include <vector>

#include "adapters/com/error_report.h"
#include "adapters/com/module.h"
#include "host/com_server/class_identity.h"

namespace kelvane::host {

namespace {

constexpr const wchar_t* kClasses = L"Software\\Classes\\";

constexpr const wchar_t* kVersion = L"1.0";
constexpr bool kIsWide = sizeof(void*) == 8;
constexpr const wchar_t* kPlatform = kIsWide ? L"win64" : L"win32";
constexpr const wchar_t* kOtherPlatform = kIsWide ? L"win32" : L"win64";
// The system's marshaller for interfaces that a type library describes.
constexpr const wchar_t* kAutomationMarshaller = L"{00020424-0000-0000-C000-000000000046}";

struct Entry {
    std::wstring key;  // below the classes
    const wchar_t* name;
    std::wstring value;
};

std::wstring TextOf(REFGUID id) {
    std::array<wchar_t, 40> text{};
    StringFromGUID2(id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

std::wstring ClassKey() {
    return L"CLSID\\" + TextOf(__uuidof(PeriodItem));
}

std::wstring InterfaceKey() {
    return L"Interface\\" + TextOf(__uuidof(IPeriodItem));
}

std::wstring LibraryKey() {
    return L"TypeLib\\" + TextOf(kLibraryId);
}

std::wstring PlatformKey(const wchar_t* platform) {
    return LibraryKey() + L"\\" + kVersion + L"\\0\\" + platform;
}

std::vector<Entry> Entries(const std::filesystem::path& module) {
    const std::wstring library = LibraryKey() + L"\\" + kVersion;
    return {
        {kProgId, nullptr, kProgId},
        {std::wstring(kProgId) + L"\\CLSID", nullptr, TextOf(__uuidof(PeriodItem))},
        {ClassKey(), nullptr, kProgId},
        {ClassKey() + L"\\InprocServer32", nullptr, module},
        {ClassKey() + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {ClassKey() + L"\\ProgID", nullptr, kProgId},
        {ClassKey() + L"\\TypeLib", nullptr, TextOf(kLibraryId)},
        {ClassKey() + L"\\Version", nullptr, kVersion},
        {ClassKey() + L"\\Programmable", nullptr, L""},
        {InterfaceKey(), nullptr, L"IPeriodItem"},
        {InterfaceKey() + L"\\ProxyStubClsid32", nullptr, kAutomationMarshaller},
        {InterfaceKey() + L"\\TypeLib", nullptr, TextOf(kLibraryId)},
        {InterfaceKey() + L"\\TypeLib", L"Version", kVersion},
        {library, nullptr, L"Kelvane opening balances 1.0"},
        {PlatformKey(kPlatform), nullptr, module},
        {library + L"\\FLAGS", nullptr, L"0"},
        {library + L"\\HELPDIR", nullptr, module.parent_path()},
    };
}

HKEY Branch(RegistrationScope scope) {
    return scope == RegistrationScope::Machine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
}

bool Exists(HKEY branch, const std::wstring& key) {
    HKEY found = nullptr;
    const LONG code = RegOpenKeyExW(branch, (kClasses + key).c_str(), 0, KEY_QUERY_VALUE, &found);
    if (code == ERROR_SUCCESS) RegCloseKey(found);
    return code == ERROR_SUCCESS;
}

// What unregistering removes. The 32-bit and the 64-bit component share the name and the type
// library, which stay as long as the other one is registered; classes and interfaces are each one's
// own.
std::vector<std::wstring> KeysToRemove(HKEY branch) {
    std::vector<std::wstring> keys{ClassKey(), InterfaceKey(), PlatformKey(kPlatform)};
    if (!Exists(branch, PlatformKey(kOtherPlatform))) {
        keys.insert(keys.end(), {std::wstring(kProgId), LibraryKey()});
    }
    return keys;
}

HRESULT Write(HKEY branch, const Entry& entry) {
    HKEY key = nullptr;
    const std::wstring path = kClasses + entry.key;
    LONG code =
        RegCreateKeyExW(branch, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE, nullptr, &key, nullptr);
    if (code != ERROR_SUCCESS) return HRESULT_FROM_WIN32(code);
    code = RegSetValueExW(key, entry.name, 0, REG_SZ,
                          reinterpret_cast<const BYTE*>(entry.value.c_str()),
                          static_cast<DWORD>((entry.value.size() + 1) * sizeof(wchar_t)));
    RegCloseKey(key);
    return HRESULT_FROM_WIN32(code);
}

}  // namespace

HRESULT Register(RegistrationScope scope) noexcept try {
    for (const Entry& entry : Entries(com::ModulePath())) {
        const HRESULT code = Write(Branch(scope), entry);
        if (FAILED(code)) return code;
    }
    return S_OK;
} catch (...) {
    return com::ReportOfCurrentException().code;
}

HRESULT Unregister(RegistrationScope scope) noexcept try {
    const HKEY branch = Branch(scope);
    for (const std::wstring& key : KeysToRemove(branch)) {
        const LONG code = RegDeleteTreeW(branch, (kClasses + key).c_str());
        if (code != ERROR_SUCCESS && code != ERROR_FILE_NOT_FOUND) return HRESULT_FROM_WIN32(code);
    }
    return S_OK;
} catch (...) {
    return com::ReportOfCurrentException().code;
}

}  // namespace kelvane::host
