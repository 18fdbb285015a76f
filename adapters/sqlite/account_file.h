// Looks at an account file before the engine touches it, so that a file that is no account stays
// exactly as it is.
#pragma once

#include <cstdint>
#include <string>

namespace kelvane::sqlite {

// Throws platform::DatabaseError, in Chinese and with the file's name, when the file is missing, is
// no account, is cut off, was made by a newer program or cannot be written, and as
// RequirePlainCompanions() does.
void RequireAccountFile(const std::string& path);

// Throws the same for the numbers by which a file says that it is an account, and of which layout.
void RequireLayout(const std::string& path, std::int64_t applicationId, std::int64_t version);

}  // namespace kelvane::sqlite
