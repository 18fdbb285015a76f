// ChosenRow: one row of a record set as a record set of its own, with all the query's columns.
#pragma once

#include <cstddef>
#include <memory>

#include "platform/database.h"

namespace kelvane::reference {

class ChosenRow : public platform::RecordSet {
public:
    // Takes `source`, which has a row number `row` (from 0). Throws DatabaseError.
    ChosenRow(std::unique_ptr<platform::RecordSet> source, std::size_t row);

    bool EndOfFile() const override { return mPast; }
    void MoveFirst() override { mPast = false; }
    void MoveNext() override { mPast = true; }
    long RecordCount() const override { return 1; }
    int FieldCount() const override { return mSource->FieldCount(); }
    platform::Value Field(int index) const override;
    platform::Value Field(std::string_view name) const override;

    // Both throw DatabaseError: a chosen row is read.
    void SetField(std::string_view name, const platform::Value& value) override;
    void Update() override;

    void Close() override { mSource->Close(); }
    int State() const override { return mSource->State(); }

private:
    void NeedRow() const;

    std::unique_ptr<platform::RecordSet> mSource;  // stays on the chosen row
    bool mPast = false;
};

}  // namespace kelvane::reference
