// What a failed call of an object hands to its caller.
#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace kelvane::automation {

class AutomationError : public std::runtime_error {
public:
    AutomationError(HRESULT code, const std::string& description)
        : std::runtime_error(description), mCode(code) {}

    HRESULT Code() const { return mCode; }

private:
    HRESULT mCode;
};

}  // namespace kelvane::automation
