#include "tests/desktop/photo.h"

#include <gtest/gtest.h>
#include <wx/wfstream.h>

#include <string>

#include "tests/desktop/person.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::test {

namespace {

constexpr int kDark = 110;

}  // namespace

Photo::Photo() {
    const host_test::TemporaryFolder folder;
    const std::string path = (folder / "window.png").string();
    EXPECT_TRUE(Windows().SaveScreenshot(path));
    *this = Photo(path);
}

Photo::Photo(const std::string& path) {
    wxFileInputStream file(wxString::FromUTF8(path));
    EXPECT_TRUE(wxPNGHandler().LoadFile(&mImage, file));
}

Photo Photo::OfScreen() {
    const host_test::TemporaryFolder folder;
    const std::string path = (folder / "screen.png").string();
    OutputOf("import -window root '" + path + "'");
    return Photo(path);
}

std::uint32_t Photo::Color(int x, int y) const {
    return mImage.GetRed(x, y) | static_cast<std::uint32_t>(mImage.GetGreen(x, y)) << 8U |
           static_cast<std::uint32_t>(mImage.GetBlue(x, y)) << 16U;
}

int Photo::Brightness(int x, int y) const {
    return (mImage.GetRed(x, y) + mImage.GetGreen(x, y) + mImage.GetBlue(x, y)) / 3;
}

int Photo::Count(std::uint32_t color) const {
    int count = 0;
    for (int y = 0; y < Height(); ++y) {
        for (int x = 0; x < Width(); ++x) count += Color(x, y) == color ? 1 : 0;
    }
    return count;
}

wxRect Photo::Around(std::uint32_t color) const {
    wxRect around;
    for (int y = 0; y < Height(); ++y) {
        for (int x = 0; x < Width(); ++x) {
            if (Color(x, y) == color) around.Union(wxRect(x, y, 1, 1));
        }
    }
    return around;
}

wxRect Photo::AroundDark(const wxRect& area) const {
    wxRect around;
    for (int y = area.y; y <= area.GetBottom(); ++y) {
        for (int x = area.x; x <= area.GetRight(); ++x) {
            if (Brightness(x, y) < kDark) around.Union(wxRect(x, y, 1, 1));
        }
    }
    return around;
}

int Photo::Differences(const Photo& other, const wxRect& area) const {
    EXPECT_EQ(Width(), other.Width());
    EXPECT_EQ(Height(), other.Height());
    int count = 0;
    for (int y = area.y; y <= area.GetBottom(); ++y) {
        for (int x = area.x; x <= area.GetRight(); ++x) {
            count += Color(x, y) == other.Color(x, y) ? 0 : 1;
        }
    }
    return count;
}

}  // namespace kelvane::test
