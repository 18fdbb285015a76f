// The one place where the component's errors become those of COM: no exception crosses the
// boundary. A host's log gets each in Chinese and in English.
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

constexpr HRESULT OwnCode(unsigned short number) {
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_ITF, number);
}

// The component's own codes; a host finds them in the type library.
inline constexpr HRESULT kHostFailed = OwnCode(0x201);
inline constexpr HRESULT kDatabaseRefused = OwnCode(0x202);
inline constexpr HRESULT kDatabaseBusy = OwnCode(0x203);
inline constexpr HRESULT kConnectionLost = OwnCode(0x204);
inline constexpr HRESULT kSaveInDoubt = OwnCode(0x205);
inline constexpr HRESULT kCallOutOfOrder = OwnCode(0x206);
inline constexpr HRESULT kCallFromOtherThread = OwnCode(0x207);

// `description`: what kind of error it is, "中文 / English", then ": " and the error's own text
// when it has one.
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
