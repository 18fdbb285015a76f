#include "adapters/desktop/printout.h"

#include <wx/dcprint.h>
#include <wx/graphics.h>

#include <algorithm>
#include <memory>

#include "adapters/desktop/look.h"
#include "adapters/desktop/page_drawing.h"
#include "adapters/desktop/system.h"

namespace kelvane::desktop {

Printout::Printout(const platform::PageSource& pages)
    : wxPrintout(Text(pages.Title())), mPages(pages) {}

bool Printout::HasPage(int number) {
    return number >= 1 && number <= mPages.PageCount();
}

void Printout::GetPageInfo(int* first, int* last, int* from, int* to) {
    *first = *from = 1;
    *last = *to = mPages.PageCount();
}

bool Printout::OnPrintPage(int number) {
    auto* dc = dynamic_cast<wxPrinterDC*>(GetDC());
    if (dc == nullptr) return false;
    const std::unique_ptr<wxGraphicsContext> target(wxGraphicsContext::Create(*dc));
    const wxRect paper = GetPaperRectPixels();
    // A page is scaled to the paper; on the paper that the pages were made for it keeps its own
    // size.
    const double scale = std::min(static_cast<double>(paper.width) / mPages.PageWidth(),
                                  static_cast<double>(paper.height) / mPages.PageHeight());
    MoveToCorner(*target, paper);
    target->Translate((paper.width - scale * mPages.PageWidth()) / 2,
                      (paper.height - scale * mPages.PageHeight()) / 2);
    DrawPage(*target, mPages.MakePage(number), scale, 0);
    return true;
}

}  // namespace kelvane::desktop
