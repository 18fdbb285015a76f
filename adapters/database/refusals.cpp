#include "adapters/database/refusals.h"

namespace kelvane::database {

DatabaseError ConnectionIsOpen() {
    return DatabaseError("The connection is open already.");
}

DatabaseError ConnectionIsClosed() {
    return DatabaseError("Operation is not allowed when the connection is closed.");
}

DatabaseError TransactionIsOpen() {
    return DatabaseError("A transaction is open already.", 3901);
}

DatabaseError NoTransaction() {
    return DatabaseError("There is no transaction.", 3902);
}

DatabaseError OnlyReading() {
    return DatabaseError("The transaction only reads: nothing can be changed or locked in it.",
                         3906);
}

DatabaseError TransactionUndone() {
    return DatabaseError("The transaction was undone by an earlier error.", 3930);
}

DatabaseError RecordSetIsClosed() {
    return DatabaseError("Operation is not allowed when the record set is closed.");
}

DatabaseError NoCurrentRecord() {
    return DatabaseError("There is no current record.");
}

DatabaseError NoSuchItem(const std::string& item) {
    return DatabaseError("Item " + item + " cannot be found in the record set.");
}

DatabaseError NotChangeable(std::string_view column) {
    return DatabaseError("The record set or the column '" + std::string(column) +
                         "' cannot be changed.");
}

DatabaseError RecordSetWithoutConnection() {
    return DatabaseError("The connection is closed.");
}

DatabaseError RowGone() {
    return DatabaseError(
        "Row cannot be located for updating. Some values may have been changed since it was last "
        "read.");
}

DatabaseError ManyRowsChanged() {
    return DatabaseError(
        "Key column information is insufficient or incorrect. Too many rows were affected by "
        "update.");
}

}  // namespace kelvane::database
