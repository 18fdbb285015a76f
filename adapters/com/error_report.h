// The one place where the component's errors become those of COM: no exception crosses the
// boundary.
#pragma once

#include <stdexcept>
#include <string>

#include "adapters/com/com_headers.h"

namespace kelvane::com {

// What a caller handed over is not what the member takes.
class ArgumentError : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

// A member was called when it cannot be.
class CallOrderError : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

struct ErrorReport {
    HRESULT code = S_OK;
    std::string description;
};

// What a host is told of the exception being handled. For use in a catch block.
ErrorReport ReportOfCurrentException() noexcept;

// Makes `report` the thread's error object, for interface `interfaceId` of class `source`.
void Publish(const ErrorReport& report, REFIID interfaceId, const wchar_t* source) noexcept;

// Moves `report` into `exception`, for a late-bound call.
void Fill(EXCEPINFO& exception, const ErrorReport& report, const wchar_t* source) noexcept;

}  // namespace kelvane::com
