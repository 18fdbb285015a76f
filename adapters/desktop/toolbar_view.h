// ToolbarView: draws a row of toolbar buttons, plain or in the suite's look, and clicks them by
// mouse or keyboard. Both kinds of toolbar hand it the same items.
#pragma once

#include <wx/dc.h>

#include <functional>
#include <string>
#include <vector>

#include "adapters/desktop/spoken_window.h"
#include "adapters/desktop/view.h"
#include "adapters/desktop/view_host.h"
#include "controls/toolbar.h"
#include "controls/toolbar_style_control.h"

namespace kelvane::desktop {

class ToolbarView : public View, public SpokenSource {
public:
    ToolbarView(wxWindow& parent, controls::Toolbar& toolbar, ViewHost& host);
    ToolbarView(wxWindow& parent, controls::ToolbarStyleControl& control, ViewHost& host);

    wxWindow& Window() override { return *mWindow; }
    // Puts the keyboard on the first button that can be clicked; false when there is none.
    bool Enter();

protected:
    void Update() override;

private:
    using Item = controls::ToolbarStyleControl::Item;
    struct Source {
        std::function<std::vector<Item>()> items;
        std::function<void(const std::string&)> click;
    };

    ToolbarView(wxWindow& parent, controls::Control& control, ViewHost& host, Source source,
                bool suite);
    controls::Spoken Whole() override { return {.role = controls::SpokenRole::Toolbar}; }
    int PartCount() override { return static_cast<int>(mItems.size()); }
    controls::Spoken Part(int part) override;
    wxRect PlaceOf(int part) override;
    int CurrentPart() override { return mHot; }
    void Press(int part) override { Click(part); }
    // Where the buttons lie; found out once for each state of the items.
    const std::vector<wxRect>& Places();
    void Paint();
    void PaintItem(wxDC& dc, std::size_t index);
    int ItemAt(wxPoint point);
    bool CanClick(int index) const;
    void SetHot(int index);
    void Point(int index);
    void Click(int index);
    void OnKey(wxKeyEvent& event);

    ViewHost& mHost;
    Source mSource;
    bool mSuite;
    wxWindow* mWindow;
    std::vector<Item> mItems;
    std::vector<wxRect> mPlaces;
    bool mCaptionBelow = false;
    int mHot = -1;
    bool mEntered = false;  // by the keyboard
    bool mPressed = false;
    SpokenWindow mSpoken;
};

}  // namespace kelvane::desktop
