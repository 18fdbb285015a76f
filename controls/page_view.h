// PageView: shows one page of a document at a time. It holds which page and how large; who draws it
// asks the source for the page, and keeps for itself where a page larger than the view is scrolled
// to.
//
// Keys: Page Up and Page Down turn pages, Ctrl+Home and Ctrl+End go to the first and last one.
#pragma once

#include <functional>

#include "controls/control.h"
#include "controls/form.h"
#include "platform/page.h"

namespace kelvane::controls {

class PageView : public Control, public KeyTarget {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    static constexpr int kMinZoom = 25;
    static constexpr int kMaxZoom = 400;
    // The zoom that shows the whole page, whatever the view's size.
    static constexpr int kWholePage = 0;
    // What is left free around a page, in twips.
    static constexpr int kPageMargin = 180;

    // `pages` outlives the view or is taken away again (null). The page stays when it is still
    // there. A source whose pages have changed is set once more.
    void SetSource(const platform::PageSource* pages);
    const platform::PageSource* Source() const { return mSource; }

    // 0 without a source. Pages count from 1; SetPage goes to the nearest page there is.
    int PageCount() const { return mSource == nullptr ? 0 : mSource->PageCount(); }
    int Page() const { return mPage; }
    void SetPage(int page);

    // Per cent of the paper's own size, or kWholePage.
    int Zoom() const { return mZoom; }
    void SetZoom(int percent);
    // The zoom that the page is shown with, never kWholePage.
    int ShownZoom() const;
    // Size of the page as it is shown, in twips.
    int ShownWidth() const;
    int ShownHeight() const;
    // The next larger or smaller usual zoom.
    void ZoomIn();
    void ZoomOut();

    // Raised after the page or the zoom has changed.
    std::function<void()> Change;

    bool KeyDown(platform::Key key, int shift) override;
    bool KeyPress(char32_t /*character*/) override { return false; }

private:
    const platform::PageSource* mSource = nullptr;
    int mPage = 0;
    int mZoom = kWholePage;
};

}  // namespace kelvane::controls
