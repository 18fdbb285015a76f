// Finds the toolkit's windows behind what is shown. All of it is called on the windows' thread.
#pragma once

#include <wx/toplevel.h>

#include <cmath>
#include <vector>

namespace kelvane::test {

template <typename Window>
void CollectWindows(const wxWindowList& windows, std::vector<Window*>& found) {
    for (wxWindow* window : windows) {
        if (auto* one = dynamic_cast<Window*>(window)) found.push_back(one);
        // A dialog is among its parent's children too.
        wxWindowList inner;
        for (wxWindow* child : window->GetChildren()) {
            if (!child->IsTopLevel()) inner.Append(child);
        }
        CollectWindows(inner, found);
    }
}

// Every window of this class.
template <typename Window>
std::vector<Window*> FindAll() {
    std::vector<Window*> found;
    CollectWindows(wxTopLevelWindows, found);
    return found;
}

// Where `area` of `window`, in its pixels, is in a photo of the window that it belongs to.
inline wxRect DotsOf(const wxWindow& window, wxRect area) {
    area.Offset(window.GetScreenPosition() -
                wxGetTopLevelParent(const_cast<wxWindow*>(&window))->GetScreenPosition());
    const double dots = window.GetContentScaleFactor();
    const auto place = [dots](int pixels) { return static_cast<int>(std::lround(pixels * dots)); };
    return {place(area.x), place(area.y), place(area.width), place(area.height)};
}

// The whole of `window` in such a photo.
inline wxRect DotsOf(const wxWindow& window) {
    return DotsOf(window, wxRect(window.GetSize()));
}

}  // namespace kelvane::test
