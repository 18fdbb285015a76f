// Equipment and inventory by code or by name, as a detail line takes them.
#pragma once

#include <optional>
#include <string>

#include "entries/master_data.h"

namespace kelvane::entries {

// MasterData::FindLineItem() on the account, over gConn. Errors are thrown.
std::optional<LineItem> LookUpLineItem(DetailKind kind, LineField by, const std::string& sought,
                                       const std::string& elementName, const std::string& ownCode);

}  // namespace kelvane::entries
