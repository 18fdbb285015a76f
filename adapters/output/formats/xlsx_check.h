// The spreadsheet library keeps parts of a file in temporary files and does not notice when one of
// them could not be written; so what it made is read once more.
#pragma once

#include "adapters/output/files/safe_file.h"

namespace kelvane::output {

// Throws FileFailure unless every part of the draft is complete.
void CheckXlsx(const SafeFile& file);

}  // namespace kelvane::output
