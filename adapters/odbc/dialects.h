// The dialects this program knows, by engine.
#pragma once

#include <memory>
#include <string_view>

#include "adapters/odbc/engine_dialect.h"
#include "adapters/odbc/odbc_connection.h"

namespace kelvane::odbc {

// The engine that calls itself `name` (SQL_DBMS_NAME). SQL Server's dialect serves unknown names.
DatabaseEngine EngineNamed(std::string_view name);

std::unique_ptr<EngineDialect> MakeDialect(DatabaseEngine engine, const OdbcSettings& settings);

}  // namespace kelvane::odbc
