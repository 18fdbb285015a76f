// The windows at several sizes of the system's texts: what holds a text grows along with it.
#include <gtest/gtest.h>
#include <wx/textctrl.h>
#include <wx/toplevel.h>

#include <cmath>

#include "adapters/desktop/grid_canvas.h"
#include "tests/desktop/find_windows.h"
#include "tests/desktop/list_places.h"
#include "tests/desktop/person.h"
#include "tests/desktop/photo.h"
#include "tests/desktop/sample_forms.h"
#include "tests/desktop/sample_pages.h"

namespace kelvane::test {

namespace {

int Scaled(double pixels) {
    return static_cast<int>(std::lround(pixels * TextScale()));
}

}  // namespace

TEST(DesktopScale, AWindowIsAsManyTwipsLargeAsEver) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Look([&] {
            const wxSize client = FindAll<wxTopLevelWindow>().at(0)->GetClientSize();
            EXPECT_NEAR(client.x, Scaled((12000 - 90) / 15.0), 1);
            EXPECT_NEAR(client.y, Scaled((7500 - 500) / 15.0 + 22), 1);
            return true;
        });
    });
    EXPECT_EQ(form.Width(), 12000);
    EXPECT_EQ(form.Height(), 7500);
    EXPECT_EQ(Windows().TwipsPerPixelX(), std::lround(15 / TextScale()));
    EXPECT_EQ(Windows().TwipsPerPixelY(), std::lround(15 / TextScale()));
}

TEST(DesktopScale, RowsAndColumnsHoldTheirTexts) {
    ListForm form;
    form.SetSize(14000, 7500);  // with the last column
    ShowTo(form, [&](Person& person) {
        person.SeePainted();
        person.Look([&] {
            auto* canvas = FindAll<desktop::GridCanvas>().at(0);
            for (const int row : {0, 3, 12}) {
                for (int col = 1; col < form.grid.Cols(); ++col) {
                    EXPECT_EQ(canvas->CutText({row, col}), "") << row << " " << col;
                }
            }
            const Photo photo;
            wxRect cell = canvas->Metrics().CellRect(3, 4);
            cell.SetSize(cell.GetSize() - wxSize(1, 1));  // without its lines
            const wxRect inside = DotsOf(*canvas, cell);
            const wxRect letters = photo.AroundDark(inside);
            EXPECT_GT(letters.height, inside.height / 2);
            EXPECT_GT(letters.GetTop(), inside.GetTop());
            EXPECT_LT(letters.GetBottom(), inside.GetBottom());
            EXPECT_GT(letters.width, inside.width / 2);
            EXPECT_LT(letters.GetRight(), inside.GetRight());
            return true;
        });
    });
}

TEST(DesktopScale, PlacesInTheWindowGrowAlong) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        person.Click(kTitle, 330, 20);
        person.See("button", [&] { return form.events == std::vector<std::string>{"click Help"}; });
        person.Click(kTitle, kColumnMiddles[8], RowY(15));
        person.See("cell", [&] { return form.grid.Row() == 15 && form.grid.Col() == 8; });
        person.Drag(kTitle, 1300 / 15, kGridTop + 10, 1300 / 15 + 40, kGridTop + 10);
        person.See("wider", [&] { return form.grid.ColumnWidth(1) > 1800; });
        EXPECT_NEAR(form.grid.ColumnWidth(1), 1900, 45);
        person.Resize(900, 600);
        person.See("as wide", [&] { return std::abs(form.ScaleWidth() - 900 * 15) <= 15; });
    });
}

TEST(DesktopScale, ToolbarsHoldTheirCaptions) {
    for (const bool suite : {true, false}) {
        ListForm form(5, suite);
        ShowTo(form, [&](Person& person) {
            person.SeePainted();
            person.Look([&] {
                const Photo photo;
                const double dots = FindAll<wxTopLevelWindow>().at(0)->GetContentScaleFactor();
                const int height = static_cast<int>(Scaled(suite ? 48 : 42) * dots);
                const wxRect letters =
                    photo.AroundDark(wxRect(0, 0, photo.Width(), height - static_cast<int>(dots)));
                EXPECT_GT(letters.GetTop(), 2 * dots);
                EXPECT_LT(letters.GetBottom(), height - 3 * dots);
                EXPECT_LT(letters.GetRight(), photo.Width() - 1);
                return true;
            });
        });
    }
}

TEST(DesktopScale, FieldsHoldTheirTexts) {
    FieldForm form;
    ShowTo(form, [&](Person& person) {
        person.Look([&] {
            const auto fields = FindAll<wxTextCtrl>();
            EXPECT_EQ(fields.size(), 2U);
            for (const wxTextCtrl* field : fields) {
                EXPECT_GE(field->GetSize().y, field->GetCharHeight());
            }
            return true;
        });
    });
}

TEST(DesktopScale, PagesHaveTheirOwnSizeOfLetters) {
    const SamplePages source(1, 2100, 2970);
    PageForm form(source);
    form.pages.SetZoom(100);
    ShowTo(form, [&](Person& person) {
        std::vector<std::string> toTheCorner(30, "Left");
        toTheCorner.emplace_back("Home");
        person.Keys(toTheCorner);
        person.SeePainted();
        person.Look([&] {
            const Photo photo;
            const wxRect area = photo.Around(SamplePages::ColorOf(1));
            // Paper of 40 mm; of the text in bold letters of 14 points everything lies below it.
            const double dotsPerMillimetre = area.width / 40.0;
            const auto at = [&](double millimetres) {
                return static_cast<int>(std::lround(millimetres * dotsPerMillimetre));
            };
            const wxRect text = photo.AroundDark({area.x, area.y + at(52), area.width, at(18)});
            EXPECT_GT(text.height, at(4));
            EXPECT_LT(text.height, at(5.5));
            return true;
        });
    });
}

}  // namespace kelvane::test
