// The file name that an operator gave a file dialog, made whole with the extension of the kind of
// file that was chosen beside it.
#pragma once

#include <string>
#include <vector>

#include "platform/print_surroundings.h"

namespace kelvane::desktop {

// `path` with `chosen`'s extension, unless it has an extension already: one of `types`, or another
// that looks like one (letters alone, not more than four). The extension of `offered`, the kind
// that the dialog opened with, gives way when another kind was chosen. All UTF-8.
std::string WithExtension(const std::string& path, const platform::FileType& offered,
                          const platform::FileType& chosen,
                          const std::vector<platform::FileType>& types);

// `name` without the extension of one of `types`.
std::string WithoutExtension(const std::string& name, const std::vector<platform::FileType>& types);

// The kinds of files as the toolkit's file dialog wants them; upper case extensions are shown too.
std::string FilterOf(const std::vector<platform::FileType>& types);

}  // namespace kelvane::desktop
