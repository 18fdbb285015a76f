// Failures as a host sees them: the object library's own numbered errors, and the database's.
#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace kelvane::ado_server {

// What a failed call hands to its caller.
class AdoError : public std::runtime_error {
public:
    AdoError(HRESULT code, const std::string& description)
        : std::runtime_error(description), mCode(code) {}

    HRESULT Code() const { return mCode; }

private:
    HRESULT mCode;
};

// The documented numbers of the library's own errors; the HRESULT is 0x800A0000 with the number.
enum class ErrorNumber {
    InvalidArgument = 3001,
    NoCurrentRecord = 3021,
    IllegalOperation = 3219,
    InTransaction = 3246,
    FeatureNotAvailable = 3251,
    ItemNotFound = 3265,
    DataConversion = 3421,
    ObjectClosed = 3704,
    ObjectOpen = 3705,
    ProviderNotFound = 3706,
    InvalidConnection = 3709,
};

// The error with its documented description.
AdoError MakeError(ErrorNumber number);

}  // namespace kelvane::ado_server
