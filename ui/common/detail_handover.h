// What the entry list and the detail editor hand to each other. The members outlive the editor's
// window: they carry results back to the entry list and keep the lines of an entry not yet saved.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/statement_text.h"

namespace kelvane::ui {

struct DetailHandover {
    // Set before opening: equipment lines instead of inventory lines; lines only to be looked at.
    bool bEquipment = false;
    bool bReadOnly = false;
    // Set by saving: the lines' total as an amount text (empty when it is zero), and the script
    // that replaces the entry's lines.
    std::string RetValue;
    platform::StatementText RetStrSql;
    // Lines entered but not saved with their entry, cells joined by a tab.
    std::vector<std::string> mColTempValues;
};

// The one set of members of the component's process.
extern DetailHandover gDetailHandover;

// Shows the detail editor modally; empty while the component has none.
extern std::function<void()> gShowDetailEditor;

}  // namespace kelvane::ui
