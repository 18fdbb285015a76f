// Pages as a PDF document with real text and embedded fonts.
#pragma once

#include "adapters/output/files/safe_file.h"
#include "adapters/output/files/work_meter.h"
#include "platform/page.h"

namespace kelvane::output {

// Writes the whole file but for SafeFile::Finish(); each page is a step of `meter`. Throws
// FileFailure and WorkCancelled.
void WritePdf(const platform::PageSource& pages, SafeFile& file, WorkMeter& meter);

}  // namespace kelvane::output
