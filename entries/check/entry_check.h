// What the check finds in the entries by themselves: codes, values, dates, settled items, keywords,
// and entries that stand twice.
#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "entries/check/found_list.h"
#include "entries/check/master_codes.h"

namespace kelvane::entries {

class EntryCheck {
public:
    // Both outlive this. Asks gEnv's calendar for the bounds.
    EntryCheck(MasterCodes& codes, FoundList& found);

    // Entries are to come by their identities.
    void Check(const AccountEntry& entry);

private:
    void CheckValues(const AccountEntry& entry);
    void CheckCodes(const AccountEntry& entry);
    void CheckKeywords(const AccountEntry& entry);
    void CheckTwin(const AccountEntry& entry);
    // Tells what is wrong with a code; whether the account takes it for a known one.
    bool IsKnown(const AccountEntry& entry, const KnownCodes& known, const std::string& code,
                 Rule unknown, std::string_view name);
    void TellSimilar(const AccountEntry& entry, int column, std::string_view name,
                     const std::string& code, const std::string& known);

    MasterCodes& mCodes;
    FoundList& mFound;
    const std::string mOpeningBound;     // "yyyy.mm.dd"
    const std::string mSettlementBound;  // likewise
    std::unordered_map<std::string, std::int64_t> mFirst;
};

}  // namespace kelvane::entries
