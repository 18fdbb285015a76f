// The paper that pages of a size are printed on, as the system's printing knows it.
#pragma once

#include <wx/cmndata.h>

namespace kelvane::desktop {

// Sets paper and orientation for pages of this size, in tenths of a millimetre. The system knows
// usual papers by their names, others by their size in whole millimetres.
void SetPaper(wxPrintData& printer, int width, int height);

}  // namespace kelvane::desktop
