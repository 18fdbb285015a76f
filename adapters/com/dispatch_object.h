// DispatchObject: an object of someone else's, reached late bound by the names of its members.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/com/variant.h"

namespace kelvane::com {

// A member is missing, refused, or answered with something else than was asked for. what() names
// the object, the member and the reason.
class DispatchError : public std::runtime_error {
public:
    DispatchError(const std::string& object, std::string_view member, std::string reason,
                  HRESULT code = E_FAIL);

    // What the object itself said, or the system's sentence for its code.
    const std::string& Reason() const { return mReason; }
    HRESULT Code() const { return mCode; }

private:
    std::string mReason;
    HRESULT mCode;
};

using Arguments = std::vector<Variant>;

class DispatchObject {
public:
    DispatchObject() = default;
    // `name`: how errors name the object.
    DispatchObject(ComPointer<IDispatch> object, std::string name)
        : mObject(std::move(object)), mName(std::move(name)) {}

    // Creates an object of the class `progId` in this process. Throws DispatchError.
    static DispatchObject Create(const char* progId);

    explicit operator bool() const { return static_cast<bool>(mObject); }
    const std::string& Name() const { return mName; }
    IDispatch* Get() const { return mObject.Get(); }

    // Each throws DispatchError. Get asks for a property, Call for a method; where the object has
    // the member as the other kind only, that is used.
    Variant Get(std::string_view member, const Arguments& arguments = {}) const;
    Variant Call(std::string_view member, const Arguments& arguments = {}) const;
    void Put(std::string_view member, const Variant& value) const;

    // Throws DispatchError unless the object has the member.
    void Require(std::string_view member) const { IdOf(member); }

    // The object that a property, or a method with arguments, gives; empty for Nothing. Throws
    // DispatchError also when what it gives is no object.
    DispatchObject Object(std::string_view member, const Arguments& arguments = {}) const;

private:
    struct MemberId {
        DISPID id;
        bool extended;  // known by IDispatchEx alone
    };
    MemberId IdOf(std::string_view member) const;
    // Returns the member's code, or throws what the object reported.
    HRESULT TryInvoke(std::string_view member, WORD kind, const Arguments& arguments,
                      Variant& result) const;
    Variant Invoke(std::string_view member, WORD kind, WORD otherKind,
                   const Arguments& arguments) const;

    ComPointer<IDispatch> mObject;
    std::string mName;
    mutable std::map<std::string, MemberId, std::less<>> mIds;
};

}  // namespace kelvane::com
