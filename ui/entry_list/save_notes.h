// SaveNotes: what an operator has to know of rows that he saved: that another operator had changed
// one since it was shown here, and what then stood there; that both together have overrun a budget.
// Leaving a row saves it, so that there may be many at once. A note lasts until its row is saved
// again or removed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "entries/stored_entry.h"

namespace kelvane::ui {

// Another operator's values that a save has replaced, and what the save did to the entry's lines.
struct ReplacedEntry {
    entries::StoredEntry values;
    bool wroteLines = false;
    bool deletedLines = false;
};

class SaveNotes {
public:
    // `name` is what the notice calls the entry.
    void AddReplaced(std::int32_t identity, std::string name, ReplacedEntry replaced);
    void AddOverrun(std::int32_t identity, std::string name);
    // Null when nothing of this entry was replaced.
    const ReplacedEntry* ReplacedIn(std::int32_t identity) const;
    // The entry that was replaced last, of those that are still told; 0 when there is none.
    std::int32_t LastReplaced() const;

    // The entry's save got no answer: the note is known, but not whether it is true.
    void Hold(ReplacedEntry replaced) { mHeld = std::move(replaced); }
    std::optional<ReplacedEntry> TakeHeld() { return std::exchange(mHeld, std::nullopt); }

    // A row was saved again, or is gone; all of them.
    void Forget(std::int32_t identity);
    void ForgetAll() { *this = {}; }
    // The operator has seen what was replaced in one row, or all there is to be told; what was
    // replaced is kept.
    void WasSeen(std::int32_t identity);
    void AllWereSeen();

    // What is still to be told; empty when nothing is.
    std::string Text() const;

private:
    struct Note {
        std::int32_t identity = 0;
        std::string name;
        std::optional<ReplacedEntry> replaced;  // nothing: a budget was overrun
        bool told = true;
    };

    std::string Named(bool replaced) const;

    std::vector<Note> mNotes;  // the latest at the end
    std::optional<ReplacedEntry> mHeld;
};

}  // namespace kelvane::ui
