// The embedded account database: platform::Connection on a SQLite account file.
//
// The connection string is "Data Source=PATH" with an optional ";Timeout=MILLISECONDS" (5000 when
// it is not given: how long a statement waits for another operator's lock), or a plain path.
// PATH may stand in double quotes. User and password are ignored: who may use the account is who
// may use its file.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/database.h"

namespace kelvane::sqlite {

// A connection that is not open yet. `requiredTables`: Open() refuses an account that lacks one of
// them. Open() also refuses, with a text in Chinese that names the file and without changing
// anything, a file that is missing, is no account, is damaged or is read-only, that holds triggers
// or other code of its own, or whose companions are no plain files; it throws
// platform::DatabaseBusy when another program keeps the file locked.
//
// Several connections to one file, in one process or in many, are the normal case. Begin() takes
// the account's write lock; so does a record set opened with LockType::Pessimistic. Who has to
// wait for longer than the timeout gets platform::DatabaseBusy.
std::shared_ptr<platform::Connection> CreateConnection(
    std::vector<std::string> requiredTables = {});

}  // namespace kelvane::sqlite
