// GB18030, in which programs of China write texts, made UTF-8 by the system.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::tables {

// The length of the character that `text`, which is not empty, begins with, from 1 to 4; 0 when
// nothing begins so; more than `text` has when it is cut off.
std::size_t Gb18030Length(std::string_view text);

// Appends `text`, characters that are not cut off, to `utf8`. False when one of them is none.
bool AppendGb18030(std::string_view text, std::string& utf8);

}  // namespace kelvane::tables
