// The entry points of a server: its classes' factories, and registering.
#include "tests/windows/automation/server.h"

#include <algorithm>
#include <deque>

#include "tests/windows/automation/module.h"

namespace kelvane::automation {
namespace {

HMODULE gModule = nullptr;

// One for each class, living as long as the module.
class Factory final : public IClassFactory {
public:
    explicit Factory(const ServedClass& served) : mServed(served) {}

    bool Makes(REFCLSID wanted) const {
        CLSID known;
        return SUCCEEDED(CLSIDFromString(mServed.classId, &known)) && known == wanted;
    }

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
        IDispatch* made = mServed.make();
        const HRESULT code = made->QueryInterface(wanted, object);
        made->Release();
        return code;
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL lock) override {
        lock != FALSE ? ObjectMade() : ObjectGone();
        return S_OK;
    }

private:
    const ServedClass& mServed;
};

std::deque<Factory>& Factories() {
    static std::deque<Factory> factories(ServedClasses().begin(), ServedClasses().end());
    return factories;
}

}  // namespace

std::wstring ModulePath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(gModule, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

}  // namespace kelvane::automation

namespace automation = kelvane::automation;

extern "C" {

BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) automation::gModule = module;
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID wanted, REFIID interfaceId, LPVOID* object) {
    auto& factories = automation::Factories();
    const auto found = std::ranges::find_if(
        factories, [&](const automation::Factory& factory) { return factory.Makes(wanted); });
    if (found != factories.end()) return found->QueryInterface(interfaceId, object);
    *object = nullptr;
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return automation::HasObjects() ? S_FALSE : S_OK;
}
STDAPI DllRegisterServer() {
    return automation::Register();
}
STDAPI DllUnregisterServer() {
    return automation::Unregister();
}

}  // extern "C"
