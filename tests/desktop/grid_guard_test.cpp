// The ways in which a native field lets its text be changed, on a cell that keeps its text.
#include <gtest/gtest.h>
#include <wx/clipbrd.h>
#include <wx/textctrl.h>

#include <string>

#include "tests/desktop/list_places.h"
#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

namespace {

constexpr const char* kAmount = "1,234.50";
constexpr int kInText = kColumnMiddles[9] + 40;

// Puts a text where the keyboard pastes from, and where the middle button does.
void FillClipboard(Person& person, const char* text) {
    EXPECT_TRUE(person.Look([text] {
        bool filled = true;
        for (const bool primary : {false, true}) {
            wxTheClipboard->UsePrimarySelection(primary);
            filled = wxTheClipboard->Open() &&
                     wxTheClipboard->SetData(new wxTextDataObject(text)) && filled;
            wxTheClipboard->Close();
        }
        wxTheClipboard->UsePrimarySelection(false);
        return filled;
    }));
}

std::string TextOnScreen() {
    const auto* field = dynamic_cast<wxTextCtrl*>(wxWindow::FindFocus());
    return field == nullptr ? "no field" : field->GetValue().utf8_string();
}

// The place of an entry in the field's own menu, which begins with Cut, Copy, Paste, Delete.
void ChooseFromMenu(Person& person, int place) {
    person.Keys({"ctrl+a"});
    person.SeePopup([&] { person.ClickWith(3, kTitle, kInText, RowY(1)); });
    person.Keys(std::vector<std::string>(static_cast<std::size_t>(place), "Down"));
    person.Keys({"Return"});
}

struct Way {
    const char* name;
    void (*change)(Person&);
};

constexpr Way kWays[] = {
    {"typed", [](Person& person) { person.Type("7"); }},
    {"typed over",
     [](Person& person) {
         person.Keys({"ctrl+a", "7"});
     }},
    {"taken away", [](Person& person) { person.Keys({"BackSpace"}); }},
    {"deleted",
     [](Person& person) {
         person.Keys({"Home", "Delete"});
     }},
    {"cut",
     [](Person& person) {
         person.Keys({"ctrl+a", "ctrl+x"});
     }},
    {"pasted", [](Person& person) { person.Keys({"ctrl+v"}); }},
    {"pasted over",
     [](Person& person) {
         person.Keys({"ctrl+a", "shift+Insert"});
     }},
    {"composed",
     [](Person& person) {
         person.Keys({"ctrl+shift+u", "3", "7", "space"});
     }},
    {"middle button", [](Person& person) { person.ClickWith(2, kTitle, kInText, RowY(1)); }},
    {"menu: cut", [](Person& person) { ChooseFromMenu(person, 1); }},
    {"menu: paste", [](Person& person) { ChooseFromMenu(person, 3); }},
    {"menu: delete", [](Person& person) { ChooseFromMenu(person, 4); }},
};

// Opens the amount of the first row and changes it in one way after the other.
void ChangeInEveryWay(bool guarded) {
    ListForm form;
    int beeps = 0;
    form.SetSize(15000, 7500);  // all columns fit in
    form.grid.SetText(1, 9, kAmount);
    form.grid.Beep = [&] { ++beeps; };
    if (guarded) form.grid.TextMayChange = [](int, int col) { return col != 9; };
    ShowTo(form, [&](Person& person) {
        person.Keys({"End"});
        person.See("amount", [&] { return form.grid.Col() == 9; });
        for (const Way& way : kWays) {
            person.Keys({"F2"});
            person.See("open cell", [&] { return form.grid.IsEditing(); });
            FillClipboard(person, "77");
            beeps = 0;
            way.change(person);
            if (guarded) {
                person.See(way.name + std::string(" with a beep"), [&] { return beeps > 0; });
                person.See("the field shows it", [&] { return TextOnScreen() == kAmount; });
                EXPECT_TRUE(person.Look([&] { return form.grid.EditText() == kAmount; }))
                    << way.name;
            } else {
                person.See(way.name, [&] { return form.grid.EditText() != kAmount; });
            }
            person.Keys({"Escape"});
            person.See("closed", [&] { return !form.grid.IsEditing(); });
        }
        EXPECT_TRUE(person.Look([&] { return form.grid.Text(1, 9) == kAmount; }));
    });
}

}  // namespace

TEST(DesktopGrid, AFieldsTextIsChangedInManyWays) {
    ChangeInEveryWay(false);
}

TEST(DesktopGrid, AGuardedTextIsChangedInNone) {
    ChangeInEveryWay(true);
}

}  // namespace kelvane::test
