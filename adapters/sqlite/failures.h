// What the engine's failures mean to the operator of an account: the one place where result codes
// become errors and texts.
#pragma once

#include <string>

#include "platform/database.h"

namespace kelvane::sqlite {

struct Failure {
    int code = 0;       // the engine's extended result code
    std::string text;   // the engine's own
    std::string path;   // of the account file
    std::string table;  // that was to be changed, if any
};

// Throws DatabaseBusy when others hold a lock, DatabaseError otherwise: with the dialect's numbers
// for duplicate keys (2627) and Nulls (515), in Chinese and with the file's name for what is wrong
// with the file.
[[noreturn]] void Throw(const Failure& failure);

// Throws what a failed commit means: CommitInDoubt when the file may hold it nevertheless.
[[noreturn]] void ThrowFromCommit(const Failure& failure);

// The account file cannot be used: "账套文件 PATH REASON".
platform::DatabaseError AccountError(const std::string& path, const std::string& reason);

}  // namespace kelvane::sqlite
