#include "adapters/com/call_arguments.h"

#include "adapters/com/error_report.h"
#include "adapters/com/wide_text.h"

namespace kelvane::com {

// A late-bound caller hands the arguments over from the last to the first. Those that it named
// stand before all others; the "name" of each is its place among the member's arguments.
const VARIANT& CallArguments::At(unsigned place) const {
    for (unsigned i = 0; i < mParameters.cNamedArgs; ++i) {
        if (mParameters.rgdispidNamedArgs[i] == static_cast<DISPID>(place)) {
            return mParameters.rgvarg[i];
        }
    }
    return mParameters.rgvarg[mParameters.cArgs - 1 - place];
}

void CallArguments::Refuse(const char* name, const char* reason) const {
    throw ArgumentError(mMember + "：参数 " + name + " " + reason);
}

ComPointer<IDispatch> CallArguments::Object(unsigned place, const char* name) const {
    const Variant argument(At(place));
    if (auto object = argument.Object()) return object;
    const bool isObject = argument.Type() == VT_DISPATCH || argument.Type() == VT_UNKNOWN;
    Refuse(name, isObject ? "没有对象，或对象没有 IDispatch 接口" : "不是对象");
}

std::string CallArguments::Text(unsigned place, const char* name) const {
    const Variant argument(At(place));
    if (argument.Type() != VT_BSTR) Refuse(name, "不是文本");
    return TextOf(V_BSTR(&argument.Get()));
}

}  // namespace kelvane::com
