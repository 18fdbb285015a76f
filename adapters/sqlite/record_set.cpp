#include "adapters/sqlite/record_set.h"

#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/values/value_conversion.h"
#include "platform/ascii.h"

namespace kelvane::sqlite {

using platform::DatabaseError;
using platform::LockType;
using platform::Value;

SqliteRecordSet::SqliteRecordSet(const std::shared_ptr<Session>& session, Result result,
                                 LockType lock, bool holdsLock)
    : mSession(session), mResult(std::move(result)), mLock(lock), mHoldsLock(holdsLock) {}

SqliteRecordSet::~SqliteRecordSet() {
    if (mOpen) SqliteRecordSet::Close();
}

const std::vector<tsql::ResultColumn>& SqliteRecordSet::Columns() const {
    static const std::vector<tsql::ResultColumn> kNone;
    return mResult.origin ? mResult.origin->columns : kNone;
}

void SqliteRecordSet::RequireOpen() const {
    if (!mOpen) throw DatabaseError("Operation is not allowed when the record set is closed.");
}

void SqliteRecordSet::RequireRow() const {
    RequireOpen();
    if (EndOfFile()) throw DatabaseError("There is no current record.");
}

bool SqliteRecordSet::EndOfFile() const {
    RequireOpen();
    return mRow >= mResult.rows.RowCount();
}

void SqliteRecordSet::MoveTo(std::size_t row) {
    mRow = row;
    mChanges.clear();
    mWritten.clear();
}

void SqliteRecordSet::MoveFirst() {
    RequireOpen();
    MoveTo(0);
}

void SqliteRecordSet::MoveNext() {
    RequireOpen();
    if (!EndOfFile()) MoveTo(mRow + 1);
}

long SqliteRecordSet::RecordCount() const {
    RequireOpen();
    return static_cast<long>(mResult.rows.RowCount());
}

int SqliteRecordSet::FieldCount() const {
    RequireOpen();
    return static_cast<int>(Columns().size());
}

int SqliteRecordSet::IndexOf(std::string_view name) const {
    const auto& columns = Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (!name.empty() && platform::EqualIgnoringCase(columns[i].name, name)) {
            return static_cast<int>(i);
        }
    }
    throw DatabaseError("Item '" + std::string(name) + "' cannot be found in the record set.");
}

Value SqliteRecordSet::Field(int index) const {
    RequireRow();
    if (index < 0 || index >= static_cast<int>(Columns().size())) {
        throw DatabaseError("Item " + std::to_string(index) +
                            " cannot be found in the record set.");
    }
    const tsql::Type type = Columns()[static_cast<std::size_t>(index)].type;
    for (const auto* newer : {&mChanges, &mWritten}) {
        const auto found = newer->find(index);
        if (found != newer->end()) return tsql::ToValue(found->second, type);
    }
    return tsql::ToValue(mResult.rows.At(mRow, index), type);
}

Value SqliteRecordSet::Field(std::string_view name) const {
    RequireRow();
    return Field(IndexOf(name));
}

void SqliteRecordSet::SetField(std::string_view name, const Value& value) {
    RequireRow();
    const int index = IndexOf(name);
    const tsql::ResultColumn& column = Columns()[static_cast<std::size_t>(index)];
    if (mLock == LockType::ReadOnly || !mResult.origin->hasRowIdentity ||
        column.baseColumn.empty()) {
        throw DatabaseError("The record set or the column '" + std::string(name) +
                            "' cannot be changed.");
    }
    mChanges[index] = tsql::ToStored(value, column.type, column.baseColumn);
}

void SqliteRecordSet::Update() {
    RequireRow();
    if (mChanges.empty()) return;
    const std::shared_ptr<Session> session = mSession.lock();
    if (!session) throw DatabaseError("The connection is closed.");
    RowChange change;
    change.table = mResult.origin->table;
    const int identityColumn = static_cast<int>(Columns().size());
    change.identity = std::get<std::int64_t>(mResult.rows.At(mRow, identityColumn));
    const bool locked =
        session->Lock().IsExplicit() || (mHoldsLock && session->Lock().IsLockHeld());
    change.compareOriginals = !locked;
    for (const auto& [index, value] : mChanges) {
        const auto written = mWritten.find(index);
        change.columns.push_back(
            {Columns()[static_cast<std::size_t>(index)].baseColumn, value,
             written == mWritten.end() ? mResult.rows.At(mRow, index) : written->second});
    }
    session->Change(change);
    for (auto& [index, value] : mChanges) mWritten[index] = std::move(value);
    mChanges.clear();
}

void SqliteRecordSet::Close() {
    RequireOpen();
    mOpen = false;
    mResult = {};
    mChanges.clear();
    mWritten.clear();
    if (!mHoldsLock) return;
    if (const std::shared_ptr<Session> session = mSession.lock()) session->Lock().RemoveLocker();
}

int SqliteRecordSet::State() const {
    return mOpen ? platform::kStateOpen : 0;
}

}  // namespace kelvane::sqlite
