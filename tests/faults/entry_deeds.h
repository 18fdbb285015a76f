// What an operator does with entries, in the tests in which something fails while he does it.
#pragma once

#include <array>
#include <string_view>

#include "tests/faults/entry_desk.h"

namespace kelvane::faults {

// What is told of a save that nobody knows the end of.
inline constexpr std::string_view kInDoubt = "不能确定";

// Something that the operator does. It is prepared without a fault; done again after one, it
// succeeds.
struct EntryDeed {
    const char* name;
    void (*prepare)(EntryDesk& world);
    // Returns whether it was done, as far as the operator can see.
    bool (*act)(EntryDesk& world);
};

inline void ChangeOldRow(EntryDesk& world) {
    world.Open();
    world.ChangeRowWithLines("槽钢");
}

inline void AddNewRow(EntryDesk& world) {
    world.Open();
    world.AddRowWithLines();
}

inline bool Leave(EntryDesk& world) {
    return world.Go(1, kDateColumn);
}

inline void GoToRowWithLines(EntryDesk& world) {
    world.Open();
    world.Go(2, kDateColumn);
}

inline bool Delete(EntryDesk& world) {
    const int rows = world.List().Rows();
    world.windows.answers = {platform::MessageAnswer::Yes};
    world.Form().DeleteRow();
    return world.List().Rows() < rows;
}

inline constexpr std::array kEntryDeeds{EntryDeed{"SavingAnOldRow", ChangeOldRow, Leave},
                                        EntryDeed{"SavingANewRow", AddNewRow, Leave},
                                        EntryDeed{"Deleting", GoToRowWithLines, Delete}};

}  // namespace kelvane::faults
