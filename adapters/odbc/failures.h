// What a failure that a driver reports means for the program, on whatever engine: who asks for a
// classification asks here, so that a time-out is one wherever it comes from.
#pragma once

#include <string>

namespace kelvane::odbc {

// What a driver says of a failure.
struct Diagnostic {
    std::string state;  // SQLSTATE, five characters
    int native = 0;
    std::string text;  // without the names in brackets that drivers put in front
};

enum class FailureKind {
    Statement,          // of the statement alone
    Busy,               // others hold what it needs
    TransactionUndone,  // Busy, and the engine has undone the whole transaction: a deadlock's
                        // victim
    ConnectionLost,
};

struct Failure {
    FailureKind kind = FailureKind::Statement;
    int code = 0;      // the dialect's number where it has one for this, else the engine's
    std::string text;  // fit to be shown
};

// The dialect's numbers.
inline constexpr int kDeadlock = 1205;
inline constexpr int kLockTimeout = 1222;

// The failure's kind by the first of these that tells one: its SQLSTATE, its number, the words that
// a server says it with where it has neither; else it is a failed statement. Its number and text
// are the driver's own, but a lock's time-out and a deadlock have the dialect's number.
Failure FailureOf(const Diagnostic& diagnostic);

// Throws the library's error for a failure: DatabaseBusy, ConnectionLost, DatabaseError.
[[noreturn]] void Throw(const Failure& failure);

}  // namespace kelvane::odbc
