// EntryStore: writes opening entries and their detail lines to the account, over gConn, in
// transactions of its own, and removes them. What is written has passed its checks. Errors are
// thrown, with nothing written; platform::CommitInDoubt where that cannot be told.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "entries/entry.h"
#include "entries/entry_counter.h"
#include "entries/rules.h"
#include "entries/stored_entry.h"
#include "platform/host.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

// The counter of their identities, which are 16-bit numbers.
inline constexpr std::string_view kEntryCounter = "NumMax_EleQc";
inline constexpr NumberRange kIdentities{std::numeric_limits<std::int16_t>::min(),
                                         std::numeric_limits<std::int16_t>::max()};

// What a write came upon.
struct WrittenEntry {
    std::string elementCode;            // the one that was written
    std::optional<StoredEntry> before;  // what was stored; nothing where the entry was not there
};

class EntryStore {
public:
    // Writes an existing entry and then runs `detailScript`, with the identity in its places,
    // unless it is empty. Finds that another operator has deleted the entry; one whose insertion
    // was in doubt is inserted instead. The element's code is read over gEnv. `written` is filled
    // before the commit, so that it is known when that gets no answer.
    std::optional<Finding> Update(const Entry& entry, const platform::StatementText& detailScript,
                                  WrittenEntry& written);

    // Runs `detailScript` and inserts the entry under its identity. A commit without an answer
    // leaves the identity in doubt.
    void Insert(const Entry& entry, const platform::StatementText& detailScript,
                WrittenEntry& written);

    // Deletes an entry with its lines, and the lines alone, at once.
    void Delete(std::int32_t identity);
    void DeleteLines(std::int32_t identity);

    // Brings each entry's amount up to the sum of its lines, over `access`. Lines that sum to 0
    // leave the amount as it is.
    static void ReSum(platform::HostDataAccess& access);

    // Forgets which insertions were in doubt.
    void ForgetDoubts() { mInDoubt.clear(); }

private:
    // Identities of new entries whose commit was never answered.
    std::set<std::int32_t> mInDoubt;
};

}  // namespace kelvane::entries
