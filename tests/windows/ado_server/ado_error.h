// The object library's own numbered errors.
#pragma once

#include "tests/windows/automation/automation_error.h"

namespace kelvane::ado_server {

using namespace automation;

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
AutomationError MakeError(ErrorNumber number);

}  // namespace kelvane::ado_server
