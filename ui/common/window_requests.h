// What the list of entries asks of the two windows that it opens, and what they answer. The windows
// do not know each other: ui/windows.h brings them together.
#pragma once

#include <optional>
#include <string>

#include "entries/detail_line.h"
#include "entries/entry.h"
#include "ui/common/waiting_lines.h"

namespace kelvane::ui {

// The detail editor for one entry.
struct DetailRequest {
    entries::DetailKind kind = entries::DetailKind::Inventory;
    bool readOnly = false;
    entries::BudgetedEntry entry;
    std::string centerCode;
    // Lines that wait to be saved; while there are any, they are shown instead of the account's.
    std::vector<std::string> lines;
};

struct DetailAnswer {
    // The lines' total as an amount text; empty when nothing was saved, and for a total of zero.
    std::string total;
    // What waits to be saved now; the script is empty when nothing was saved.
    WaitingLines lines;
    // The lines were written to a file.
    bool exported = false;
};

// What is to be found; an empty keyword stands for any.
struct FindAnswer {
    std::string itemCode;
    std::string key1;
    std::string key2;
};

}  // namespace kelvane::ui
