#include "adapters/desktop/paper.h"

#include <wx/paper.h>

#include <algorithm>

namespace kelvane::desktop {

void SetPaper(wxPrintData& printer, int width, int height) {
    const wxSize upright(std::min(width, height), std::max(width, height));
    const wxPaperSize paper = wxThePrintPaperDatabase->GetSize(upright);
    printer.SetPaperId(paper);
    if (paper == wxPAPER_NONE) printer.SetPaperSize((upright + wxSize(5, 5)) / 10);
    printer.SetOrientation(width > height ? wxLANDSCAPE : wxPORTRAIT);
}

}  // namespace kelvane::desktop
