// Looks at an account file before the engine touches it, so that a file that is no account stays
// exactly as it is.
#pragma once

#include <string>

namespace kelvane::sqlite {

// Throws platform::DatabaseError, in Chinese and with the file's name, when the file is missing, is
// no account, is cut off, was made by a newer program or cannot be written.
void RequireAccountFile(const std::string& path);

}  // namespace kelvane::sqlite
