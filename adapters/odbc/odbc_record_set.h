// The rows of a query on a server: read whole when it was opened, changeable when they come from
// one table as they stand.
#pragma once

#include <map>
#include <memory>
#include <optional>

#include "adapters/odbc/session.h"
#include "platform/database.h"

namespace kelvane::odbc {

class OdbcRecordSet : public platform::RecordSet {
public:
    // `locker`: what closing the set gives back, if anything.
    OdbcRecordSet(const std::shared_ptr<Session>& session, Result result, platform::LockType lock,
                  std::optional<Session::Locker> locker);
    ~OdbcRecordSet() override;

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

    // What the result's column is; throws as Field() does.
    const tsql::ResultColumn& Column(int index) const;

private:
    int IndexOf(std::string_view name) const;
    void RequireOpen() const;
    void RequireRow() const;
    void MoveTo(std::size_t row);
    // The current row's field as the database has it.
    tsql::Datum Known(int index) const;

    std::weak_ptr<Session> mSession;
    Result mResult;
    platform::LockType mLock;
    std::optional<Session::Locker> mLocker;
    bool mOpen = true;
    std::size_t mRow = 0;
    std::map<int, tsql::Datum> mChanges;  // of the current row, as stored, by column
    std::map<int, tsql::Datum> mWritten;  // of the current row, what Update() has written
};

}  // namespace kelvane::odbc
