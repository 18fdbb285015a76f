// How an account file that may have been prepared by somebody else is kept from doing anything of
// its own: what the engine is forbidden, and how large things may be.
#pragma once

struct sqlite3;

namespace kelvane::sqlite {

// The longest value or row that is read or written, in bytes. The widest row of an account's own
// tables takes a few kilobytes.
inline constexpr int kMaxValueSize = 1 << 20;

// Switches off triggers, views, foreign key actions, extensions and texts in double quotes, keeps
// the schema from being written and its functions from being trusted, and sets the limits. For a
// handle that has run no statement yet. Throws platform::DatabaseError when the engine refuses.
void Harden(sqlite3* handle);

}  // namespace kelvane::sqlite
