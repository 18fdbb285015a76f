// A person's folders are closed to others on Windows, and what is made in them inherits that.

#include "host/surroundings/private_files.h"

namespace kelvane::host {

void MakePrivateFile(const std::filesystem::path& /*path*/) {}

}  // namespace kelvane::host
