#include "adapters/odbc/dialects.h"

#include "adapters/odbc/sql_server_dialect.h"

namespace kelvane::odbc {

DatabaseEngine EngineNamed(std::string_view name) {
    return name == "PostgreSQL" ? DatabaseEngine::PostgreSql : DatabaseEngine::SqlServer;
}

std::unique_ptr<EngineDialect> MakeDialect(DatabaseEngine, const OdbcSettings& settings) {
    return std::make_unique<SqlServerDialect>(settings);
}

}  // namespace kelvane::odbc
