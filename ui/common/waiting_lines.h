// WaitingLines: lines that were saved in the detail editor and wait for their entry's row to be
// saved.
#pragma once

#include <string>
#include <vector>

#include "platform/statement_text.h"

namespace kelvane::ui {

struct WaitingLines {
    // Replaces the entry's lines; the entry's place stands where its identity belongs.
    platform::StatementText script;
    // The lines, cells joined by a tab.
    std::vector<std::string> texts;

    void Forget() { *this = {}; }
    friend bool operator==(const WaitingLines& left, const WaitingLines& right) {
        return left.texts == right.texts && left.script.Text() == right.script.Text();
    }
};

}  // namespace kelvane::ui
