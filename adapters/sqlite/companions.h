// The files that the engine keeps beside an account while somebody has it open.
#pragma once

#include <string>

namespace kelvane::sqlite {

inline constexpr const char* kCompanionEndings[] = {"-wal", "-shm", "-journal"};

// The file that `path` names in the end: the companions of an account that is opened through a
// symbolic link lie beside the account. A link that leads nowhere stays as it is.
std::string RealPath(const std::string& path);

// Throws DatabaseError, with the companion's name, for one that is no plain file: the engine would
// wait at a pipe for ever, and write wherever a link leads.
void RequirePlainCompanions(const std::string& path);

// Whether there is a journal with changes that were never finished: who opens the account undoes
// them in the file.
bool HasUnfinishedChanges(const std::string& path);

// Whether the log holds what may not be in the file yet.
bool HasLog(const std::string& path);

}  // namespace kelvane::sqlite
