// What adapters say in English, in the language of the system: they know nothing of it.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::host {

// `reason`, an adapter's, whose parts stand between colons ("list.csv: it is a folder"): each part
// that the adapters or the system's own library say is translated, the names among them stay.
std::string TranslatedReason(std::string_view reason);

}  // namespace kelvane::host
