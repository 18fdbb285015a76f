// Photo: what the topmost window or the screen shows, to look at its colours.
#pragma once

#include <wx/gdicmn.h>
#include <wx/image.h>

#include <cstdint>
#include <string>

namespace kelvane::test {

// Places are in the screen's own dots; colours are 0xBBGGRR.
class Photo {
public:
    // Call it on the windows' thread: it lets the window paint itself before.
    Photo();
    // What the whole screen shows at this moment.
    static Photo OfScreen();

    int Width() const { return mImage.GetWidth(); }
    int Height() const { return mImage.GetHeight(); }
    std::uint32_t Color(int x, int y) const;
    // From 0, black, to 255, white.
    int Brightness(int x, int y) const;
    int Count(std::uint32_t color) const;
    // The rectangle around everything of this colour, or that is darker than letters' edges are,
    // in `area`.
    wxRect Around(std::uint32_t color) const;
    wxRect AroundDark(const wxRect& area) const;
    // How many dots of `area` are not as `other` shows them; both show as much.
    int Differences(const Photo& other, const wxRect& area) const;

private:
    explicit Photo(const std::string& path);

    wxImage mImage;
};

}  // namespace kelvane::test
