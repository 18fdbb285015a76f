// Pages on the screen: turned, zoomed and scrolled by real keys and a real mouse, and looked at.
#include <gtest/gtest.h>

#include "tests/desktop/person.h"
#include "tests/desktop/photo.h"
#include "tests/desktop/sample_pages.h"

namespace kelvane::test {

namespace {

constexpr const char* kTitle = "样张";
constexpr int kMiddleX = 400;  // of the window, 800 by 600 pixels
constexpr int kMiddleY = 300;
constexpr int kA4Width = 2100;
constexpr int kA4Height = 2970;

int Scale() {
    const char* scale = std::getenv("GDK_SCALE");
    return scale == nullptr ? 1 : std::atoi(scale);
}

// Dots of the screen in tenths of a millimetre of paper, at `zoom` per cent.
int Dots(int tenths, int zoom) {
    return tenths * 96 * Scale() * zoom / 25400;
}

}  // namespace

TEST(DesktopPages, KeysTurnThem) {
    const SamplePages source(5, kA4Width, kA4Height);
    PageForm form(source);
    ShowTo(form, [&](Person& person) {
        const auto turn = [&](const char* key, int page) {
            person.Keys({key});
            person.See("page " + std::to_string(page), [&] { return form.pages.Page() == page; });
        };
        turn("Next", 2);
        turn("Next", 3);
        turn("Prior", 2);
        turn("ctrl+End", 5);
        turn("Next", 5);
        turn("ctrl+Home", 1);
    });
}

TEST(DesktopPages, TheWheelTurnsThemWhenNothingIsLeftToScroll) {
    const SamplePages source(3, kA4Width, kA4Height);
    PageForm form(source);
    ShowTo(form, [&](Person& person) {
        person.Wheel(kTitle, kMiddleX, kMiddleY, 1);
        person.See("page 2", [&] { return form.pages.Page() == 2; });
        person.Wheel(kTitle, kMiddleX, kMiddleY, -1);
        person.See("page 1", [&] { return form.pages.Page() == 1; });

        person.Look([&] {
            form.pages.SetZoom(100);
            return true;
        });
        person.Keys({"Home"});
        person.See("the page's upper part",
                   [&] { return Photo().Count(SamplePages::ColorOf(1)) > 0; });
        person.Wheel(kTitle, kMiddleX, kMiddleY, 4);
        person.See("scrolled away from the page's upper part",
                   [&] { return Photo().Count(SamplePages::ColorOf(1)) == 0; });
        EXPECT_TRUE(person.Look([&] { return form.pages.Page() == 1; }));
        person.Wheel(kTitle, kMiddleX, kMiddleY, 20);
        person.See("next page", [&] { return form.pages.Page() > 1; });
    });
}

TEST(DesktopPages, ArrowsScrollThem) {
    const SamplePages source(1, kA4Width, kA4Height);
    PageForm form(source);
    form.pages.SetZoom(100);
    const auto showsUpperPart = [] { return Photo().Count(SamplePages::ColorOf(1)) > 0; };
    ShowTo(form, [&](Person& person) {
        person.Keys(std::vector<std::string>(6, "Down"));
        person.See("the lower part", [&] { return !showsUpperPart(); });
        person.Keys(std::vector<std::string>(6, "Up"));
        person.See("the upper part", showsUpperPart);
        EXPECT_TRUE(person.Look([&] { return form.pages.Page() == 1; }));
    });
}

TEST(DesktopPages, CtrlAndTheWheelZoom) {
    const SamplePages source(1, kA4Width, kA4Height);
    PageForm form(source);
    form.pages.SetZoom(100);
    ShowTo(form, [&](Person& person) {
        person.Hold("ctrl");
        person.Wheel(kTitle, kMiddleX, kMiddleY, -1);
        person.See("larger", [&] { return form.pages.Zoom() == 125; });
        person.Wheel(kTitle, kMiddleX, kMiddleY, 2);
        person.See("smaller", [&] { return form.pages.Zoom() == 90; });
        person.Release("ctrl");
    });
}

TEST(DesktopPages, ArePaintedInTheirSize) {
    const SamplePages source(3, kA4Width, kA4Height);
    PageForm form(source);
    form.pages.SetZoom(50);
    ShowTo(form, [&](Person& person) {
        for (const int zoom : {50, 200, 67}) {
            person.Look([&] {
                form.pages.SetZoom(zoom);
                return true;
            });
            std::vector<std::string> toTheCorner(30, "Left");
            toTheCorner.emplace_back("Home");
            person.Keys(toTheCorner);
            Person::Blink();
            person.Look([&] {
                const Photo photo;
                const wxRect area = photo.Around(SamplePages::ColorOf(1));
                EXPECT_NEAR(area.width, Dots(400, zoom), 2) << zoom;
                EXPECT_GE(area.height, 1) << zoom;
                // Nothing of it is blurred: the whole rectangle has the colour.
                EXPECT_EQ(photo.Count(SamplePages::ColorOf(1)), area.width * area.height) << zoom;
                return true;
            });
        }
    });
}

TEST(DesktopPages, AreCentredOnTheDesk) {
    const SamplePages source(1, kA4Width, kA4Height);
    PageForm form(source);
    ShowTo(form, [&](Person& person) {
        Person::Blink();
        person.Look([&] {
            const wxRect paper = Photo().Around(0xFFFFFF);
            const double shape = static_cast<double>(paper.height) / paper.width;
            EXPECT_NEAR(shape, 2970.0 / 2100, 0.02);
            EXPECT_NEAR(paper.x + paper.width / 2.0, kMiddleX * Scale(), 2);
            return true;
        });
    });
}

TEST(DesktopPages, ANewSourceIsShown) {
    const SamplePages before(3, kA4Width, kA4Height);
    const SamplePages after(2, kA4Height, kA4Width);
    PageForm form(before);
    ShowTo(form, [&](Person& person) {
        person.Keys({"ctrl+End"});
        person.See("page 3", [&] { return form.pages.Page() == 3; });
        person.Look([&] {
            form.pages.SetSource(&after);
            return true;
        });
        Person::Blink();
        person.Look([&] {
            const Photo photo;
            const wxRect paper = photo.Around(0xFFFFFF);
            EXPECT_GT(paper.width, paper.height);
            EXPECT_GT(photo.Count(SamplePages::ColorOf(2)), 0);
            EXPECT_EQ(photo.Count(SamplePages::ColorOf(3)), 0);
            return true;
        });
    });
    EXPECT_EQ(form.pages.Page(), 2);
}

}  // namespace kelvane::test
