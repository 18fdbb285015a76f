// The rows of a query as an ADO record set holds them, of the component's own connection or of the
// host's.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "adapters/com/ado_session.h"
#include "adapters/com/dispatch_object.h"
#include "platform/database.h"

namespace kelvane::com {

class AdoRecordSet : public platform::RecordSet {
public:
    // `records`: open. `session`: whose connection they come from; null for a host's.
    AdoRecordSet(DispatchObject records, std::shared_ptr<AdoSession> session);
    ~AdoRecordSet() override;

    bool EndOfFile() const override;
    void MoveFirst() override;
    void MoveNext() override;
    // Throws DatabaseError when the record set cannot count its rows.
    long RecordCount() const override;
    int FieldCount() const override;
    platform::Value Field(int index) const override;
    platform::Value Field(std::string_view name) const override;
    void SetField(std::string_view name, const platform::Value& value) override;
    void Update() override;
    void Close() override;
    int State() const override;

private:
    // Does `work` on the object; what ADO refuses becomes the library's error.
    template <typename Work>
    auto On(Work work) const;
    platform::Value ValueOf(const DispatchObject& field) const;
    const DispatchObject& FieldAt(int index) const;
    const DispatchObject& FieldNamed(std::string_view name) const;
    bool Flag(const char* property) const;
    void DropChange();

    DispatchObject mRecords;
    std::shared_ptr<AdoSession> mSession;
    DispatchObject mFields;
    mutable std::map<int, DispatchObject> mByIndex;
    mutable std::map<std::string, DispatchObject, std::less<>> mByName;
    bool mChanged = false;
};

// What a query answered, as a record set: an open one as it is; Nothing, and one that is closed
// because the statement gave no rows, as a set without rows. Throws platform::DatabaseError when it
// is anything else; `source` names who answered.
std::unique_ptr<platform::RecordSet> TakeRecordSet(const Variant& answer,
                                                   std::shared_ptr<AdoSession> session,
                                                   const std::string& source);

}  // namespace kelvane::com
