#include "entries/announced_checks.h"

#include <array>
#include <exception>

#include "data/login_context.h"
#include "data/reference_queries.h"
#include "data/text_conversion.h"
#include "entries/opening_period.h"

namespace kelvane::entries {

AnnouncedChecks::AnnouncedChecks(const EntryTexts& entry) noexcept {
    try {
        // The cells whose turn has come have lost the blanks at their ends.
        const std::string center = data::Trim(entry[kCenterColumn]);
        const std::string item = data::Trim(entry[kItemColumn]);
        const std::array queries{data::DutyCenterQuery(center), data::CenterItemsQuery(center),
                                 SettlementQuery(item, entry[kKey1Column], entry[kKey2Column])};
        platform::HostDataAccess& access = data::gEnv->DataAccess();
        access.ReadAhead(queries);
        mAccess = &access;
    } catch (const std::exception&) {
        // Each is asked by itself, and told when it fails.
    }
}

AnnouncedChecks::~AnnouncedChecks() {
    if (mAccess != nullptr) mAccess->ReadAhead({});
}

}  // namespace kelvane::entries
