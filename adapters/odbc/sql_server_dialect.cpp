#include "adapters/odbc/sql_server_dialect.h"

#include <algorithm>

#include "adapters/odbc/literal_text.h"
#include "platform/ascii.h"

namespace kelvane::odbc {

namespace {

using platform::EqualIgnoringCase;

// Long texts cannot be compared.
bool IsComparable(const tsql::Type& type) {
    return !type.IsText() || type.length > 0;
}

std::string Equals(const RowChange::Column& column) {
    const std::string name = NameText(column.name);
    if (std::holds_alternative<std::monostate>(column.original)) return name + " is null";
    return name + " = " + LiteralText(column.original, column.type);
}

const RowChange::Column* FindColumn(const std::vector<RowChange::Column>& columns,
                                    std::string_view name) {
    const auto found = std::find_if(columns.begin(), columns.end(), [&](const auto& column) {
        return EqualIgnoringCase(column.name, name);
    });
    return found == columns.end() ? nullptr : &*found;
}

void Require(std::string& condition, const std::string& more) {
    if (!condition.empty()) condition += " and ";
    condition += more;
}

bool KeepsRowVersions(Channel& channel) {
    try {
        const ResultRows state = channel.Run(
            "select snapshot_isolation_state from sys.databases where name = db_name()");
        return state.RowCount() == 1 && state.At(0, 0) == tsql::Datum(std::int64_t{1});
    } catch (const platform::ConnectionLost&) {
        throw;
    } catch (const platform::DatabaseError&) {
        return false;  // a server that has no such view, or does not show it
    }
}

}  // namespace

void SqlServerDialect::Prepare(Channel& channel) {
    try {
        channel.Run("set lock_timeout " + std::to_string(mLockTimeout));
    } catch (const platform::ConnectionLost&) {
        throw;
    } catch (const platform::DatabaseError&) {
        // A server without it is held to the time-out of its statements.
    }
}

void SqlServerDialect::BeforeSnapshot(Channel& channel) {
    constexpr std::string_view kSet = "set transaction isolation level ";
    channel.Run(std::string(kSet) + (KeepsRowVersions(channel) ? "snapshot" : "serializable"));
}

void SqlServerDialect::AfterSnapshot(Channel& channel) {
    channel.Run("set transaction isolation level read committed");
}

std::string SqlServerDialect::LockText(const SelectSource& source) const {
    const auto named = std::find_if(source.columns.begin(), source.columns.end(),
                                    [](const std::string& name) { return !name.empty(); });
    const std::string& column = named == source.columns.end() ? source.conditionColumn : *named;
    if (column.empty()) return {};
    const std::string name = NameText(column);
    std::string text = "update " + NameText(source.table) + " set " + name + " = " + name;
    if (!source.condition.empty()) text += " where " + source.condition;
    return text;
}

Plan SqlServerDialect::PlanBatch(std::string_view batch, const Purpose& purpose, Channel&) {
    const BatchReading reading = ReadBatch(batch);
    Plan plan;
    plan.changes = !reading.onlyQueries;
    RunStep statement{.text = std::string(batch), .givesRows = true};
    if (reading.source) {
        const SelectSource& source = *reading.source;
        statement.baseColumns = source.columns;
        plan.source = {source.table, source.condition};
        const bool locks = purpose.locks || (purpose.changeable && source.holdsLock);
        const std::string lock = locks && purpose.inTransaction ? LockText(source) : std::string();
        plan.rowsLocked = !lock.empty();
        if (plan.rowsLocked) plan.steps.push_back({.text = lock});
    }
    if (!purpose.lockOnly) plan.steps.push_back(std::move(statement));
    return plan;
}

std::string SqlServerDialect::RowCondition(const RowChange& change) const {
    std::string condition;
    const auto key = std::find_if(mKeys.begin(), mKeys.end(), [&](const TableKey& known) {
        return EqualIgnoringCase(known.table, change.source.table);
    });
    const bool keyed = key != mKeys.end() && !key->columns.empty() &&
                       std::all_of(key->columns.begin(), key->columns.end(), [&](const auto& name) {
                           return FindColumn(change.row, name) != nullptr;
                       });
    if (keyed) {
        for (const std::string& name : key->columns) {
            Require(condition, Equals(*FindColumn(change.row, name)));
        }
    } else if (!change.source.condition.empty()) {
        condition = '(' + change.source.condition + ')';
    }
    if (keyed && change.locked) return condition;
    for (const RowChange::Column& column : keyed ? change.changed : change.row) {
        if (IsComparable(column.type)) Require(condition, Equals(column));
    }
    return condition;
}

RunStep SqlServerDialect::PlanChange(const RowChange& change, Channel&) {
    std::string text = "update " + NameText(change.source.table) + " set ";
    for (const RowChange::Column& column : change.changed) {
        if (&column != &change.changed.front()) text += ", ";
        text += NameText(column.name) + " = " + LiteralText(column.value, column.type);
    }
    if (const std::string condition = RowCondition(change); !condition.empty()) {
        text += " where " + condition;
    }
    return {.text = text};
}

bool SqlServerDialect::KeepTransaction(Channel& channel) {
    try {
        const ResultRows answer = channel.Run("select @@trancount");
        if (answer.RowCount() == 0) return true;
        return tsql::Datum(std::int64_t{0}) != answer.At(0, 0);
    } catch (const platform::ConnectionLost&) {
        return false;
    } catch (const platform::DatabaseError&) {
        // A server that does not count them keeps the transaction.
        return true;
    }
}

}  // namespace kelvane::odbc
