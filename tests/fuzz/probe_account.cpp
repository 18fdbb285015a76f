#include "tests/fuzz/probe_account.h"

#include <sqlite3.h>

#include "adapters/tsql/language/errors.h"
#include "tests/fuzz/fuzz.h"

namespace kelvane::fuzz {

namespace {

constexpr std::string_view kRows[] = {
    "INSERT INTO Probe (id, c, n, i, t, s, b, m, f, d) VALUES (1, 'one', N'一', 1, 1, 1, 1, 1.5, "
    "0.5, '2004-06-01')",
    "INSERT INTO Probe (id, c, n, i, t, s, b, m, f, d) VALUES (2, 'TWO ', N'Ünf', -7, 255, -32768, "
    "0, -922337203685477.5808, -1e300, '1999-12-31 23:59:59')",
    "INSERT INTO Probe (id) VALUES (3)",
    "INSERT INTO Coded (code, name) VALUES ('a', 'A')",
    "INSERT INTO Coded (code, name) VALUES ('b', '')",
};

std::string NewAccount(const database_test::ScratchFolder& folder) {
    const std::string path = folder.Path("probe.kelvane");
    database_test::CreateSqliteAccount(path);
    return path;
}

}  // namespace

ProbeAccount::ProbeAccount() : mSession(NewAccount(mFolder), 0), mCatalog(mSession.Engine()) {
    Engine().Run("pragma synchronous = off");
    Engine().SetStatementBound(std::chrono::milliseconds(200));
    for (const std::string_view row : kRows) mSession.Run(row, false, false);
    mShape = Shape();
}

ProbeAccount& ProbeAccount::Shared() {
    static ProbeAccount account;
    return account;
}

void ProbeAccount::Run(const std::string& batch, bool counts) {
    mSession.Transactions().Begin();
    try {
        mSession.Run(batch, true, true);
    } catch (const platform::DatabaseError& error) {
        const bool dialects = error.NativeCode() >= tsql::error::kSyntax;
        Require(dialects || IsLimit(error), "the engine refused what was translated",
                batch + "\n" + error.what());
    }
    if (counts) Require(Shape() == mShape, "rows and tables are as before", batch);
    mSession.Transactions().RollBack();
}

std::vector<std::int64_t> ProbeAccount::Shape() {
    std::vector<std::int64_t> shape;
    for (const char* query : {"select count(*) from sqlite_schema", "pragma schema_version",
                              "select count(*) from Probe", "select count(*) from Coded"}) {
        shape.push_back(Engine().Number(query));
    }
    return shape;
}

bool IsLimit(const platform::DatabaseError& error) {
    const int primary = error.NativeCode() & 0xFF;
    if (primary == SQLITE_TOOBIG || primary == SQLITE_INTERRUPT) return true;
    const std::string_view text = error.what();
    for (const std::string_view limit : {"too large", "too many", "stack overflow"}) {
        if (text.find(limit) != std::string_view::npos) return true;
    }
    return false;
}

}  // namespace kelvane::fuzz
