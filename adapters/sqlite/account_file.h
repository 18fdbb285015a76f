// Looks at an account file before the engine touches it, so that a file that is no account stays
// exactly as it is.
#pragma once

#include <cstdint>
#include <string>

namespace kelvane::sqlite {

// Throws platform::DatabaseError, in Chinese and with the file's name, when the file is missing, is
// no account, is cut off or was made by a newer program, and as RequirePlainCompanions() does.
void RequireAccountFile(const std::string& path);

// Whether a file or folder cannot be written, be it that nobody is allowed to.
bool IsWriteProtected(const std::string& path);

// Throws the same for the numbers by which a file says that it is an account, and of which layout.
void RequireLayout(const std::string& path, std::int64_t applicationId, std::int64_t version);

}  // namespace kelvane::sqlite
