// What a statement without rows gives: a record set that is at its end.
#pragma once

#include "platform/database.h"

namespace kelvane::com {

class RowlessSet : public platform::RecordSet {
public:
    bool EndOfFile() const override { return true; }
    void MoveFirst() override {}
    void MoveNext() override {}
    long RecordCount() const override { return 0; }
    int FieldCount() const override { return 0; }
    platform::Value Field(int /*index*/) const override { throw NoRow(); }
    platform::Value Field(std::string_view /*name*/) const override { throw NoRow(); }
    void SetField(std::string_view /*name*/, const platform::Value& /*value*/) override {
        throw NoRow();
    }
    void Update() override { throw NoRow(); }
    void Close() override { mState = 0; }
    int State() const override { return mState; }

private:
    static platform::DatabaseError NoRow() { return platform::DatabaseError("记录集没有当前记录"); }

    int mState = platform::kStateOpen;
};

}  // namespace kelvane::com
