// An account that the fuzz targets run statements on; whatever one of them does is undone again.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/sqlite/catalog.h"
#include "adapters/sqlite/session.h"
#include "tests/database/sqlite_account.h"

namespace kelvane::fuzz {

class ProbeAccount {
public:
    // With the tables of support::ProbingTables() and some rows in Probe and Coded.
    ProbeAccount();

    // One for the whole process: creating it takes longer than thousands of statements.
    static ProbeAccount& Shared();

    // Runs a batch of the dialect and undoes it. A statement may be refused with the dialect's
    // numbers and the engine may end it for its length; anything else is a broken promise.
    // `counts`: the statement may neither add nor remove rows.
    void Run(const std::string& batch, bool counts);

    sqlite::Database& Engine() { return mSession.Engine(); }
    tsql::Catalog& Catalog() { return mCatalog; }

private:
    std::vector<std::int64_t> Shape();

    database_test::ScratchFolder mFolder;
    sqlite::Session mSession;
    sqlite::SqliteCatalog mCatalog;
    std::vector<std::int64_t> mShape;
};

// Whether a refusal of the engine says no more than that a statement is too long or too deep.
bool IsLimit(const platform::DatabaseError& error);

}  // namespace kelvane::fuzz
