#include "adapters/com/dispatch_object.h"

#include <algorithm>

#include "adapters/com/wide_text.h"

namespace kelvane::com {

namespace {

// Strings of an EXCEPINFO belong to whoever receives it.
struct Exception : EXCEPINFO {
    Exception() : EXCEPINFO{} {}
    ~Exception() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
    Exception(const Exception&) = delete;
    Exception& operator=(const Exception&) = delete;

    HRESULT Code() {
        if (pfnDeferredFillIn != nullptr) pfnDeferredFillIn(this);
        if (scode != 0) return scode;
        return wCode != 0 ? MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, wCode) : E_FAIL;
    }
};

DISPID ExtendedIdOf(const ComPointer<IDispatch>& object, const std::wstring& name) {
    DISPID id = DISPID_UNKNOWN;
    const auto extended = object.As<IDispatchEx>();
    if (!extended) return id;
    BSTR text = SysAllocStringLen(name.data(), static_cast<UINT>(name.size()));
    if (FAILED(extended->GetDispID(text, fdexNameCaseInsensitive, &id))) id = DISPID_UNKNOWN;
    SysFreeString(text);
    return id;
}

bool IsAnotherKind(HRESULT code) {
    return code == DISP_E_MEMBERNOTFOUND || code == DISP_E_BADPARAMCOUNT;
}

}  // namespace

DispatchError::DispatchError(const std::string& object, std::string_view member, std::string reason,
                             HRESULT code)
    : std::runtime_error(object + "." + std::string(member) + "：" + reason),
      mReason(std::move(reason)),
      mCode(code) {}

DispatchObject DispatchObject::Create(const char* progId) {
    CLSID id{};
    ComPointer<IDispatch> object;
    HRESULT code = CLSIDFromProgID(WideText(progId).c_str(), &id);
    if (SUCCEEDED(code)) {
        code = CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                reinterpret_cast<void**>(object.Receive()));
    }
    if (FAILED(code)) throw DispatchError(progId, "New", SystemText(code), code);
    return {std::move(object), progId};
}

DispatchObject::MemberId DispatchObject::IdOf(std::string_view member) const {
    if (!mObject) throw DispatchError(mName, member, "对象不存在", E_POINTER);
    if (const auto known = mIds.find(member); known != mIds.end()) return known->second;
    std::wstring name = WideText(member);
    LPOLESTR names = name.data();
    MemberId found{DISPID_UNKNOWN, false};
    const HRESULT code =
        mObject->GetIDsOfNames(IID_NULL, &names, 1, LOCALE_USER_DEFAULT, &found.id);
    if (FAILED(code)) found = {ExtendedIdOf(mObject, name), true};
    if (found.id == DISPID_UNKNOWN) {
        throw DispatchError(mName, member, "对象没有这个成员", DISP_E_UNKNOWNNAME);
    }
    return mIds.emplace(member, found).first->second;
}

HRESULT DispatchObject::TryInvoke(std::string_view member, WORD kind, const Arguments& arguments,
                                  Variant& result) const {
    const MemberId id = IdOf(member);
    // The arguments stand in reverse; they stay the caller's.
    std::vector<VARIANTARG> reversed;
    for (const Variant& argument : arguments) reversed.push_back(argument.Get());
    std::ranges::reverse(reversed);
    DISPID put = DISPID_PROPERTYPUT;
    const bool puts = (kind & DISPATCH_PROPERTYPUT) != 0;
    DISPPARAMS parameters{reversed.data(), puts ? &put : nullptr,
                          static_cast<UINT>(reversed.size()), puts ? 1U : 0U};
    Exception exception;
    VARIANT* const receiver = puts ? nullptr : result.Receive();
    HRESULT code = E_NOTIMPL;
    if (id.extended) {
        code = mObject.As<IDispatchEx>()->InvokeEx(id.id, LOCALE_USER_DEFAULT, kind, &parameters,
                                                   receiver, &exception, nullptr);
    } else {
        UINT wrong = 0;
        code = mObject->Invoke(id.id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, receiver,
                               &exception, &wrong);
    }
    if (code == DISP_E_EXCEPTION) {
        code = exception.Code();
        std::string reason = TextOf(exception.bstrDescription);
        throw DispatchError(mName, member, reason.empty() ? SystemText(code) : reason, code);
    }
    return code;
}

Variant DispatchObject::Invoke(std::string_view member, WORD kind, WORD otherKind,
                               const Arguments& arguments) const {
    Variant result;
    const HRESULT first = TryInvoke(member, kind, arguments, result);
    HRESULT code = first;
    if (IsAnotherKind(first) && otherKind != 0) {
        code = TryInvoke(member, otherKind, arguments, result);
        if (IsAnotherKind(code)) code = first;
    }
    if (FAILED(code)) throw DispatchError(mName, member, SystemText(code), code);
    return result;
}

Variant DispatchObject::Get(std::string_view member, const Arguments& arguments) const {
    return Invoke(member, DISPATCH_PROPERTYGET, DISPATCH_METHOD, arguments);
}

Variant DispatchObject::Call(std::string_view member, const Arguments& arguments) const {
    return Invoke(member, DISPATCH_METHOD, DISPATCH_PROPERTYGET, arguments);
}

void DispatchObject::Put(std::string_view member, const Variant& value) const {
    Invoke(member, DISPATCH_PROPERTYPUT, 0, {value});
}

DispatchObject DispatchObject::Object(std::string_view member, const Arguments& arguments) const {
    const Variant result = arguments.empty() ? Get(member) : Call(member, arguments);
    const bool nothing = (result.Type() == VT_DISPATCH || result.Type() == VT_UNKNOWN) &&
                         V_UNKNOWN(&result.Get()) == nullptr;
    auto object = result.Object();
    if (!object && !nothing && result.Type() != VT_EMPTY && result.Type() != VT_NULL) {
        throw DispatchError(mName, member, "得到的不是对象", DISP_E_TYPEMISMATCH);
    }
    return {std::move(object), mName + "." + std::string(member)};
}

}  // namespace kelvane::com
