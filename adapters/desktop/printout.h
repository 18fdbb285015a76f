// Printout: pages on their way to the system's printing.
#pragma once

#include <wx/print.h>

#include "platform/page.h"

namespace kelvane::desktop {

class Printout : public wxPrintout {
public:
    // `pages` outlives the printout.
    explicit Printout(const platform::PageSource& pages);

    bool HasPage(int number) override;
    void GetPageInfo(int* first, int* last, int* from, int* to) override;
    bool OnPrintPage(int number) override;

private:
    const platform::PageSource& mPages;
};

}  // namespace kelvane::desktop
