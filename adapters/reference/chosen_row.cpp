#include "adapters/reference/chosen_row.h"

#include <utility>

namespace kelvane::reference {

using platform::DatabaseError;
using platform::Value;

ChosenRow::ChosenRow(std::unique_ptr<platform::RecordSet> source, std::size_t row)
    : mSource(std::move(source)) {
    mSource->MoveFirst();
    for (std::size_t passed = 0; passed < row; ++passed) mSource->MoveNext();
    if (mSource->EndOfFile()) throw DatabaseError("the chosen row is no longer there");
}

void ChosenRow::NeedRow() const {
    if (mPast) throw DatabaseError("no current row");
}

Value ChosenRow::Field(int index) const {
    NeedRow();
    return mSource->Field(index);
}

Value ChosenRow::Field(std::string_view name) const {
    NeedRow();
    return mSource->Field(name);
}

void ChosenRow::SetField(std::string_view name, const Value& /*value*/) {
    throw DatabaseError("the row of a pick list cannot be written: " + std::string(name));
}

void ChosenRow::Update() {
    throw DatabaseError("the row of a pick list cannot be written");
}

}  // namespace kelvane::reference
