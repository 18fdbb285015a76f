// PeriodItem as a COM object: dual interface, error objects, late-bound calls whose arguments come
// in any form.
#pragma once

#include <memory>
#include <string>

#include "adapters/com/com_pointer.h"
#include "host/com_server/com_session.h"
#include "kelvane_idl.h"

namespace kelvane::host {

class PeriodItemObject final : public IPeriodItem, public ISupportErrorInfo {
public:
    PeriodItemObject();
    PeriodItemObject(const PeriodItemObject&) = delete;
    PeriodItemObject& operator=(const PeriodItemObject&) = delete;

    STDMETHOD(QueryInterface)(REFIID id, void** object) override;
    STDMETHOD_(ULONG, AddRef)() override;
    STDMETHOD_(ULONG, Release)() override;

    STDMETHOD(GetTypeInfoCount)(UINT* count) override;
    STDMETHOD(GetTypeInfo)(UINT index, LCID locale, ITypeInfo** info) override;
    STDMETHOD(GetIDsOfNames)
    (REFIID reserved, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override;
    STDMETHOD(Invoke)
    (DISPID member, REFIID reserved, LCID locale, WORD kind, DISPPARAMS* parameters,
     VARIANT* result, EXCEPINFO* exception, UINT* wrongArgument) override;

    STDMETHOD(Init)
    (IDispatch** objLogin, IDispatch** objEnv, BSTR AppPath, VARIANT_BOOL* result) override;
    STDMETHOD(Show)() override;
    STDMETHOD(get_Version)(BSTR* version) override;

    STDMETHOD(InterfaceSupportsErrorInfo)(REFIID id) override;

private:
    ~PeriodItemObject();

    void CallInit(com::ComPointer<IDispatch> login, com::ComPointer<IDispatch> environment,
                  const std::string& appPath);
    void CallShow();
    void CallMember(DISPID member, const DISPPARAMS& parameters, VARIANT* result);

    LONG mReferences = 1;
    std::shared_ptr<ComSession> mSession;
    bool mInitialized = false;
};

}  // namespace kelvane::host
