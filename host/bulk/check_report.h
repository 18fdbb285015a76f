// What a check of the account found: for the controller as a workbook, for programs as JSON.
#pragma once

#include <string>

#include "entries/check/check.h"
#include "platform/date_time.h"

namespace kelvane::host {

struct CheckReport {
    std::string account;  // fit to be shown
    platform::DateTime time;
    std::string operatorName;
    entries::CheckResult result;
};

// Where a finding stands: "entry 12".
std::string PlaceOf(const entries::CheckFinding& finding);

// One object, without a line break at its end.
std::string JsonOf(const CheckReport& report);

// Whether findings are written to a file of that name, by its extension.
bool IsCheckFile(const std::string& path);

// Writes them to `path` (UTF-8), whole or not at all: a sheet 检查 that counts, and one for each
// rule that found something. Throws output::FileFailure, also for another extension.
void WriteCheck(const std::string& path, const CheckReport& report);

}  // namespace kelvane::host
