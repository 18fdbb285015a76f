// An operator script in front of a pick list: what it chooses and what its transcript says.
#include <gtest/gtest.h>

#include <sstream>

#include "adapters/drive/script_operator.h"
#include "adapters/headless/headless_windows.h"
#include "adapters/reference/reference_window.h"
#include "tests/support/memory_record_set.h"

namespace kelvane::reference {
namespace {

using support::MemoryRecordSet;
using support::TextRow;

PickRows Centers() {
    MemoryRecordSet source({"a", "b"},
                           {TextRow({"D01", "工程一部"}), TextRow({"D02", "工程|二部"})});
    return {source, 2};
}

// The transcript of `script`, and what was chosen in a list for each of its "show".
std::string RunScript(const std::string& script, PickRows rows = Centers()) {
    std::istringstream in(script);
    std::ostringstream out;
    drive::ScriptOperator person(in, out);
    headless::HeadlessWindows windows(person);
    drive::ScriptHost host;
    host.show = [&] {
        ReferenceWindow window(windows, rows, {"参照", {"编码", "名称"}, {}});
        windows.ShowModal(window);
        out << "chosen " << (window.Chosen() ? std::to_string(*window.Chosen()) : "nothing")
            << '\n';
    };
    person.SetHost(host);
    person.Run();
    return out.str();
}

TEST(ScriptedPick, TakesTheQueuedRow) {
    EXPECT_EQ(RunScript("pick 2\nshow\n"),
              "> pick 2\n> show\nlist: 编码,名称\nD01|工程一部\nD02|工程|二部\nchosen 1\n");
}

TEST(ScriptedPick, NothingQueuedOrNoneChoosesNothing) {
    EXPECT_EQ(RunScript("show\npick none\npick 1\nshow\nshow\n"),
              "> show\nlist: 编码,名称\nD01|工程一部\nD02|工程|二部\nchosen nothing\n"
              "> pick none\n> pick 1\n"
              "> show\nlist: 编码,名称\nD01|工程一部\nD02|工程|二部\nchosen nothing\n"
              "> show\nlist: 编码,名称\nD01|工程一部\nD02|工程|二部\nchosen 0\n");
}

TEST(ScriptedPick, AnEmptyListHasItsTitlesOnly) {
    MemoryRecordSet empty({"a", "b"}, {});
    EXPECT_EQ(RunScript("show\n", PickRows(empty, 2)), "> show\nlist: 编码,名称\nchosen nothing\n");
}

TEST(ScriptedPick, ARowThatIsNotThereEndsTheScript) {
    EXPECT_EQ(RunScript("pick 3\nshow\nshow\n"),
              "> pick 3\n> show\nlist: 编码,名称\nD01|工程一部\nD02|工程|二部\n"
              "error: line 2: the list has no row 3\nchosen nothing\n");
}

}  // namespace
}  // namespace kelvane::reference
