// A grid's scroll bar is drawn where the list is, without a pointer over it.
#include <gtest/gtest.h>
#include <wx/toplevel.h>

#include "tests/desktop/list_places.h"
#include "tests/desktop/person.h"
#include "tests/desktop/photo.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

namespace {

constexpr int kBarMiddle = (12000 - 90) / 15 - 8;
constexpr int kBarTop = kGridTop;
constexpr int kBarBottom = (7500 - 500 - 255) / 15;
constexpr int kReach = 12;  // from the bar's end to the thumb's, at most
constexpr int kThumbBrightness = 170;

// Where the thumb is drawn, from the bar's upper end; -1 when it is nowhere. Looked at from
// outside: a window asked for its picture paints itself first. Call it on the windows' thread.
struct Thumb {
    int top = -1;
    int bottom = -1;

    Thumb() {
        const wxWindow* window = wxTopLevelWindows.GetFirst()->GetData();
        const wxPoint corner = window->ClientToScreen(wxPoint(kBarMiddle, 0));
        const int dots = static_cast<int>(window->GetContentScaleFactor());
        const Photo screen = Photo::OfScreen();
        for (int y = kBarTop; y < kBarBottom; ++y) {
            const int brightness = screen.Brightness(corner.x * dots, (corner.y + y) * dots);
            if (brightness > kThumbBrightness) continue;
            if (top < 0) top = y - kBarTop;
            bottom = y - kBarTop;
        }
    }
};

}  // namespace

TEST(DesktopGridBars, TheThumbFollowsKeysAndWheel) {
    ListForm form(1000);
    constexpr int kLength = kBarBottom - kBarTop;
    ShowTo(form, [&](Person& person) {
        person.See("thumb at the beginning",
                   [] { return Thumb().top >= 0 && Thumb().top < kReach; });
        person.Keys({"ctrl+End"});
        person.See("last row", [&] { return form.grid.Row() == 1000; });
        person.See("thumb at the end", [] { return Thumb().bottom > kLength - kReach; });
        person.Keys({"ctrl+Home"});
        person.See("first row", [&] { return form.grid.Row() == 1; });
        person.See("thumb at the beginning again", [] { return Thumb().top < kReach; });
        person.Wheel(kTitle, 300, RowY(5), 150);
        person.See("row 451", [&] { return form.grid.TopRow() == 451; });
        person.See("thumb in the middle",
                   [] { return Thumb().top > kLength / 3 && Thumb().bottom < kLength * 2 / 3; });
    });
}

}  // namespace kelvane::test
