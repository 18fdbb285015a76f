#include "tests/windows/automation/late_bound.h"

namespace kelvane::automation {
namespace {

AutomationError WrongType() {
    return {DISP_E_TYPEMISMATCH, "Type mismatch."};
}

}  // namespace

const VARIANT* Arguments::At(std::size_t index) const {
    if (index >= mParameters.cArgs) return nullptr;
    // They come last first.
    const VARIANT* argument = &mParameters.rgvarg[mParameters.cArgs - 1 - index];
    if (argument->vt == (VT_BYREF | VT_VARIANT)) argument = argument->pvarVal;
    const bool leftOut = argument->vt == VT_ERROR && argument->scode == DISP_E_PARAMNOTFOUND;
    return leftOut || argument->vt == VT_EMPTY ? nullptr : argument;
}

std::string Arguments::Text(std::size_t index) const {
    const VARIANT* argument = At(index);
    if (argument == nullptr) return {};
    Variant text;
    if (FAILED(VariantChangeType(&text.Raw(), const_cast<VARIANT*>(argument), 0, VT_BSTR))) {
        throw WrongType();
    }
    return TextOf(text.Raw().bstrVal);
}

long Arguments::Number(std::size_t index, long absent) const {
    const VARIANT* argument = At(index);
    if (argument == nullptr) return absent;
    Variant number;
    if (FAILED(VariantChangeType(&number.Raw(), const_cast<VARIANT*>(argument), 0, VT_I4))) {
        throw WrongType();
    }
    return number.Raw().lVal;
}

IDispatch* Arguments::Object(std::size_t index) const {
    const VARIANT* argument = At(index);
    if (argument == nullptr) return nullptr;
    if (argument->vt == VT_DISPATCH) return argument->pdispVal;
    if (argument->vt == (VT_BYREF | VT_DISPATCH)) return *argument->ppdispVal;
    return nullptr;
}

void Arguments::Store(std::size_t index, long value) const {
    if (index >= mParameters.cArgs) return;
    const VARIANT& argument = mParameters.rgvarg[mParameters.cArgs - 1 - index];
    if (argument.vt == (VT_BYREF | VT_I4)) {
        *argument.plVal = value;
    } else if (argument.vt == (VT_BYREF | VT_VARIANT)) {
        VariantClear(argument.pvarVal);
        argument.pvarVal->vt = VT_I4;
        argument.pvarVal->lVal = value;
    }
}

HRESULT FillException(const std::exception& error, const wchar_t* source, EXCEPINFO* exception) {
    if (exception == nullptr) return DISP_E_EXCEPTION;
    *exception = {};
    const auto* own = dynamic_cast<const AutomationError*>(&error);
    exception->scode = own != nullptr ? own->Code() : E_FAIL;
    exception->bstrSource = SysAllocString(source);
    exception->bstrDescription = SysAllocString(ToWide(error.what()).c_str());
    return DISP_E_EXCEPTION;
}

Variant CallDefault(Variant object, DISPPARAMS& parameters) {
    EXCEPINFO exception{};
    Variant result;
    const HRESULT code = object.Raw().pdispVal->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                                       DISPATCH_PROPERTYGET, &parameters,
                                                       &result.Raw(), &exception, nullptr);
    if (code == DISP_E_EXCEPTION) {
        const std::string description = TextOf(exception.bstrDescription);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrHelpFile);
        throw AutomationError(exception.scode, description);
    }
    if (FAILED(code)) throw WrongType();
    return result;
}

}  // namespace kelvane::automation
