// An automation object as a test wants it: its members are functions of the test's, and it answers
// as the different hosts' objects do.
#pragma once

#include <cwctype>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "adapters/com/com_pointer.h"
#include "adapters/com/variant.h"
#include "adapters/com/wide_text.h"

namespace kelvane::windows_test {

using com::Variant;

// Thrown by a member: the call fails with this report.
struct Refusal {
    HRESULT code;
    std::string description;
};

class FakeObject : public IDispatchEx {
public:
    using Arguments = std::vector<Variant>;
    using Function = std::function<Variant(const Arguments&)>;

    // A member that can be called in the ways of `kinds` (DISPATCH_…) and in no other.
    void Add(const std::string& name, WORD kinds, Function function) {
        mMembers.push_back({com::WideText(name), kinds, std::move(function)});
    }
    void AddProperty(const std::string& name, Variant value) {
        Add(name, DISPATCH_PROPERTYGET, [value](const Arguments&) { return value; });
    }

    // It knows its members by IDispatchEx alone, whatever their letter case.
    bool extendedOnly = false;
    // Every call, as "kind name".
    std::vector<std::string> calls;

    com::ComPointer<IDispatch> Pointer() { return com::ComPointer<IDispatch>::Share(this); }
    ULONG References() const { return mReferences; }

    STDMETHOD(QueryInterface)(REFIID id, void** object) override {
        const bool known = id == IID_IUnknown || id == IID_IDispatch ||
                           (id == __uuidof(IDispatchEx) && extendedOnly);
        *object = known ? this : nullptr;
        if (known) AddRef();
        return known ? S_OK : E_NOINTERFACE;
    }
    STDMETHOD_(ULONG, AddRef)() override { return ++mReferences; }
    STDMETHOD_(ULONG, Release)() override { return --mReferences; }

    STDMETHOD(GetTypeInfoCount)(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHOD(GetTypeInfo)(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHOD(GetIDsOfNames)(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        if (extendedOnly) return E_NOTIMPL;
        return Find(names[0], false, *ids);
    }
    STDMETHOD(Invoke)
    (DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
     EXCEPINFO* exception, UINT*) override {
        return extendedOnly ? E_NOTIMPL : Run(id, kind, *parameters, result, exception);
    }
    STDMETHOD(GetDispID)(BSTR name, DWORD flags, DISPID* id) override {
        return Find(name, (flags & fdexNameCaseInsensitive) != 0, *id);
    }
    STDMETHOD(InvokeEx)
    (DISPID id, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
     IServiceProvider*) override {
        return Run(id, kind, *parameters, result, exception);
    }
    STDMETHOD(DeleteMemberByName)(BSTR, DWORD) override { return E_NOTIMPL; }
    STDMETHOD(DeleteMemberByDispID)(DISPID) override { return E_NOTIMPL; }
    STDMETHOD(GetMemberProperties)(DISPID, DWORD, DWORD*) override { return E_NOTIMPL; }
    STDMETHOD(GetMemberName)(DISPID, BSTR*) override { return E_NOTIMPL; }
    STDMETHOD(GetNextDispID)(DWORD, DISPID, DISPID*) override { return E_NOTIMPL; }
    STDMETHOD(GetNameSpaceParent)(IUnknown**) override { return E_NOTIMPL; }

private:
    struct Member {
        std::wstring name;
        WORD kinds;
        Function function;
    };

    HRESULT Find(const wchar_t* name, bool anyCase, DISPID& id) const {
        const auto equal = [&](const std::wstring& known) {
            return anyCase ? _wcsicmp(known.c_str(), name) == 0 : known == name;
        };
        for (std::size_t i = 0; i < mMembers.size(); ++i) {
            if (!equal(mMembers[i].name)) continue;
            id = static_cast<DISPID>(i) + 1;
            return S_OK;
        }
        id = DISPID_UNKNOWN;
        return DISP_E_UNKNOWNNAME;
    }

    HRESULT Run(DISPID id, WORD kind, const DISPPARAMS& parameters, VARIANT* result,
                EXCEPINFO* exception) {
        const Member& member = mMembers.at(static_cast<std::size_t>(id) - 1);
        calls.push_back(std::to_string(kind) + " " + com::NarrowText(member.name));
        // As strict objects do: one kind at a time.
        if ((kind & ~member.kinds) != 0) return DISP_E_MEMBERNOTFOUND;
        Arguments arguments;
        for (UINT i = parameters.cArgs; i > 0; --i) {
            arguments.emplace_back(parameters.rgvarg[i - 1]);
        }
        try {
            const Variant answer = member.function(arguments);
            if (result != nullptr) VariantCopy(result, const_cast<VARIANT*>(&answer.Get()));
            return S_OK;
        } catch (const Refusal& refusal) {
            exception->scode = refusal.code;
            exception->bstrDescription = SysAllocString(com::WideText(refusal.description).c_str());
            return DISP_E_EXCEPTION;
        }
    }

    ULONG mReferences = 1;
    std::vector<Member> mMembers;
};

}  // namespace kelvane::windows_test
