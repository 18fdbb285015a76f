#include "adapters/com/module.h"

#include <stdexcept>
#include <string>

#include "adapters/com/wide_text.h"

// The linker's name for the start of the module.
// NOLINTNEXTLINE(bugprone-reserved-identifier)
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace kelvane::com {

HINSTANCE ModuleHandle() {
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

std::filesystem::path ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(ModuleHandle(), path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) throw std::runtime_error(SystemText(HRESULT_FROM_WIN32(GetLastError())));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

HRESULT LoadTypeInfo(REFGUID id, ComPointer<ITypeInfo>& info) {
    ComPointer<ITypeLib> library;
    const HRESULT code = LoadTypeLibEx(ModulePath().c_str(), REGKIND_NONE, library.Receive());
    if (FAILED(code)) return code;
    return library->GetTypeInfoOfGuid(id, info.Receive());
}

}  // namespace kelvane::com
