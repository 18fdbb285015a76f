#include "adapters/database/buffered_record_set.h"

#include <string>
#include <utility>

#include "adapters/database/refusals.h"
#include "adapters/tsql/values/value_conversion.h"
#include "platform/ascii.h"

namespace kelvane::database {

using platform::Value;

BufferedRecordSet::BufferedRecordSet(tsql::PackedRows rows, std::shared_ptr<const Columns> columns,
                                     bool changeable, std::unique_ptr<RowWriter> writer)
    : mRows(std::move(rows)),
      mColumns(columns ? std::move(columns) : std::make_shared<const Columns>()),
      mChangeable(changeable),
      mWriter(std::move(writer)) {}

void BufferedRecordSet::RequireOpen() const {
    if (!mWriter) throw RecordSetIsClosed();
}

void BufferedRecordSet::RequireRow() const {
    RequireOpen();
    if (EndOfFile()) throw NoCurrentRecord();
}

bool BufferedRecordSet::EndOfFile() const {
    RequireOpen();
    return mRow >= mRows.RowCount();
}

void BufferedRecordSet::MoveTo(std::size_t row) {
    mRow = row;
    mChanges.clear();
    mWritten.clear();
}

void BufferedRecordSet::MoveFirst() {
    RequireOpen();
    MoveTo(0);
}

void BufferedRecordSet::MoveNext() {
    RequireOpen();
    if (!EndOfFile()) MoveTo(mRow + 1);
}

long BufferedRecordSet::RecordCount() const {
    RequireOpen();
    return static_cast<long>(mRows.RowCount());
}

int BufferedRecordSet::FieldCount() const {
    RequireOpen();
    return static_cast<int>(mColumns->size());
}

const tsql::ResultColumn& BufferedRecordSet::Column(int index) const {
    return (*mColumns)[static_cast<std::size_t>(index)];
}

int BufferedRecordSet::IndexOf(std::string_view name) const {
    for (int i = 0; i < FieldCount(); ++i) {
        if (!name.empty() && platform::EqualIgnoringCase(Column(i).name, name)) return i;
    }
    throw NoSuchItem("'" + std::string(name) + "'");
}

tsql::Datum BufferedRecordSet::Known(int column) const {
    const auto written = mWritten.find(column);
    return written == mWritten.end() ? mRows.At(mRow, column) : written->second;
}

const tsql::Datum* BufferedRecordSet::Changed(int column) const {
    const auto changed = mChanges.find(column);
    return changed == mChanges.end() ? nullptr : &changed->second;
}

Value BufferedRecordSet::Field(int index) const {
    RequireRow();
    if (index < 0 || index >= FieldCount()) throw NoSuchItem(std::to_string(index));
    const tsql::Datum* changed = Changed(index);
    return tsql::ToValue(changed != nullptr ? *changed : Known(index), Column(index).type);
}

Value BufferedRecordSet::Field(std::string_view name) const {
    RequireRow();
    return Field(IndexOf(name));
}

void BufferedRecordSet::SetField(std::string_view name, const Value& value) {
    RequireRow();
    const int index = IndexOf(name);
    const tsql::ResultColumn& column = Column(index);
    if (!mChangeable || column.baseColumn.empty()) throw NotChangeable(name);
    mChanges[index] = tsql::ToStored(value, column.type, column.baseColumn);
}

void BufferedRecordSet::Update() {
    RequireRow();
    if (mChanges.empty()) return;
    mWriter->Write(*this);
    for (auto& [index, value] : mChanges) mWritten[index] = std::move(value);
    mChanges.clear();
}

void BufferedRecordSet::Close() {
    RequireOpen();
    MoveTo(0);
    mRows = {};
    mColumns.reset();
    mWriter.reset();
}

}  // namespace kelvane::database
