#include "adapters/sqlite/hardening.h"

#include <sqlite3.h>

#include "platform/database.h"

namespace kelvane::sqlite {

namespace {

struct Switch {
    int which;
    int on;
};

constexpr Switch kSwitches[] = {
    {SQLITE_DBCONFIG_ENABLE_TRIGGER, 0}, {SQLITE_DBCONFIG_ENABLE_VIEW, 0},
    {SQLITE_DBCONFIG_ENABLE_FKEY, 0},    {SQLITE_DBCONFIG_ENABLE_LOAD_EXTENSION, 0},
    {SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0}, {SQLITE_DBCONFIG_DEFENSIVE, 1},
    {SQLITE_DBCONFIG_DQS_DML, 0},        {SQLITE_DBCONFIG_DQS_DDL, 0},
};

struct Limit {
    int which;
    int most;
};

constexpr Limit kLimits[] = {
    {SQLITE_LIMIT_LENGTH, kMaxValueSize}, {SQLITE_LIMIT_SQL_LENGTH, kMaxValueSize},
    {SQLITE_LIMIT_COLUMN, 500},           {SQLITE_LIMIT_VDBE_OP, 1'000'000},
    {SQLITE_LIMIT_ATTACHED, 0},           {SQLITE_LIMIT_TRIGGER_DEPTH, 1},
    {SQLITE_LIMIT_WORKER_THREADS, 0},
};

}  // namespace

void Harden(sqlite3* handle) {
    for (const Switch& change : kSwitches) {
        int state = -1;
        const int code = sqlite3_db_config(handle, change.which, change.on, &state);
        if (code != SQLITE_OK || state != change.on) {
            throw platform::DatabaseError("数据库引擎不能安全地打开账套文件", code);
        }
    }
    for (const Limit& limit : kLimits) sqlite3_limit(handle, limit.which, limit.most);
}

}  // namespace kelvane::sqlite
