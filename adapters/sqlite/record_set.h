// The rows of a query on the embedded account: a snapshot taken when it was opened, whose rows can
// be changed when they come from one table as they stand.
#pragma once

#include <map>
#include <memory>

#include "adapters/sqlite/session.h"
#include "platform/database.h"

namespace kelvane::sqlite {

class SqliteRecordSet : public platform::RecordSet {
public:
    // `lock`: LockType::Pessimistic means that the caller has added a locker to the session's
    // Transactions when `holdsLock`; closing the set removes it.
    SqliteRecordSet(const std::shared_ptr<Session>& session, Result result, platform::LockType lock,
                    bool holdsLock);
    ~SqliteRecordSet() override;

    bool EndOfFile() const override;
    void MoveFirst() override;
    void MoveNext() override;
    long RecordCount() const override;
    int FieldCount() const override;
    platform::Value Field(int index) const override;
    platform::Value Field(std::string_view name) const override;
    void SetField(std::string_view name, const platform::Value& value) override;
    void Update() override;
    void Close() override;
    int State() const override;

private:
    const std::vector<tsql::ResultColumn>& Columns() const;
    int IndexOf(std::string_view name) const;
    void RequireOpen() const;
    void RequireRow() const;
    void MoveTo(std::size_t row);

    std::weak_ptr<Session> mSession;
    Result mResult;
    platform::LockType mLock;
    bool mHoldsLock;
    bool mOpen = true;
    std::size_t mRow = 0;
    std::map<int, tsql::Datum> mChanges;  // of the current row, as stored, by column
    std::map<int, tsql::Datum> mWritten;  // of the current row, what Update() has written
};

}  // namespace kelvane::sqlite
