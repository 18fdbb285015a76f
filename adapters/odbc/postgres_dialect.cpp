#include "adapters/odbc/postgres_dialect.h"

#include <algorithm>
#include <utility>

#include "adapters/odbc/postgres_functions.h"
#include "adapters/tsql/language/definition.h"
#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/quoted_text.h"
#include "adapters/tsql/postgres/postgres_definition.h"

namespace kelvane::odbc {

namespace {

using tsql::QuotedName;

constexpr std::string_view kSavepoint = "savepoint kelvane_statement;";
constexpr std::string_view kRelease = ";release savepoint kelvane_statement;";
// How much text one call carries.
constexpr std::size_t kMaxStep = 262144;

bool IsQuery(const tsql::Translated& statement) {
    return statement.kind == tsql::Statement::Kind::Select;
}

// A statement that fails in a transaction goes back to here, and what ran before it is kept.
std::string Guarded(const std::string& text, bool inTransaction) {
    if (!inTransaction) return text;
    return std::string(kSavepoint) + text + std::string(kRelease);
}

}  // namespace

// The driver shall send a text as it is, in one call, without savepoints of its own, and give texts
// back with their line ends. It shall find out within a minute that the server's machine is gone.
std::string PostgresDialect::ConnectionKeywords() const {
    return "Protocol=7.4-0;UseServerSidePrepare=0;UseDeclareFetch=0;LFConversion=0;"
           "KeepaliveTime=30;KeepaliveInterval=10";
}

// The server finds out within a minute that a silent machine is gone, and frees what that held
// locked; by itself it would take two hours.
void PostgresDialect::Prepare(Channel& channel) {
    mCatalog.Clear();
    mKnown.Clear();
    channel.Run(
        "set client_encoding to 'UTF8';set standard_conforming_strings to on;"
        "set datestyle to 'ISO, YMD';set extra_float_digits to 3;set client_min_messages to "
        "warning;set default_transaction_isolation to 'read committed';set jit to off;"
        "set tcp_keepalives_idle to 30;set tcp_keepalives_interval to 10;"
        "set tcp_keepalives_count to 3;set lock_timeout to " +
        std::to_string(std::max(mLockTimeout, 0)));
}

std::shared_ptr<const tsql::Translation> PostgresDialect::Translated(bool changeable,
                                                                     tsql::RowLocks locks) {
    const How how{changeable, locks};
    if (const auto known = mKnown.Find(mText, how)) return known->translation;
    tsql::PostgresWriter writer(locks);
    auto batch = std::make_shared<database::TranslatedBatch>();
    batch->translation =
        database::Translate(mText, mCatalog, writer, changeable, [this] { mCatalog.Clear(); });
    mKnown.Add(mText, how, batch);
    return batch->translation;
}

// Inside a transaction the steps from `firstStep` on go together in one call: each has its own
// savepoint, so that the one that fails is undone alone and nothing behind it runs.
void PostgresDialect::AddStatement(Plan& plan, const tsql::TranslatedStatement& statement,
                                   const Purpose& purpose, std::size_t firstStep) {
    const tsql::Translated& translated = statement.translated;
    if (statement.error) {
        plan.steps.push_back({.text = {}, .error = statement.error});
        return;
    }
    if (translated.text.empty()) return;
    std::string text;
    try {
        text = Guarded(tsql::FilledForPostgres(translated, mText.literals), purpose.inTransaction);
    } catch (const platform::DatabaseError& error) {
        plan.steps.push_back({.text = {}, .error = error});
        return;
    }
    const bool hasRows = std::any_of(plan.steps.begin(), plan.steps.end(),
                                     [](const RunStep& step) { return step.givesRows; });
    const bool givesRows = IsQuery(translated) && purpose.wantsRows && !hasRows;
    const bool joins = purpose.inTransaction && plan.steps.size() > firstStep &&
                       !plan.steps.back().error &&
                       plan.steps.back().text.size() + text.size() < kMaxStep;
    if (!joins) plan.steps.push_back({});
    RunStep& step = plan.steps.back();
    step.text += text;
    if (!givesRows) return;
    step.givesRows = true;
    step.columns = translated.columns;
    step.hiddenColumns = translated.hasRowIdentity ? 1 : 0;
    if (translated.hasRowIdentity) plan.source = {translated.table, ""};
}

Plan PostgresDialect::PlanBatch(std::string_view batch, const Purpose& purpose, Channel& channel) {
    mCatalog.Use(channel);
    tsql::Lex(batch, mText);
    if (tsql::IsDefinition(mText)) return PlanDefinitions();
    tsql::RowLocks locks;
    locks.all = purpose.locks && purpose.inTransaction;
    locks.held = purpose.inTransaction;
    locks.noWait = purpose.lockAgain;
    Plan plan;
    plan.changes = false;
    const auto addLocks = [&] {
        tsql::RowLocks alone = locks;
        alone.only = true;
        const auto locking = Translated(false, alone);
        for (const auto& statement : locking->statements) {
            if (!IsQuery(statement.translated) || statement.error) continue;
            AddStatement(plan, statement, {.inTransaction = purpose.inTransaction}, 0);
        }
    };
    if (purpose.lockAgain) {
        addLocks();
        return plan;
    }
    const auto translation = Translated(purpose.changeable, locks);
    const auto& statements = translation->statements;
    plan.rowsLocked = locks.all;
    if (std::any_of(statements.begin(), statements.end(),
                    [](const auto& statement) { return statement.translated.locksLeft; })) {
        addLocks();
    }
    const std::size_t firstStep = plan.steps.size();
    for (const tsql::TranslatedStatement& statement : statements) {
        plan.changes = plan.changes || !IsQuery(statement.translated);
        AddStatement(plan, statement, purpose, firstStep);
    }
    return plan;
}

Plan PostgresDialect::PlanDefinitions() {
    Plan plan;
    for (const tsql::Definition& definition : tsql::ParseDefinitions(mText)) {
        const bool isNew = definition.kind == tsql::Definition::Kind::CreateTable;
        const auto table = isNew ? nullptr : mCatalog.FindTable(definition.table);
        std::string text = tsql::WrittenForPostgres(definition, table.get());
        if (isNew && !mHasFunctions) {
            plan.steps.push_back({.text = PostgresFunctions()});
            mHasFunctions = true;
        }
        plan.steps.push_back({.text = std::move(text)});
    }
    mCatalog.Clear();
    mKnown.Clear();
    return plan;
}

// The server takes a text for one transaction. Who would wait in the middle of it for a lock could
// make others wait for him, and be the end of a deadlock that the steps alone cannot have.
std::string PostgresDialect::AllOrNone(const std::vector<RunStep>& steps) const {
    std::string text = "set local lock_timeout to 1";
    for (const RunStep& step : steps) text += ';' + step.text;
    return text;
}

void PostgresDialect::AtSnapshot(Channel& channel) {
    channel.Run("set transaction isolation level repeatable read, read only");
}

// The savepoint is not released in the same text: the driver tells the number of changed rows of
// the text's last statement, and that has to be the update.
RunStep PostgresDialect::PlanChange(const RowChange& change, Channel& channel) {
    std::string text =
        channel.InTransaction() ? std::string(kSavepoint) + "update " : std::string("update ");
    text += QuotedName(change.source.table) + " set ";
    std::string unchanged;
    for (const RowChange::Column& column : change.changed) {
        const std::string name = QuotedName(column.name);
        if (&column != &change.changed.front()) text += ", ";
        text += name + " = " + tsql::PostgresLiteral(column.value, column.type);
        if (change.locked) continue;
        unchanged += " and " + name + " is not distinct from " +
                     tsql::PostgresLiteral(column.original, column.type);
    }
    mCatalog.Use(channel);
    const auto table = mCatalog.FindTable(change.source.table);
    if (!table || change.hidden.empty()) throw tsql::UnknownTable(change.source.table);
    text += " where " + QuotedName(table->rowColumn) + " = " +
            tsql::PostgresLiteral(change.hidden.front(), {tsql::Type::Kind::BigInt, 0}) + unchanged;
    return {.text = text};
}

bool PostgresDialect::KeepTransaction(Channel& channel) {
    try {
        channel.Run("rollback to savepoint kelvane_statement;release savepoint kelvane_statement;");
        return true;
    } catch (const platform::DatabaseError&) {
        return false;
    }
}

}  // namespace kelvane::odbc
