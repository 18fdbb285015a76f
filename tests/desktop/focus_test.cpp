// What has the keyboard can be seen: with it, it is drawn otherwise than without.
#include <gtest/gtest.h>
#include <wx/button.h>

#include <optional>

#include "adapters/desktop/grid_canvas.h"
#include "tests/desktop/find_windows.h"
#include "tests/desktop/list_places.h"
#include "tests/desktop/person.h"
#include "tests/desktop/photo.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

namespace {

// Looks at the topmost window on the windows' thread.
Photo Look(Person& person) {
    std::optional<Photo> photo;
    person.Look([&] {
        photo.emplace();
        return true;
    });
    return *photo;
}

wxRect DotsOfControl(const controls::Control& control) {
    const int dots = static_cast<int>(FindAll<wxTopLevelWindow>().at(0)->GetContentScaleFactor());
    const auto place = [dots](int twips) { return twips / 15 * dots; };
    return {place(control.Left()), place(control.Top()), place(control.Width()),
            place(control.Height())};
}

// More than a caret: at least a line along two sides.
int LeastDifference(const wxRect& area) {
    return area.width + area.height;
}

// The toolkit's own frame inside a button: dots in a line above its caption, where a button without
// it has but one colour.
bool HasDottedFrame(const Photo& photo, const wxRect& button) {
    int changes = 0;
    for (int y = button.y; y < button.y + button.height / 4; ++y) {
        for (int x = button.x + button.width / 4; x < button.x + button.width / 2; ++x) {
            changes += photo.Brightness(x, y) == photo.Brightness(x + 1, y) ? 0 : 1;
        }
    }
    return changes > button.width / 16;
}

}  // namespace

TEST(DesktopFocus, IsSeenOnEveryFieldAndButton) {
    FieldForm form;
    ShowTo(form, [&](Person& person) {
        controls::Control* const order[] = {&form.reference, &form.key, &form.ok, &form.cancel,
                                            &form.code};
        for (const controls::Control* control : order) {
            const Photo without = Look(person);
            person.Keys({"Tab"});
            person.See("keyboard in " + control->Name(),
                       [&] { return form.ActiveControl() == control; });
            person.See("frame of " + control->Name(), [&] {
                const wxRect area = DotsOfControl(*control);
                return Photo().Differences(without, area) > LeastDifference(area);
            });
        }
    });
}

TEST(DesktopFocus, IsSeenInTheToolbarAndNoLongerInTheGrid) {
    for (const bool suite : {true, false}) {
        ListForm form(40, suite);
        ShowTo(form, [&](Person& person) {
            const auto inGrid = [] { return FindAll<desktop::GridCanvas>().at(0)->HasFocus(); };
            const auto cell = [] {
                auto* canvas = FindAll<desktop::GridCanvas>().at(0);
                return DotsOf(*canvas, canvas->Metrics().CellRect(1, 1));
            };
            const auto bar = [](const Photo& photo) {
                return wxRect(0, 0, photo.Width(), photo.Width() / 30);
            };
            person.See("keyboard in the grid", inGrid);
            const Photo before = Look(person);
            person.Keys({"F10"});
            person.See("frame in the toolbar, none in the grid", [&] {
                const Photo photo;
                return photo.Differences(before, cell()) > LeastDifference(cell()) &&
                       photo.Differences(before, bar(photo)) > 200;
            });
            // A pointer that passes takes nothing away.
            person.Keys({"Right"});
            person.MoveTo(kTitle, 700, 20);
            person.MoveTo(kTitle, 300, 300);
            person.Keys({"Return"});
            person.See("second button",
                       [&] { return form.events == std::vector<std::string>{"click PreView"}; });
            person.See("keyboard back in the grid", inGrid);
            person.See("as before", [&] {
                const Photo photo;
                return photo.Differences(before, cell()) == 0 &&
                       photo.Differences(before, bar(photo)) == 0;
            });
        });
    }
}

TEST(DesktopFocus, IsSeenInAMessageBoxFromTheBeginning) {
    ListForm form;
    platform::Message question{.text = "是否继续？",
                               .caption = "提示信息",
                               .icon = platform::MessageIcon::Question,
                               .buttons = platform::MessageButtons::YesNo};
    question.preselected = platform::MessageAnswer::No;
    const auto framed = [](std::size_t which) {
        const auto buttons = FindAll<wxButton>();
        const Photo photo;
        return HasDottedFrame(photo, DotsOf(*buttons.at(which))) &&
               !HasDottedFrame(photo, DotsOf(*buttons.at(1 - which)));
    };
    ShowTo(form, [&](Person& person) {
        Windows().Post([&] { Windows().ShowMessage(question); });
        person.SeeWindow("提示信息");
        person.See("frame around no", [&] { return framed(1); });
        person.Keys({"Tab"});
        person.See("frame around yes", [&] { return framed(0); });
        person.Keys({"Tab"});
        person.See("frame around no again", [&] { return framed(1); });
        person.Keys({"Return"});
        person.See("answered", [] { return FindAll<wxButton>().empty(); });
    });
}

}  // namespace kelvane::test
