// Writes changed rows of a record set to the account file, and gives its lock back.
#pragma once

#include <memory>
#include <string>

#include "adapters/database/buffered_record_set.h"
#include "adapters/sqlite/session.h"

namespace kelvane::sqlite {

class FileRowWriter : public database::RowWriter {
public:
    // `locks`: adds a locker to the session's transactions, which waits for others, and removes it
    // in the end. Throws DatabaseBusy.
    FileRowWriter(const std::shared_ptr<Session>& session, bool locks);
    ~FileRowWriter() override;

    // `table`: the rows'; empty when they cannot be changed. `lockedIn`: their Result's.
    void SetRows(const std::string& table, long lockedIn);

    // Throws DatabaseError, also when the connection is closed.
    void Write(const database::BufferedRecordSet& set) override;

private:
    std::weak_ptr<Session> mSession;
    bool mLocks;
    std::string mTable;
    long mLockedIn = 0;
};

}  // namespace kelvane::sqlite
