// WaitingLines: what the detail editor came to and the row has not been saved with yet.
#pragma once

#include <string>
#include <vector>

#include "platform/statement_text.h"

namespace kelvane::ui {

struct WaitingLines {
    // Replaces the entry's lines, with places for its identity.
    platform::StatementText script;
    // The lines, cells joined by a tab.
    std::vector<std::string> texts;

    void Forget() { *this = {}; }
};

}  // namespace kelvane::ui
