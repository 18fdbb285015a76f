// Pick lists: the operator chooses a code instead of knowing it.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kelvane::ui {

// Kinds of pick list.
inline constexpr std::int16_t kCenterReference = 0;
inline constexpr std::int16_t kItemReference = 1;
inline constexpr std::int16_t kElementReference = 2;
inline constexpr std::int16_t kEquipmentReference = 108;
inline constexpr std::int16_t kInventoryReference = 110;

// Shows the pick list of `kind` and sets `code`, then `description`, from the chosen row; both stay
// as they are when nothing was chosen, for an unknown kind and after an error, and each of them
// when its own columns cannot be read. Errors are trapped. The item list is restricted by
// gRefByCenter. The caption query runs over gEnv; the list's own statement is run by the pick-list
// service. `present` is what the cell or field has now; the list opens on its row.
void SelectReference(std::int16_t kind, std::string& code, std::string& description,
                     std::string_view present);

}  // namespace kelvane::ui
