// What the check finds in detail lines: against their entries, and by themselves.
#pragma once

#include <span>

#include "entries/check/found_list.h"
#include "entries/check/master_codes.h"

namespace kelvane::entries {

class LineCheck {
public:
    // Both outlive this.
    LineCheck(MasterCodes& codes, FoundList& found) : mCodes(codes), mFound(found) {}

    // All lines of an entry, or of an identity that no entry has: `entry` is null then.
    void Check(const AccountEntry* entry, std::span<const StoredLine> lines);

private:
    void CheckValues(const StoredLine& line);
    void CheckProduct(const StoredLine& line);
    void CheckCode(const AccountEntry& entry, const StoredLine& line, bool equipment);

    MasterCodes& mCodes;
    FoundList& mFound;
};

}  // namespace kelvane::entries
