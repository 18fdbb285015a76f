// SQL Server's dialect, which the statements are written in: they are sent as they stand. Needs
// nothing of the server but the dialect's plain statements, so that any server that speaks it does.
#pragma once

#include <string>
#include <vector>

#include "adapters/odbc/engine_dialect.h"
#include "adapters/odbc/odbc_connection.h"
#include "adapters/odbc/select_source.h"

namespace kelvane::odbc {

class SqlServerDialect : public EngineDialect {
public:
    explicit SqlServerDialect(const OdbcSettings& settings)
        : mLockTimeout(settings.lockTimeout), mKeys(settings.keys) {}

    void Prepare(Channel& channel) override;
    // Rows are locked by a statement of their own before the given one: an update that leaves a
    // column as it is, which every server takes the row's write lock for. Two readers with a shared
    // lock, as HOLDLOCK asks for, would end in a deadlock when both update; with it they queue.
    Plan PlanBatch(std::string_view batch, const Purpose& purpose, Channel& channel) override;
    // By row versions where the database keeps them; else what is read stays locked against other
    // writers, who wait.
    void BeforeSnapshot(Channel& channel) override;
    void AfterSnapshot(Channel& channel) override;
    // The row is found by its table's key, or by what it was chosen by and all its fields.
    RunStep PlanChange(const RowChange& change, Channel& channel) override;
    bool KeepTransaction(Channel& channel) override;

private:
    std::string LockText(const SelectSource& source) const;
    std::string RowCondition(const RowChange& change) const;

    int mLockTimeout;
    std::vector<TableKey> mKeys;
};

}  // namespace kelvane::odbc
