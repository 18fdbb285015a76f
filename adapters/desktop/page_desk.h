// PageDesk: a page view on the screen: the current page as a white sheet on a grey desk, with
// scroll bars when it is larger than the desk.
//
// The wheel scrolls, and turns the page where there is nothing left to scroll; with Ctrl it zooms.
// The arrow keys scroll.
#pragma once

#include <wx/bitmap.h>
#include <wx/scrolwin.h>

#include <memory>
#include <optional>

#include "adapters/desktop/spoken_window.h"
#include "adapters/desktop/view.h"
#include "adapters/desktop/view_host.h"
#include "controls/page_view.h"

namespace kelvane::desktop {

class PageDesk : public View, public SpokenSource {
public:
    PageDesk(wxWindow& parent, controls::PageView& pages, ViewHost& host);

    wxWindow& Window() override { return *mDesk; }
    wxWindow* FocusWindow() override { return mDesk; }
    bool TakeKey(const KeyStroke& stroke) override;

protected:
    void Update() override;

private:
    controls::Spoken Whole() override { return SpokenOf(mPages); }
    // The sheet in the pixels of the desk's visible part.
    wxRect Sheet() const;
    wxSize SheetSize() const;
    void Paint();
    void DrawDesk(const wxRect& sheet);
    void OnWheel(wxMouseEvent& event);
    void ScrollOrTurn(int steps);
    // Scrolls with an arrow key; false for any other key.
    bool ScrollWith(platform::Key key);
    // Brings a point of the sheet to the middle of the desk, as far as there is room to scroll: `x`
    // and `y` are shares of the sheet's width and height, from 0 to 1.
    void LookAt(double x, double y);

    controls::PageView& mPages;
    wxScrolledCanvas* mDesk;
    std::optional<platform::Page> mContent;  // of the shown page
    wxBitmap mDrawn;                         // the visible part of the desk
    wxRect mDrawnSheet;
    int mShownPage = 0;
    bool mTurnedBack = false;
    int mWheelRest = 0;
    std::unique_ptr<SpokenWindow> mSpoken;
};

}  // namespace kelvane::desktop
