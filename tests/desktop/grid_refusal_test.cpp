// A refused text in the native field: all of it is selected, by whatever it was refused and however
// often, until the operator goes into it.
#include <gtest/gtest.h>

#include "tests/desktop/person.h"
#include "tests/desktop/sample_forms.h"

namespace kelvane::test {

TEST(DesktopGrid, ARefusedTextIsTypedOverUnlessTheCaretGoesIntoIt) {
    ListForm form;
    ShowTo(form, [&](Person& person) {
        const auto refusals = [&](int count) {
            person.See("refused", [&] { return form.grid.EditRefusals() == count; });
        };
        const auto reads = [&](const char* text) {
            person.See(text, [&] { return form.grid.EditText() == text; });
        };
        person.Keys({"Right"});
        person.Type("bad");
        person.Keys({"Down"});
        refusals(1);
        EXPECT_TRUE(person.Look([&] {
            return form.grid.RefusedCell() == controls::Grid::Place{1, 2};
        }));
        person.SeePainted();
        person.Keys({"BackSpace"});
        reads("");
        person.Type("bad");
        // Refused twice, with the caret inside in between.
        person.Keys({"Tab"});
        refusals(2);
        person.Keys({"Home", "Tab"});
        refusals(3);
        person.Type("0");
        reads("0");
        person.Keys({"ctrl+a"});
        person.Type("bad");
        person.Keys({"Return"});
        refusals(4);
        person.Keys({"End"});
        person.Type("9");
        reads("bad9");
        person.Keys({"Return"});
        person.See("taken", [&] { return !form.grid.IsEditing(); });
        EXPECT_TRUE(person.Look([&] {
            return form.grid.Text(1, 2) == "bad9" &&
                   form.grid.RefusedCell() == controls::Grid::Place{};
        }));
    });
}

}  // namespace kelvane::test
