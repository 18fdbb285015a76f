// VARIANTs with an owner.
#pragma once

#include "tests/windows/automation/text.h"

namespace kelvane::automation {

class Variant {
public:
    Variant() { VariantInit(&mContent); }  // empty
    explicit Variant(bool value);
    explicit Variant(long value);
    explicit Variant(std::string_view utf8);
    // Takes over one reference.
    explicit Variant(IDispatch* object);
    ~Variant() { VariantClear(&mContent); }
    Variant(Variant&& other) noexcept : mContent(other.mContent) { VariantInit(&other.mContent); }
    Variant& operator=(Variant&&) = delete;
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;

    static Variant Null();

    VARIANT& Raw() { return mContent; }
    // Hands the content to the caller, who frees it.
    VARIANT Detach();

private:
    VARIANT mContent{};
};

}  // namespace kelvane::automation
