#include "tests/windows/automation/server.h"

namespace kelvane::automation {
namespace {

const std::wstring kClasses = L"Software\\Classes\\";

// Wine says so itself, and the file is left by the script that makes the prefix.
bool IsThrowawayPrefix() {
    const HMODULE system = GetModuleHandleW(L"ntdll.dll");
    const bool isWine = system != nullptr && GetProcAddress(system, "wine_get_version") != nullptr;
    return isWine && GetFileAttributesW(L"C:\\kelvane-throwaway-prefix") != INVALID_FILE_ATTRIBUTES;
}

HRESULT Set(const std::wstring& key, const wchar_t* name, const std::wstring& text) {
    const auto size = static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t));
    return HRESULT_FROM_WIN32(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str(), name,
                                              REG_SZ, text.c_str(), size));
}

HRESULT RegisterClass(const ServedClass& served, const std::wstring& module) {
    const std::wstring program = served.programId;
    const std::wstring clsid = L"CLSID\\" + std::wstring(served.classId);
    const std::wstring server = clsid + L"\\InprocServer32";
    for (const HRESULT code :
         {Set(program + L"\\CLSID", nullptr, served.classId), Set(clsid, nullptr, program),
          Set(clsid + L"\\ProgID", nullptr, program), Set(server, nullptr, module),
          Set(server, L"ThreadingModel", L"Apartment")}) {
        if (FAILED(code)) return code;
    }
    return S_OK;
}

}  // namespace

HRESULT Register() {
    if (!IsThrowawayPrefix()) return E_ACCESSDENIED;
    const std::wstring module = ModulePath();
    for (const ServedClass& served : ServedClasses()) {
        const HRESULT code = RegisterClass(served, module);
        if (FAILED(code)) return code;
    }
    return S_OK;
}

HRESULT Unregister() {
    if (!IsThrowawayPrefix()) return E_ACCESSDENIED;
    for (const ServedClass& served : ServedClasses()) {
        for (const std::wstring& key :
             {std::wstring(served.programId), L"CLSID\\" + std::wstring(served.classId)}) {
            RegDeleteTreeW(HKEY_LOCAL_MACHINE, (kClasses + key).c_str());
        }
    }
    return S_OK;
}

}  // namespace kelvane::automation
