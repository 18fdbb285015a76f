// Pinyin initials of Chinese characters: what an operator types to find a name without writing it.
#pragma once

#include <string_view>

namespace kelvane::platform {

// The initials that `character` is read with, in small letters: the customary reading's first, then
// those of its other readings ("cz" for one that is read two ways). Empty for what is no Chinese
// character and for one whose reading is not known.
std::string_view PinyinInitials(char32_t character);

}  // namespace kelvane::platform
