// The entry points of the server: its classes' factories, and registering.
#include "tests/windows/ado_server/record_set.h"
#include "tests/windows/ado_server/registration.h"

namespace kelvane::ado_server {
namespace {

HMODULE gModule = nullptr;

template <typename Class>
IDispatch* Make() {
    return new Class;
}

// One for each class, living as long as the module.
class Factory final : public IClassFactory {
public:
    explicit Factory(IDispatch* (*make)()) : mMake(make) {}

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        if (wanted != IID_IUnknown && wanted != IID_IClassFactory) {
            *object = nullptr;
            return E_NOINTERFACE;
        }
        *object = this;
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* outer, REFIID wanted,
                                             void** object) override {
        *object = nullptr;
        if (outer != nullptr) return CLASS_E_NOAGGREGATION;
        IDispatch* made = mMake();
        const HRESULT code = made->QueryInterface(wanted, object);
        made->Release();
        return code;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        lock != FALSE ? ObjectMade() : ObjectGone();
        return S_OK;
    }

private:
    IDispatch* (*mMake)();
};

Factory gFactories[] = {Factory(&Make<Connection>), Factory(&Make<RecordSet>)};

}  // namespace

std::wstring ModulePath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(gModule, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

}  // namespace kelvane::ado_server

namespace server = kelvane::ado_server;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) server::gModule = module;
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID wanted, REFIID interfaceId, LPVOID* object) {
    std::size_t place = 0;
    for (const server::ServedClass& served : server::kServedClasses) {
        CLSID known;
        if (SUCCEEDED(CLSIDFromString(served.classId, &known)) && known == wanted) {
            return server::gFactories[place].QueryInterface(interfaceId, object);
        }
        ++place;
    }
    *object = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return server::HasObjects() ? S_FALSE : S_OK;
}
STDAPI DllRegisterServer() {
    return server::Register();
}
STDAPI DllUnregisterServer() {
    return server::Unregister();
}

}  // extern "C"
