// What is on the clipboard, as far as it may be a table.
#pragma once

#include <string>

namespace kelvane::ui {

// Whether a text that was copied is more than one cell. Needs gServices->tableImport.
bool IsCopiedTable(const std::string& text);

}  // namespace kelvane::ui
