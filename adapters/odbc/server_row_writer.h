// Writes changed rows of a record set to the server, and gives the lock of its rows back.
#pragma once

#include <memory>
#include <optional>

#include "adapters/database/buffered_record_set.h"
#include "adapters/odbc/session.h"

namespace kelvane::odbc {

class ServerRowWriter : public database::RowWriter {
public:
    // `result`: what the rows are read with. `locker`: what keeps them locked, if anything; the
    // writer removes it in the end.
    ServerRowWriter(const std::shared_ptr<Session>& session, const Result& result,
                    std::optional<Session::Locker> locker);
    ~ServerRowWriter() override;

    // Throws DatabaseError, also when the connection is closed.
    void Write(const database::BufferedRecordSet& set) override;

private:
    std::weak_ptr<Session> mSession;
    RowSource mSource;
    int mHiddenColumns;
    long mLockedIn;
    std::optional<Session::Locker> mLocker;
};

}  // namespace kelvane::odbc
