// Texts of an account as a page shows them: whatever bytes they have, each letter can be drawn.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::output {

// `text` with U+FFFD for every byte that is no UTF-8 and for what cannot be shown on one line.
std::string ReadableUtf8(std::string_view text);

}  // namespace kelvane::output
