// What typing does to the text of an open cell when not every character is taken.
#include <gtest/gtest.h>

#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

TEST(DesktopGrid, ARefusedCharacterTakesNoSelectedTextAway) {
    ListForm form;
    form.grid.SetText(1, 9, "66.50");
    form.refusedCharacter = U'7';
    ShowTo(form, [&](Person& person) {
        person.Keys({"End"});
        person.See("amount", [&] { return form.grid.Col() == 9; });
        person.Keys({"F2"});
        person.See("open cell", [&] { return form.grid.IsEditing(); });
        // By the form, and by the kind of the column.
        for (const char* character : {"7", "x"}) {
            person.Keys({"ctrl+a"});
            person.Type(character);
            Person::Blink();
            person.See("kept", [&] { return form.grid.EditText() == "66.50"; });
        }
        person.Keys({"ctrl+a"});
        person.Type("8");
        person.See("replaced", [&] { return form.grid.EditText() == "8"; });
        person.Keys({"BackSpace"});
        person.See("taken away", [&] { return form.grid.EditText().empty(); });
        person.Type("7");
        Person::Blink();
        EXPECT_TRUE(person.Look([&] { return form.grid.EditText().empty(); }));
        person.Keys({"Escape"});
        person.See("as before", [&] { return form.grid.Text(1, 9) == "66.50"; });
    });
}

}  // namespace kelvane::test
