#include "adapters/com/variant.h"

#include <new>

#include "adapters/com/wide_text.h"

namespace kelvane::com {

Variant::Variant(const VARIANT& value) : Variant() {
    // A variant by reference may itself hold a reference.
    if (FAILED(VariantCopyInd(&mValue, const_cast<VARIANT*>(&value)))) throw std::bad_alloc();
    if ((V_VT(&mValue) & VT_BYREF) != 0) *this = Variant(mValue);
}

Variant Variant::OfText(std::string_view utf8) {
    const std::wstring wide = WideText(utf8);
    Variant result;
    V_BSTR(&result.mValue) = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (V_BSTR(&result.mValue) == nullptr) throw std::bad_alloc();
    V_VT(&result.mValue) = VT_BSTR;
    return result;
}

Variant Variant::OfInteger(long number) {
    Variant result;
    V_VT(&result.mValue) = VT_I4;
    V_I4(&result.mValue) = number;
    return result;
}

Variant Variant::OfObject(IDispatch* object) {
    Variant result;
    if (object != nullptr) object->AddRef();
    V_VT(&result.mValue) = VT_DISPATCH;
    V_DISPATCH(&result.mValue) = object;
    return result;
}

Variant Variant::Missing() {
    Variant result;
    V_VT(&result.mValue) = VT_ERROR;
    V_ERROR(&result.mValue) = DISP_E_PARAMNOTFOUND;
    return result;
}

ComPointer<IDispatch> Variant::Object() const {
    if (Type() == VT_DISPATCH) return ComPointer<IDispatch>::Share(V_DISPATCH(&mValue));
    if (Type() == VT_UNKNOWN) {
        return ComPointer<IUnknown>::Share(V_UNKNOWN(&mValue)).As<IDispatch>();
    }
    return {};
}

}  // namespace kelvane::com
