// What every account database refuses in the same words, whatever its engine: an operator and a
// host see one text for one mistake.
#pragma once

#include <string>
#include <string_view>

#include "platform/database.h"

namespace kelvane::database {

using platform::DatabaseError;

DatabaseError ConnectionIsOpen();
DatabaseError ConnectionIsClosed();

DatabaseError TransactionIsOpen();
DatabaseError NoTransaction();
// In a transaction that only reads.
DatabaseError OnlyReading();
// An error has ended the transaction that is still to be committed or rolled back.
DatabaseError TransactionUndone();

DatabaseError RecordSetIsClosed();
DatabaseError NoCurrentRecord();
// `item`: a name in apostrophes, or a place.
DatabaseError NoSuchItem(const std::string& item);
DatabaseError NotChangeable(std::string_view column);
DatabaseError RecordSetWithoutConnection();
DatabaseError RowGone();
DatabaseError ManyRowsChanged();

}  // namespace kelvane::database
