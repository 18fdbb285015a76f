// PostgreSQL behind ODBC: the dialect's statements are translated, each runs behind a savepoint
// inside a transaction, so that one that fails leaves the transaction open, and the server's errors
// get the dialect's numbers.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "adapters/database/translation_cache.h"
#include "adapters/odbc/engine_dialect.h"
#include "adapters/odbc/odbc_connection.h"
#include "adapters/odbc/postgres_catalog.h"
#include "adapters/tsql/postgres/postgres_writer.h"

namespace kelvane::odbc {

class PostgresDialect : public EngineDialect {
public:
    explicit PostgresDialect(const OdbcSettings& settings) : mLockTimeout(settings.lockTimeout) {}

    std::string ConnectionKeywords() const override;
    void Prepare(Channel& channel) override;
    Plan PlanBatch(std::string_view batch, const Purpose& purpose, Channel& channel) override;
    std::string AllOrNone(const std::vector<RunStep>& steps) const override;
    void AtSnapshot(Channel& channel) override;
    RunStep PlanChange(const RowChange& change, Channel& channel) override;
    Failure Judge(const Diagnostic& diagnostic) const override;
    bool KeepTransaction(Channel& channel) override;

private:
    // What beside its text decides how a batch is translated.
    struct How {
        bool changeable = false;
        tsql::RowLocks locks;

        friend bool operator==(const How&, const How&) = default;
    };

    std::shared_ptr<const tsql::Translation> Translated(bool changeable, tsql::RowLocks locks);
    Plan PlanDefinitions();
    void AddStatement(Plan& plan, const tsql::TranslatedStatement& statement,
                      const Purpose& purpose, std::size_t firstStep);

    int mLockTimeout;
    bool mHasFunctions = false;  // made anew by this connection
    PostgresCatalog mCatalog;
    tsql::LexedText mText;  // of the batch that is being planned
    database::TranslationCache<database::TranslatedBatch, How> mKnown;
};

}  // namespace kelvane::odbc
