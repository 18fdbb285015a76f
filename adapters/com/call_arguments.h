// The arguments of a late-bound call, by their places: taken in whichever form the caller has them,
// by value or by reference, with the references followed.
#pragma once

#include <string>

#include "adapters/com/variant.h"

namespace kelvane::com {

class CallArguments {
public:
    // `parameters` outlives it; `member` names the member in errors.
    CallArguments(const DISPPARAMS& parameters, std::string member)
        : mParameters(parameters), mMember(std::move(member)) {}

    // Whether there are just as many as `count`.
    bool Count(unsigned count) const { return mParameters.cArgs == count; }

    // Each takes the argument at `place`, from 0, that the member calls `name`. They throw
    // ArgumentError for anything else than an object that is there, or a text.
    ComPointer<IDispatch> Object(unsigned place, const char* name) const;
    std::string Text(unsigned place, const char* name) const;

private:
    const VARIANT& At(unsigned place) const;
    [[noreturn]] void Refuse(const char* name, const char* reason) const;

    const DISPPARAMS& mParameters;
    std::string mMember;
};

}  // namespace kelvane::com
