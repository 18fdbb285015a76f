// The pick lists for a host that brings none of its own: what it hands over for them, and how it
// gets them. The lists themselves are ReferenceListService's.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/host.h"
#include "platform/reference_list.h"
#include "platform/user_settings.h"
#include "platform/windows.h"

namespace kelvane::reference {

// What the lists run on. All of it outlives them.
struct ListSurroundings {
    platform::Windows& windows;
    // The account, for the lists that are handed a login.
    std::function<platform::HostDataAccess&()> dataAccess;
    // The code of the duty centre whose items the restricted item list offers. That list's
    // statement comes without the table it selects from; the service adds it with this code.
    // Empty: that query fails.
    std::function<std::string()> currentCenter;
    // Keeps the operator's own column widths and sizes of the lists; may be null.
    platform::UserSettings* userSettings = nullptr;
};

// For Services::createReferenceList. The lists show the rows in a window of `surroundings.windows`,
// which has to be able to show a controls::Form.
std::unique_ptr<platform::ReferenceList> MakeReferenceLists(ListSurroundings surroundings);

}  // namespace kelvane::reference
