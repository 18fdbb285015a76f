// A record set of rows that a test writes down.
#pragma once

#include <algorithm>
#include <cctype>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database.h"

namespace kelvane::support {

class MemoryRecordSet : public platform::RecordSet {
public:
    using Row = std::vector<platform::Value>;

    MemoryRecordSet(std::vector<std::string> names, std::vector<Row> rows)
        : mNames(std::move(names)), mRows(std::move(rows)) {}

    bool EndOfFile() const override { return mAt >= mRows.size(); }
    void MoveFirst() override { mAt = 0; }
    void MoveNext() override { mAt = std::min(mAt + 1, mRows.size()); }
    long RecordCount() const override { return static_cast<long>(mRows.size()); }
    int FieldCount() const override { return static_cast<int>(mNames.size()); }

    platform::Value Field(int index) const override {
        if (EndOfFile()) throw platform::DatabaseError("no current row");
        if (index < 0 || index >= FieldCount()) throw platform::DatabaseError("no such column");
        return mRows[mAt][static_cast<std::size_t>(index)];
    }
    platform::Value Field(std::string_view name) const override {
        const auto found = std::find_if(mNames.begin(), mNames.end(), [&](const auto& known) {
            return std::equal(known.begin(), known.end(), name.begin(), name.end(), SameLetter);
        });
        return Field(found == mNames.end() ? -1 : static_cast<int>(found - mNames.begin()));
    }

    void SetField(std::string_view /*name*/, const platform::Value& /*value*/) override {
        throw platform::DatabaseError("read-only");
    }
    void Update() override { throw platform::DatabaseError("read-only"); }
    void Close() override { mOpen = false; }
    int State() const override { return mOpen ? platform::kStateOpen : 0; }

private:
    static bool SameLetter(unsigned char left, unsigned char right) {
        return std::tolower(left) == std::tolower(right);
    }

    std::vector<std::string> mNames;
    std::vector<Row> mRows;
    std::size_t mAt = 0;
    bool mOpen = true;
};

// A row of texts.
inline MemoryRecordSet::Row TextRow(const std::vector<std::string>& texts) {
    MemoryRecordSet::Row row;
    for (const std::string& text : texts) row.emplace_back(text);
    return row;
}

}  // namespace kelvane::support
