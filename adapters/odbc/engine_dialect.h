// What one database engine does in its own way behind ODBC: the language its statements are sent
// in, how it locks rows, and what its failures mean. Everything else is OdbcConnection's.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/odbc/failures.h"
#include "adapters/odbc/result_rows.h"
#include "platform/database.h"

namespace kelvane::odbc {

// A statement's way to the engine, for what a dialect has to ask or set by itself.
class Channel {
public:
    virtual ~Channel() = default;
    // Runs a text in the engine's own language up to the end of its last result; returns the rows
    // of the first result that has any columns. Throws as Connection::Execute() does.
    virtual ResultRows Run(const std::string& text) = 0;
    virtual bool InTransaction() const = 0;
};

// What a batch is run for.
struct Purpose {
    bool wantsRows = false;
    bool changeable = false;  // the rows are opened to be changed
    // The rows stay locked against other writers: LockType::Pessimistic.
    bool locks = false;
    // With `locks`: the lock alone is wanted, no rows.
    bool lockOnly = false;
    // With `locks`: rather no lock at all than one after waiting for others.
    bool lockAgain = false;
    bool inTransaction = false;
};

// One call of the driver: one or more statements of the engine's language.
struct RunStep {
    std::string text = {};
    // The rows of its first result are the batch's result, unless an earlier step gave one.
    bool givesRows = false;
    // What the result's columns are. Empty: as the driver describes them.
    std::vector<tsql::ResultColumn> columns = {};
    // Of columns that the driver describes: those of the source's table that they are, an empty
    // name for a computed one. Empty: each is the one of its own name.
    std::vector<std::string> baseColumns = {};
    // Columns behind those, which the record set does not show: the row's identity.
    int hiddenColumns = 0;
    // Thrown instead of sending the text, once the steps before are done.
    std::optional<platform::DatabaseError> error = {};
};

// Where the rows of a changeable result come from.
struct RowSource {
    std::string table;      // empty: the rows cannot be changed
    std::string condition;  // that the rows were chosen by, in the engine's language; may be empty
};

struct Plan {
    std::vector<RunStep> steps;
    RowSource source;
    bool changes = true;      // something in the batch is no query
    bool rowsLocked = false;  // the steps keep the source's rows locked to the transaction's end
};

// A change to one row of a result. Amounts are texts with four decimals, dates texts too.
struct RowChange {
    struct Column {
        std::string name;  // the table's
        tsql::Type type;
        tsql::Datum value;
        tsql::Datum original;
    };
    const RowSource& source;
    std::vector<Column> changed = {};
    // The whole row as it was read or last written, for finding it: the result's columns that come
    // from the table (value and original are the same), and what lies behind them.
    std::vector<Column> row = {};
    std::vector<tsql::Datum> hidden = {};
    // Nobody else can have changed the row since it was read: only it has to be found.
    bool locked = false;
};

class EngineDialect {
public:
    virtual ~EngineDialect() = default;
    EngineDialect() = default;
    EngineDialect(const EngineDialect&) = delete;
    EngineDialect& operator=(const EngineDialect&) = delete;

    // Keywords the driver needs beside those of the connection string: "A=1;B=0"; empty: none.
    virtual std::string ConnectionKeywords() const { return {}; }
    // After every connecting, outside a transaction: the session's settings.
    virtual void Prepare(Channel& channel) = 0;

    // How to run a batch of the dialect. Throws DatabaseError for what makes the dialect refuse the
    // whole batch.
    virtual Plan PlanBatch(std::string_view batch, const Purpose& purpose, Channel& channel) = 0;
    // Outside a transaction: a text that does all the steps or none of them, and none rather than
    // wait for others' locks. Empty: there is no such text.
    virtual std::string AllOrNone(const std::vector<RunStep>& /*steps*/) const { return {}; }
    // Around a transaction that sees one moment and only reads: before it, at its start and,
    // outside of it again, behind it. What fails ends the transaction.
    virtual void BeforeSnapshot(Channel& /*channel*/) {}
    virtual void AtSnapshot(Channel& /*channel*/) {}
    virtual void AfterSnapshot(Channel& /*channel*/) {}

    // The step that makes a change, exactly one row of it. The connection checks the row count.
    virtual RunStep PlanChange(const RowChange& change, Channel& channel) = 0;

    virtual Failure Judge(const Diagnostic& diagnostic) const { return FailureOf(diagnostic); }
    // After a step failed inside a transaction: true when the transaction goes on without what the
    // step did, false when the engine has undone it all.
    virtual bool KeepTransaction(Channel& channel) = 0;
};

}  // namespace kelvane::odbc
