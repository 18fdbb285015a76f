// Makes PeriodItem objects for the system.
#pragma once

#include "adapters/com/com_headers.h"

namespace kelvane::host {

// One for the whole module: it is never freed and keeps the module loaded only by its locks and by
// references to it.
class ClassFactory final : public IClassFactory {
public:
    static ClassFactory& Instance();

    STDMETHOD(QueryInterface)(REFIID id, void** object) override;
    STDMETHOD_(ULONG, AddRef)() override;
    STDMETHOD_(ULONG, Release)() override;
    STDMETHOD(CreateInstance)(IUnknown* outer, REFIID id, void** object) override;
    STDMETHOD(LockServer)(BOOL lock) override;
};

}  // namespace kelvane::host
