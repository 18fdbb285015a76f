// What the list of entries asks of the windows that it opens, and what they answer. The windows
// do not know each other: ui/windows.h brings them together.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

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

// Entries to be imported: a file, or a text that was copied.
struct ImportRequest {
    std::string file;
    std::string copied;
};

struct ImportAnswer {
    std::size_t created = 0;
    std::size_t changed = 0;
    std::size_t deleted = 0;
    std::int32_t firstIdentity = 0;  // of the new entries
    std::optional<int> batch;        // none: there was nothing to write
    // What ought to be known besides.
    std::vector<std::string> notes;
};

// Whether the list has the entry of that identity, also when a filter has put it aside. The check
// and the summary ask it before they answer with an entry that the operator wants to go to.
using IsListed = std::function<bool(std::int64_t identity)>;

}  // namespace kelvane::ui
