// The rows of a query, read whole when it was opened: the current row, its fields by name and
// place, and what is set in it until Update() gives it to whoever writes rows to the engine.
#pragma once

#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "adapters/tsql/translation.h"
#include "adapters/tsql/values/packed_rows.h"
#include "platform/database.h"

namespace kelvane::database {

class BufferedRecordSet;

// An engine's end of a record set. It is gone with the set or when the set is closed, and gives
// back what has kept the rows locked.
class RowWriter {
public:
    virtual ~RowWriter() = default;
    RowWriter() = default;
    RowWriter(const RowWriter&) = delete;
    RowWriter& operator=(const RowWriter&) = delete;

    // Writes what is set in the current row of `set`, which is something. Throws DatabaseError.
    virtual void Write(const BufferedRecordSet& set) = 0;
};

class BufferedRecordSet final : public platform::RecordSet {
public:
    using Columns = std::vector<tsql::ResultColumn>;

    // `columns`: those that a caller sees, null for none; `rows` may have more behind them.
    // `changeable`: the fields with a base column can be set. `writer` is not null.
    BufferedRecordSet(tsql::PackedRows rows, std::shared_ptr<const Columns> columns,
                      bool changeable, std::unique_ptr<RowWriter> writer);

    bool EndOfFile() const override;
    void MoveFirst() override;
    void MoveNext() override;
    long RecordCount() const override;
    int FieldCount() const override;
    platform::Value Field(int index) const override;
    platform::Value Field(std::string_view name) const override;
    void SetField(std::string_view name, const platform::Value& value) override;
    // Nothing that is set is nothing to write.
    void Update() override;
    void Close() override;
    int State() const override { return mWriter ? platform::kStateOpen : 0; }

    // What the column, which exists, is.
    const tsql::ResultColumn& Column(int index) const;
    // The current row's field as the database has it, as it was read or last written. Also of the
    // columns behind those that a caller sees.
    tsql::Datum Known(int column) const;
    // What is set in the current row's field, as it will be stored; null when nothing is.
    const tsql::Datum* Changed(int column) const;

private:
    int IndexOf(std::string_view name) const;
    void RequireOpen() const;
    void RequireRow() const;
    void MoveTo(std::size_t row);

    tsql::PackedRows mRows;
    std::shared_ptr<const Columns> mColumns;
    bool mChangeable;
    std::unique_ptr<RowWriter> mWriter;  // null: closed
    std::size_t mRow = 0;
    std::map<int, tsql::Datum> mChanges;  // of the current row, by column
    std::map<int, tsql::Datum> mWritten;  // likewise, what Update() has written
};

}  // namespace kelvane::database
