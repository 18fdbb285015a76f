#include "host/com_server/class_factory.h"

#include "adapters/com/error_report.h"
#include "adapters/com/module.h"
#include "host/com_server/period_item_object.h"

namespace kelvane::host {

using com::ModuleUse;

ClassFactory& ClassFactory::Instance() {
    static ClassFactory factory;
    return factory;
}

STDMETHODIMP ClassFactory::QueryInterface(REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    const bool known = id == IID_IUnknown || id == IID_IClassFactory;
    *object = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (!known) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() {
    ModuleUse::Add();
    return 2;
}

STDMETHODIMP_(ULONG) ClassFactory::Release() {
    ModuleUse::Remove();
    return 1;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID id, void** object) {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (outer != nullptr) return CLASS_E_NOAGGREGATION;
    try {
        const auto item = com::ComPointer<PeriodItemObject>::Adopt(new PeriodItemObject);
        return item->QueryInterface(id, object);
    } catch (...) {
        return com::ReportOfCurrentException().code;
    }
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
    if (lock) {
        ModuleUse::Add();
    } else {
        ModuleUse::Remove();
    }
    return S_OK;
}

}  // namespace kelvane::host
