#include "adapters/odbc/odbc_record_set.h"

#include <utility>

#include "adapters/tsql/values/value_conversion.h"
#include "platform/ascii.h"

namespace kelvane::odbc {

using platform::DatabaseError;
using platform::LockType;
using platform::Value;

OdbcRecordSet::OdbcRecordSet(const std::shared_ptr<Session>& session, Result result, LockType lock,
                             std::optional<Session::Locker> locker)
    : mSession(session), mResult(std::move(result)), mLock(lock), mLocker(locker) {}

OdbcRecordSet::~OdbcRecordSet() {
    if (mOpen) OdbcRecordSet::Close();
}

const tsql::ResultColumn& OdbcRecordSet::Column(int index) const {
    return mResult.rows.columns[static_cast<std::size_t>(index)];
}

void OdbcRecordSet::RequireOpen() const {
    if (!mOpen) throw DatabaseError("Operation is not allowed when the record set is closed.");
}

void OdbcRecordSet::RequireRow() const {
    RequireOpen();
    if (EndOfFile()) throw DatabaseError("There is no current record.");
}

bool OdbcRecordSet::EndOfFile() const {
    RequireOpen();
    return mRow >= mResult.rows.RowCount();
}

void OdbcRecordSet::MoveTo(std::size_t row) {
    mRow = row;
    mChanges.clear();
    mWritten.clear();
}

void OdbcRecordSet::MoveFirst() {
    RequireOpen();
    MoveTo(0);
}

void OdbcRecordSet::MoveNext() {
    RequireOpen();
    if (!EndOfFile()) MoveTo(mRow + 1);
}

long OdbcRecordSet::RecordCount() const {
    RequireOpen();
    return static_cast<long>(mResult.rows.RowCount());
}

int OdbcRecordSet::FieldCount() const {
    RequireOpen();
    return static_cast<int>(mResult.rows.columns.size()) - mResult.rows.hiddenColumns;
}

int OdbcRecordSet::IndexOf(std::string_view name) const {
    for (int i = 0; i < FieldCount(); ++i) {
        if (!name.empty() && platform::EqualIgnoringCase(Column(i).name, name)) return i;
    }
    throw DatabaseError("Item '" + std::string(name) + "' cannot be found in the record set.");
}

tsql::Datum OdbcRecordSet::Known(int index) const {
    const auto written = mWritten.find(index);
    return written == mWritten.end() ? mResult.rows.At(mRow, index) : written->second;
}

Value OdbcRecordSet::Field(int index) const {
    RequireRow();
    if (index < 0 || index >= FieldCount()) {
        throw DatabaseError("Item " + std::to_string(index) +
                            " cannot be found in the record set.");
    }
    const auto changed = mChanges.find(index);
    return tsql::ToValue(changed == mChanges.end() ? Known(index) : changed->second,
                         Column(index).type);
}

Value OdbcRecordSet::Field(std::string_view name) const {
    RequireRow();
    return Field(IndexOf(name));
}

void OdbcRecordSet::SetField(std::string_view name, const Value& value) {
    RequireRow();
    const int index = IndexOf(name);
    const tsql::ResultColumn& column = Column(index);
    if (mLock == LockType::ReadOnly || mResult.source.table.empty() || column.baseColumn.empty()) {
        throw DatabaseError("The record set or the column '" + std::string(name) +
                            "' cannot be changed.");
    }
    mChanges[index] = tsql::ToStored(value, column.type, column.baseColumn);
}

void OdbcRecordSet::Update() {
    RequireRow();
    if (mChanges.empty()) return;
    const std::shared_ptr<Session> session = mSession.lock();
    if (!session) throw DatabaseError("The connection is closed.");
    RowChange change{.source = mResult.source};
    for (int i = 0; i < FieldCount(); ++i) {
        const tsql::ResultColumn& column = Column(i);
        if (column.baseColumn.empty()) continue;
        const tsql::Datum known = Known(i);
        change.row.push_back({column.baseColumn, column.type, known, known});
        const auto changed = mChanges.find(i);
        if (changed == mChanges.end()) continue;
        change.changed.push_back({column.baseColumn, column.type, changed->second, known});
    }
    for (int i = 0; i < mResult.rows.hiddenColumns; ++i) {
        change.hidden.push_back(mResult.rows.At(mRow, FieldCount() + i));
    }
    session->Change(std::move(change), mResult.lockedIn);
    for (auto& [index, value] : mChanges) mWritten[index] = std::move(value);
    mChanges.clear();
}

void OdbcRecordSet::Close() {
    RequireOpen();
    mOpen = false;
    mResult = {};
    mChanges.clear();
    mWritten.clear();
    if (!mLocker) return;
    if (const std::shared_ptr<Session> session = mSession.lock()) session->RemoveLocker(*mLocker);
}

int OdbcRecordSet::State() const {
    return mOpen ? platform::kStateOpen : 0;
}

}  // namespace kelvane::odbc
