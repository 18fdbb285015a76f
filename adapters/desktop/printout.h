// Printout: pages on their way to the system's printing.
#pragma once

#include <wx/print.h>

#include <chrono>
#include <functional>
#include <memory>

#include "platform/page.h"
#include "platform/print_surroundings.h"

namespace kelvane::desktop {

class Printout : public wxPrintout {
public:
    using StartProgress = std::function<std::unique_ptr<platform::Progress>()>;

    // `pages` outlives the printout. `startProgress` is called when printing has taken a second.
    Printout(const platform::PageSource& pages, StartProgress startProgress);

    // Whether the operator ended the printing in the progress window.
    bool IsCancelled() const { return mCancelled; }

    void OnBeginPrinting() override;
    bool HasPage(int number) override;
    void GetPageInfo(int* first, int* last, int* from, int* to) override;
    bool OnPrintPage(int number) override;

private:
    bool ShowProgress();

    const platform::PageSource& mPages;
    StartProgress mStartProgress;
    std::unique_ptr<platform::Progress> mProgress;
    std::chrono::steady_clock::time_point mStart;
    std::size_t mDone = 0;
    bool mCancelled = false;
};

}  // namespace kelvane::desktop
