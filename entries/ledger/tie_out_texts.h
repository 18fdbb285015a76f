// A tie-out as a table that is read by people: on the screen, on a terminal, on paper and in files.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "entries/ledger/tie_out.h"

namespace kelvane::entries {

inline constexpr const char* kTieOutTitle = "期初与总账核对";

enum class TieOutOutcome { Agrees, Differs, LedgerLacksAccount, UnmappedEntry, UnmappedAccount };

struct TieOutLine {
    TieOutOutcome outcome = TieOutOutcome::Agrees;
    // Which of the tie-out's rows, unmapped entries or unmapped accounts it is.
    std::size_t at = 0;
    // As many as there are titles; figures as they are shown, "-1,234.50", or empty.
    std::vector<std::string> texts;
};

// The titles: first those of texts, then those of figures.
std::vector<std::string> TieOutTitles();
// How many of them are titles of texts.
inline constexpr std::size_t kTieOutTextColumns = 4;

// A line for each row, then one for each entry and each account that is left over.
std::vector<TieOutLine> TieOutLines(const TieOut& result);

}  // namespace kelvane::entries
