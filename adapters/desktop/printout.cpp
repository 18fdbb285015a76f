#include "adapters/desktop/printout.h"

#include <wx/dcprint.h>
#include <wx/graphics.h>

#include <algorithm>
#include <utility>

#include "adapters/desktop/look.h"
#include "adapters/desktop/page_drawing.h"

namespace kelvane::desktop {

using std::chrono::steady_clock;

Printout::Printout(const platform::PageSource& pages, StartProgress startProgress)
    : wxPrintout(Text(pages.Title())), mPages(pages), mStartProgress(std::move(startProgress)) {}

void Printout::OnBeginPrinting() {
    mStart = steady_clock::now();
}

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
    // Fills the paper; on the paper the pages were made for that is their own size.
    const double scale = std::min(static_cast<double>(paper.width) / mPages.PageWidth(),
                                  static_cast<double>(paper.height) / mPages.PageHeight());
    target->Translate(paper.x + (paper.width - scale * mPages.PageWidth()) / 2,
                      paper.y + (paper.height - scale * mPages.PageHeight()) / 2);
    DrawPage(*target, mPages.MakePage(number), scale, 0);
    return ShowProgress();
}

bool Printout::ShowProgress() {
    ++mDone;
    if (!mProgress && steady_clock::now() - mStart < std::chrono::seconds(1)) return true;
    if (!mProgress) mProgress = mStartProgress();
    const auto whole = static_cast<std::size_t>(mPages.PageCount());
    mCancelled = mProgress && !mProgress->Show(mDone, whole);
    return !mCancelled;
}

}  // namespace kelvane::desktop
