// What the system calls in Kelvane.dll.

#include "adapters/com/module.h"
#include "host/com_server/class_factory.h"
#include "host/com_server/class_identity.h"
#include "host/com_server/com_session.h"
#include "host/com_server/registration.h"

using kelvane::host::RegistrationScope;

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, void* processEnds) {
    if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(module);
    if (reason == DLL_PROCESS_DETACH && processEnds != nullptr) kelvane::host::AbandonLogin();
    return TRUE;
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (classId != __uuidof(PeriodItem)) return CLASS_E_CLASSNOTAVAILABLE;
    return kelvane::host::ClassFactory::Instance().QueryInterface(id, object);
}

STDAPI DllCanUnloadNow() {
    return kelvane::com::ModuleUse::None() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return kelvane::host::Register(RegistrationScope::Machine);
}

STDAPI DllUnregisterServer() {
    return kelvane::host::Unregister(RegistrationScope::Machine);
}

// "regsvr32 /n /i:user" registers for the present user, without /i:user for the machine.
extern "C" HRESULT WINAPI DllInstall(BOOL install, LPCWSTR commandLine) {
    const bool forUser = commandLine != nullptr && lstrcmpiW(commandLine, L"user") == 0;
    const auto scope = forUser ? RegistrationScope::User : RegistrationScope::Machine;
    return install ? kelvane::host::Register(scope) : kelvane::host::Unregister(scope);
}
