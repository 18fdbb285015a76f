// AnnouncedChecks: what the checks of a whole entry ask over gEnv, announced together, so that a
// server is asked once and not for each. The checks ask in their turn as ever, and what one of them
// refuses ends them.
#pragma once

#include "entries/entry.h"
#include "platform/host.h"

namespace kelvane::entries {

class AnnouncedChecks {
public:
    // Of the entry's centre, item and settlement, while this lives. Throws nothing.
    explicit AnnouncedChecks(const EntryTexts& entry) noexcept;
    ~AnnouncedChecks();
    AnnouncedChecks(const AnnouncedChecks&) = delete;
    AnnouncedChecks& operator=(const AnnouncedChecks&) = delete;

private:
    platform::HostDataAccess* mAccess = nullptr;  // null: nothing is announced
};

}  // namespace kelvane::entries
