// The file name that an operator gave a file dialog, made whole with the ending of the kind of file
// that was chosen beside it.
#pragma once

#include <string>
#include <vector>

#include "platform/print_surroundings.h"

namespace kelvane::desktop {

// `path` with `chosen`'s ending, unless it has an ending already: one of `types`, or another that
// looks like one (letters alone, not more than four). The ending of `offered`, the kind that the
// dialog opened with, gives way when another kind was chosen. All UTF-8.
std::string WithEnding(const std::string& path, const platform::FileType& offered,
                       const platform::FileType& chosen,
                       const std::vector<platform::FileType>& types);

// `name` without the ending of one of `types`.
std::string WithoutEnding(const std::string& name, const std::vector<platform::FileType>& types);

// The kinds of files as the toolkit's file dialog wants them; upper case endings are shown too.
std::string FilterOf(const std::vector<platform::FileType>& types);

}  // namespace kelvane::desktop
