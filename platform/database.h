// The account database as the component sees it: connections and record sets. Adapters implement
// both for one engine each. Everything is called on the user-interface thread.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/statement_text.h"
#include "platform/value.h"

namespace kelvane::platform {

// A statement or connection failed. what() is the engine's description, fit to be shown; it never
// contains a connection string.
class DatabaseError : public std::runtime_error {
public:
    explicit DatabaseError(const std::string& description, int nativeCode = 0)
        : std::runtime_error(description), mNativeCode(nativeCode) {}

    int NativeCode() const { return mNativeCode; }

private:
    int mNativeCode;
};

// Another operator holds what the statement needs and did not release it in time.
class DatabaseBusy : public DatabaseError {
public:
    using DatabaseError::DatabaseError;
};

// The connection is gone; nothing of an open transaction was kept.
class ConnectionLost : public DatabaseError {
public:
    using DatabaseError::DatabaseError;
};

// A commit whose answer was lost: the transaction may have been saved or not.
class CommitInDoubt : public DatabaseError {
public:
    using DatabaseError::DatabaseError;
};

enum class CursorLocation { Unspecified = -1, Server = 2, Client = 3 };
enum class CursorType { Unspecified = -1, ForwardOnly = 0, Static = 3 };
enum class LockType { Unspecified = -1, ReadOnly = 1, Pessimistic = 2, Optimistic = 3 };
enum class CommandType { Unspecified = -1, Text = 1 };

// Bit of State() that says "open".
inline constexpr int kStateOpen = 1;

struct RecordSetOptions {
    CursorLocation location = CursorLocation::Unspecified;
    CursorType cursor = CursorType::Unspecified;
    LockType lock = LockType::Unspecified;
    CommandType command = CommandType::Unspecified;
};

// The rows a query returned, with one current row. Column names are looked up without regard to
// letter case; unnamed columns are read by position.
//
// A record set opened with LockType::Pessimistic holds the lock on its rows from opening to closing
// or, inside a transaction, to the transaction's end; outside one, Update() is durable when it
// returns and closing without Update() changes nothing.
class RecordSet {
public:
    virtual ~RecordSet() = default;
    RecordSet() = default;
    RecordSet(const RecordSet&) = delete;
    RecordSet& operator=(const RecordSet&) = delete;

    virtual bool EndOfFile() const = 0;
    // On an empty set both leave it at its end.
    virtual void MoveFirst() = 0;
    virtual void MoveNext() = 0;
    virtual long RecordCount() const = 0;
    virtual int FieldCount() const = 0;

    // Fields of the current row. Throw DatabaseError at the end of the set, for an unknown name and
    // for an index outside 0 to FieldCount() - 1.
    virtual Value Field(int index) const = 0;
    virtual Value Field(std::string_view name) const = 0;

    // Sets a field of the current row; the database sees it at Update(). Throws DatabaseError when
    // the set was opened read-only or the column cannot be written.
    virtual void SetField(std::string_view name, const Value& value) = 0;
    virtual void Update() = 0;

    virtual void Close() = 0;
    virtual int State() const = 0;
};

// The change that is asked for right behind an announced query, by the query's place in the
// announcement and the first field of its answer, Null when there is no row; empty for none. The
// same whenever it is asked.
using ChangeBehind = std::function<StatementText(std::size_t query, const Value& first)>;

class Connection {
    friend class ConnectionDataAccess;
    friend class Snapshot;

public:
    virtual ~Connection() = default;
    Connection() = default;
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    virtual void SetConnectionString(std::string_view text) = 0;
    virtual void SetCursorLocation(CursorLocation location) = 0;
    // `options`: -1 is unspecified. Throws DatabaseError naming the account and what is wrong.
    virtual void Open(std::string_view user, std::string_view password, int options) = 0;
    virtual void Close() = 0;
    virtual int State() const = 0;

    // Runs a statement or a batch of statements; throws DatabaseError for the first that fails, and
    // MalformedStatement before anything reaches the database.
    void Execute(const StatementText& statement) { DoExecute(statement.Checked()); }

    // Runs a query. Never returns null. Throws as Execute() does.
    std::unique_ptr<RecordSet> OpenRecordSet(const StatementText& statement,
                                             const RecordSetOptions& options = {}) {
        return DoOpenRecordSet(statement.Checked(), options);
    }

    // A hint: `queries` are asked next, in this order, by OpenRecordSet() with `options`, and
    // nothing that is run in between changes their answers. A connection may send several in one
    // round trip and answer from that; each is still asked, and fails, for itself. Malformed ones
    // are left out. The hint ends with the last of them, with the next hint (an empty one ends it
    // alone), with Execute(), with a record set's Update() and where a transaction begins or ends.
    // Talks to nobody and changes nothing but time; a connection may ignore it.
    virtual void ReadAhead(std::span<const StatementText> /*queries*/,
                           const RecordSetOptions& /*options*/) {}

    // A hint that goes with the announcement before it and ends with it: behind which of its
    // queries a change is asked for, in the same way as they. A connection may make several of them
    // from the first one's query on, when they are done all or none and nobody is waited for; each
    // is still asked, and fails, for itself. One that makes each in its turn sees that the answers
    // before it are those of then.
    virtual void AnnounceChanges(ChangeBehind /*changeOf*/) {}

    // Transactions do not nest. Commit() throws CommitInDoubt when its answer was lost; after any
    // other error of Commit() nothing was saved.
    virtual void Begin() = 0;
    virtual void Commit() = 0;
    virtual void RollBack() = 0;

    // Begins a transaction that only reads, as of one moment: its first query's at the latest. What
    // others save afterwards is not seen, and a change inside it is refused with DatabaseError.
    // Ended by RollBack(). Snapshot is the scope for it.
    virtual void BeginSnapshot() = 0;

protected:
    virtual void DoExecute(const std::string& statement) = 0;
    virtual std::unique_ptr<RecordSet> DoOpenRecordSet(const std::string& statement,
                                                       const RecordSetOptions& options) = 0;

    // For a connection that stands in front of another one: hands a checked text on to `inner`.
    static void ForwardExecute(Connection& inner, const std::string& statement) {
        inner.DoExecute(statement);
    }
    static std::unique_ptr<RecordSet> ForwardOpenRecordSet(Connection& inner,
                                                           const std::string& statement,
                                                           const RecordSetOptions& options) {
        return inner.DoOpenRecordSet(statement, options);
    }

private:
    int mSnapshots = 0;  // scopes that are open, one within another
};

// A transaction as a scope: leaving it without Commit() rolls back.
class Transaction {
public:
    explicit Transaction(Connection& connection) : mConnection(connection) { mConnection.Begin(); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void Commit();
    void RollBack();

private:
    Connection& mConnection;
    bool mOpen = true;
};

// A scope in which the connection sees the account as of one moment and writes nothing. One within
// another of the same connection sees what that one sees. Throws as BeginSnapshot() does; leaving
// the scope throws nothing.
class Snapshot {
public:
    explicit Snapshot(Connection& connection);
    ~Snapshot();
    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

private:
    Connection& mConnection;
};

}  // namespace kelvane::platform
