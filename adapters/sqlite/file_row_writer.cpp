#include "adapters/sqlite/file_row_writer.h"

#include "adapters/database/refusals.h"

namespace kelvane::sqlite {

FileRowWriter::FileRowWriter(const std::shared_ptr<Session>& session, bool locks)
    : mSession(session), mLocks(locks) {
    if (locks) session->Transactions().AddLocker();
}

FileRowWriter::~FileRowWriter() {
    const std::shared_ptr<Session> session = mSession.lock();
    if (mLocks && session) session->Transactions().RemoveLocker();
}

void FileRowWriter::SetRows(const std::string& table, long lockedIn) {
    mTable = table;
    mLockedIn = lockedIn;
}

void FileRowWriter::Write(const database::BufferedRecordSet& set) {
    const std::shared_ptr<Session> session = mSession.lock();
    if (!session) throw database::RecordSetWithoutConnection();
    RowChange change;
    change.table = mTable;
    change.identity = std::get<std::int64_t>(set.Known(set.FieldCount()));
    for (int i = 0; i < set.FieldCount(); ++i) {
        const tsql::Datum* changed = set.Changed(i);
        if (changed == nullptr) continue;
        change.columns.push_back({set.Column(i).baseColumn, *changed, set.Known(i)});
    }
    session->Change(change, mLockedIn);
}

}  // namespace kelvane::sqlite
