#include "adapters/odbc/dialects.h"

#include "adapters/odbc/postgres_dialect.h"
#include "adapters/odbc/sql_server_dialect.h"

namespace kelvane::odbc {

DatabaseEngine EngineNamed(std::string_view name) {
    return name == "PostgreSQL" ? DatabaseEngine::PostgreSql : DatabaseEngine::SqlServer;
}

std::unique_ptr<EngineDialect> MakeDialect(DatabaseEngine engine, const OdbcSettings& settings) {
    if (engine == DatabaseEngine::PostgreSql) return std::make_unique<PostgresDialect>(settings);
    return std::make_unique<SqlServerDialect>(settings);
}

}  // namespace kelvane::odbc
