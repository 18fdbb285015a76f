#include "adapters/odbc/server_row_writer.h"

#include <utility>

#include "adapters/database/refusals.h"

namespace kelvane::odbc {

ServerRowWriter::ServerRowWriter(const std::shared_ptr<Session>& session, const Result& result,
                                 std::optional<Session::Locker> locker)
    : mSession(session),
      mSource(result.source),
      mHiddenColumns(result.rows.hiddenColumns),
      mLockedIn(result.lockedIn),
      mLocker(locker) {}

ServerRowWriter::~ServerRowWriter() {
    const std::shared_ptr<Session> session = mSession.lock();
    if (mLocker && session) session->RemoveLocker(*mLocker);
}

void ServerRowWriter::Write(const database::BufferedRecordSet& set) {
    const std::shared_ptr<Session> session = mSession.lock();
    if (!session) throw database::RecordSetWithoutConnection();
    RowChange change{.source = mSource};
    for (int i = 0; i < set.FieldCount(); ++i) {
        const tsql::ResultColumn& column = set.Column(i);
        if (column.baseColumn.empty()) continue;
        const tsql::Datum known = set.Known(i);
        change.row.push_back({column.baseColumn, column.type, known, known});
        const tsql::Datum* changed = set.Changed(i);
        if (changed == nullptr) continue;
        change.changed.push_back({column.baseColumn, column.type, *changed, known});
    }
    for (int i = 0; i < mHiddenColumns; ++i) {
        change.hidden.push_back(set.Known(set.FieldCount() + i));
    }
    session->Change(std::move(change), mLockedIn);
}

}  // namespace kelvane::odbc
