// What was found in a table and told of it, as programs read it.
#pragma once

#include <nlohmann/json.hpp>
#include <vector>

#include "entries/bulk/table_reading.h"

namespace kelvane::host {

// Arrays of objects, in their order.
nlohmann::ordered_json JsonOf(const std::vector<entries::PlacedFinding>& findings);
nlohmann::ordered_json JsonOf(const std::vector<entries::TableNote>& notes);

}  // namespace kelvane::host
