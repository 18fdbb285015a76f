// Variant: one automation value, freed when its scope ends, and the makers of the kinds that are
// handed to other objects.
#pragma once

#include <string_view>
#include <utility>

#include "adapters/com/com_pointer.h"

namespace kelvane::com {

class Variant {
public:
    Variant() noexcept { VariantInit(&mValue); }
    // A copy of `value` with references followed. Throws std::bad_alloc.
    explicit Variant(const VARIANT& value);
    Variant(const Variant& other) : Variant(other.mValue) {}
    Variant(Variant&& other) noexcept : Variant() { std::swap(mValue, other.mValue); }
    Variant& operator=(Variant other) noexcept {
        std::swap(mValue, other.mValue);
        return *this;
    }
    ~Variant() { VariantClear(&mValue); }

    static Variant OfText(std::string_view utf8);
    static Variant OfInteger(long number);
    static Variant OfObject(IDispatch* object);
    // An optional argument that is left out.
    static Variant Missing();

    const VARIANT& Get() const { return mValue; }
    VARTYPE Type() const { return V_VT(&mValue); }

    // Where a call that hands out a value may put it; drops the present one.
    VARIANT* Receive() {
        VariantClear(&mValue);
        return &mValue;
    }

    // The object in it; null when it holds none, or Nothing.
    ComPointer<IDispatch> Object() const;

private:
    VARIANT mValue;
};

}  // namespace kelvane::com
