// IDispatch from a table of members: names in any letter case, exceptions as EXCEPINFO. The objects
// of the server differ in their tables alone.
#pragma once

#include <cwchar>
#include <exception>
#include <span>
#include <string>

#include "tests/windows/automation/automation_error.h"
#include "tests/windows/automation/module.h"
#include "tests/windows/automation/variant.h"

namespace kelvane::automation {

// The arguments of a call in their written order; one that was left out counts as absent.
class Arguments {
public:
    explicit Arguments(const DISPPARAMS& parameters) : mParameters(parameters) {}

    std::size_t Count() const { return mParameters.cArgs; }
    // Null when absent. A reference to a variant is followed.
    const VARIANT* At(std::size_t index) const;

    std::string Text(std::size_t index) const;
    long Number(std::size_t index, long absent) const;
    // Null when the argument is no object.
    IDispatch* Object(std::size_t index) const;
    // Writes an argument that was handed over by reference; any other is left alone.
    void Store(std::size_t index, long value) const;

private:
    const DISPPARAMS& mParameters;
};

template <typename Self>
struct Member {
    const wchar_t* name;
    // How it may be called: DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT.
    WORD access;
    Variant (Self::*run)(const Arguments& arguments);
    // A property that gives a collection: arguments are for the collection's default member.
    bool givesCollection = false;
};

// What a failed call leaves for its caller.
HRESULT FillException(const std::exception& error, const wchar_t* source, EXCEPINFO* exception);

// Calls the default member of an object that a property returned, with the property's arguments:
// Fields("name") means Fields.Item("name").
Variant CallDefault(Variant object, DISPPARAMS& parameters);

// Self gives kSource, its name in errors; kDefault, the name of its default member or null; and
// Members(). Self is made with one reference, by its maker.
template <typename Self>
class LateBound : public IDispatch {
public:
    LateBound() { ObjectMade(); }
    virtual ~LateBound() { ObjectGone(); }
    LateBound(const LateBound&) = delete;
    LateBound& operator=(const LateBound&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID wanted, void** object) override {
        if (object == nullptr) return E_POINTER;
        *object = nullptr;
        // An object also answers to its own class, for the other objects of this server.
        if (wanted == Self::kPrivateInterface) {
            *object = static_cast<Self*>(this);
        } else if (wanted == IID_IUnknown || wanted == IID_IDispatch) {
            *object = static_cast<IDispatch*>(this);
        } else {
            return E_NOINTERFACE;
        }
        AddRef();
        return S_OK;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ++mReferences; }
    ULONG STDMETHODCALLTYPE Release() override {
        const ULONG left = --mReferences;
        if (left == 0) delete static_cast<Self*>(this);
        return left;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
        if (count != nullptr) *count = 0;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID,
                                            DISPID* ids) override {
        for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
        if (count == 0) return S_OK;
        ids[0] = IdOf(names[0]);
        return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT*) override {
        if (id == DISPID_VALUE && Self::kDefault != nullptr) id = IdOf(Self::kDefault);
        const auto members = Self::Members();
        if (id < 1 || static_cast<std::size_t>(id) > members.size()) return DISP_E_MEMBERNOTFOUND;
        const wchar_t* name = members[static_cast<std::size_t>(id) - 1].name;
        if ((flags & DISPATCH_PROPERTYPUTREF) != 0) flags |= DISPATCH_PROPERTYPUT;
        for (const Member<Self>& member : members) {
            if ((member.access & flags) == 0 || std::wcscmp(member.name, name) != 0) continue;
            return Run(member, *parameters, result, exception);
        }
        return DISP_E_MEMBERNOTFOUND;
    }

private:
    // The place of the name's first entry, counted from 1.
    static DISPID IdOf(const wchar_t* name) {
        DISPID id = 0;
        for (const Member<Self>& member : Self::Members()) {
            ++id;
            if (_wcsicmp(member.name, name) == 0) return id;
        }
        return DISPID_UNKNOWN;
    }

    HRESULT Run(const Member<Self>& member, DISPPARAMS& parameters, VARIANT* result,
                EXCEPINFO* exception) {
        AddRef();  // the call may drop the last reference from outside
        HRESULT code = S_OK;
        try {
            Variant answer = (static_cast<Self*>(this)->*member.run)(Arguments(parameters));
            const bool indexed = member.givesCollection && parameters.cArgs > 0;
            Variant final =
                indexed ? CallDefault(std::move(answer), parameters) : std::move(answer);
            if (result != nullptr) *result = final.Detach();
        } catch (const std::exception& error) {
            code = FillException(error, Self::kSource, exception);
        }
        Release();
        return code;
    }

    ULONG mReferences = 1;
};

}  // namespace kelvane::automation
