#include "tests/windows/automation/variant.h"

namespace kelvane::automation {

Variant::Variant(bool value) {
    mContent.vt = VT_BOOL;
    mContent.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Variant::Variant(long value) {
    mContent.vt = VT_I4;
    mContent.lVal = value;
}

Variant::Variant(std::string_view utf8) {
    mContent.bstrVal = NewBstr(utf8);
    mContent.vt = VT_BSTR;
}

Variant::Variant(IDispatch* object) {
    mContent.vt = VT_DISPATCH;
    mContent.pdispVal = object;
}

Variant Variant::Null() {
    Variant null;
    null.mContent.vt = VT_NULL;
    return null;
}

VARIANT Variant::Detach() {
    const VARIANT content = mContent;
    VariantInit(&mContent);
    return content;
}

}  // namespace kelvane::automation
