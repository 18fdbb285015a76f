#include "adapters/sqlite/session.h"

#include <utility>

#include "adapters/database/refusals.h"
#include "adapters/tsql/sqlite/sqlite_name.h"

namespace kelvane::sqlite {

namespace {

using tsql::Translated;

constexpr const char* kSavepoint = "savepoint kelvane_statement";
constexpr const char* kRelease = "release kelvane_statement";
constexpr const char* kUndo = "rollback to kelvane_statement";

// Undoes what a statement did before it failed, as the engine itself does only for its own errors.
class StatementScope {
public:
    StatementScope(Database& database, bool needed) : mDatabase(database), mOpen(needed) {
        if (mOpen) mDatabase.Run(kSavepoint);
    }
    ~StatementScope() {
        if (!mOpen || !mDatabase.InTransaction()) return;
        mDatabase.TryRun(kUndo);
        mDatabase.TryRun(kRelease);
    }
    StatementScope(const StatementScope&) = delete;
    StatementScope& operator=(const StatementScope&) = delete;

    void Keep() {
        if (std::exchange(mOpen, false)) mDatabase.Run(kRelease);
    }

private:
    Database& mDatabase;
    bool mOpen;
};

// The engine found a table or column missing that our catalog still knew.
bool IsSchemaFailure(Database& database, int code) {
    if (code == SQLITE_SCHEMA) return true;
    if (code != SQLITE_ERROR || database.HasFunctionError()) return false;
    return std::string_view(sqlite3_errmsg(database.Handle())).starts_with("no such ");
}

}  // namespace

void Session::Forget() {
    mCache.Clear();
    mCatalog.Clear();
}

std::shared_ptr<PreparedBatch> Session::Prepare(bool changeable) {
    if (std::shared_ptr<PreparedBatch> known = mCache.Find(mText, changeable)) return known;
    auto batch = std::make_shared<PreparedBatch>();
    batch->translation =
        database::Translate(mText, mCatalog, mWriter, changeable, [this] { Forget(); });
    batch->prepared.resize(batch->translation->statements.size());
    mCache.Add(mText, changeable, batch);
    return batch;
}

Statement& Session::PreparedAt(PreparedBatch& batch, std::size_t place) {
    Statement& statement = batch.prepared[place];
    if (statement) return statement;
    const auto textAt = [&](std::size_t at) -> const std::string& {
        return batch.translation->statements[at].translated.text;
    };
    // Neighbours that differ in their values alone take turns with one prepared statement.
    if (place > 0 && textAt(place) == textAt(place - 1)) {
        statement = std::move(batch.prepared[place - 1]);
    }
    if (!statement) statement = Statement(mDatabase, textAt(place), true);
    return statement;
}

int Session::StepAll(Statement& statement, const Translated& translated, tsql::PackedRows* rows,
                     bool& stale) {
    const bool isQuery = translated.kind == tsql::Statement::Kind::Select;
    int code = statement.Step();
    if (isQuery && (code == SQLITE_ROW || code == SQLITE_DONE) && statement.WasPreparedAgain()) {
        stale = true;
        return code;
    }
    const int columns = statement.ColumnCount();
    for (; code == SQLITE_ROW; code = statement.Step()) {
        if (rows != nullptr) AppendRow(*rows, statement, columns);
    }
    return code;
}

bool Session::RunOne(PreparedBatch& batch, std::size_t place, tsql::PackedRows* rows) {
    const tsql::TranslatedStatement& translatedStatement = batch.translation->statements[place];
    if (translatedStatement.error) throw *translatedStatement.error;
    const Translated& translated = translatedStatement.translated;
    mValues.clear();
    for (const tsql::Parameter& parameter : translated.parameters) {
        mValues.push_back(tsql::ValueOf(parameter, mText.literals));
    }
    mTransactions.RequireIntact();
    const bool changes = translated.kind != tsql::Statement::Kind::Select;
    if (changes) mTransactions.RequireChangeable();
    Statement* statement = nullptr;
    try {
        statement = &PreparedAt(batch, place);
    } catch (const platform::DatabaseError&) {
        if (IsSchemaFailure(mDatabase, sqlite3_errcode(mDatabase.Handle()))) return false;
        throw;
    }
    for (std::size_t i = 0; i < mValues.size(); ++i) {
        statement->Bind(static_cast<int>(i) + 1, mValues[i]);
    }
    if (changes) mDatabase.StartChanges();
    StatementScope scope(mDatabase,
                         changes && translated.canFailMidway && mDatabase.InTransaction());
    int code = SQLITE_OK;
    bool stale = false;
    {
        const StatementRun run(*statement);
        code = StepAll(*statement, translated, rows, stale);
        if (code != SQLITE_DONE && !stale) {
            stale = IsSchemaFailure(mDatabase, code);
            if (!stale) mDatabase.Fail(code, translated.table);
        }
    }
    if (stale) return false;
    scope.Keep();
    if (changes && statement->WasPreparedAgain()) Forget();
    return true;
}

Result Session::Run(std::string_view batch, bool wantsRows, bool changeable) {
    tsql::Lex(batch, mText);
    return RunPrepared(Prepare(changeable), wantsRows, changeable);
}

Result Session::RunPrepared(std::shared_ptr<PreparedBatch> batch, bool wantsRows, bool changeable) {
    Result result;
    result.lockedIn = mTransactions.Current();
    bool retried = false;
    for (std::size_t place = 0; place < batch->translation->statements.size(); ++place) {
        const auto& statement = batch->translation->statements[place];
        const bool isQuery = statement.translated.kind == tsql::Statement::Kind::Select;
        const bool collects = wantsRows && isQuery && !result.origin;
        try {
            while (!RunOne(*batch, place, collects ? &result.rows : nullptr)) {
                if (std::exchange(retried, true)) {
                    throw platform::DatabaseError(sqlite3_errmsg(mDatabase.Handle()));
                }
                Forget();
                batch = Prepare(changeable);
            }
            if (!isQuery) mTransactions.MakeDurable();
        } catch (...) {
            if (!isQuery) mTransactions.DropChange();
            throw;
        }
        if (collects) {
            result.origin = std::shared_ptr<const Translated>(
                batch->translation, &batch->translation->statements[place].translated);
        }
    }
    return result;
}

Statement& Session::ChangeWritten(std::string text) {
    if (!mChange || text != mChangeText) {
        mChange = Statement(mDatabase, text, true);
        mChangeText = std::move(text);
    }
    return mChange;
}

void Session::Change(const RowChange& change, long lockedIn) {
    mAnnounced.End();
    mTransactions.RequireIntact();
    mTransactions.RequireChangeable();
    mTransactions.RegainLock();
    mDatabase.StartChanges();
    const bool locked = lockedIn != 0 && lockedIn == mTransactions.Current();
    std::string text = "update " + tsql::QuotedForSqlite(change.table) + " set ";
    std::string unchanged;
    std::vector<const tsql::Datum*> values;
    const auto place = [&](const tsql::Datum& value) {
        values.push_back(&value);
        return '?' + std::to_string(values.size());
    };
    for (const RowChange::Column& column : change.columns) {
        const std::string name = tsql::QuotedForSqlite(column.name);
        if (&column != &change.columns.front()) text += ", ";
        text += name + " = " + place(column.value);
        if (locked) continue;
        unchanged += " and " + name + " is " + place(column.original) + " collate binary";
    }
    const tsql::Datum identity = change.identity;
    text += " where rowid = " + place(identity) + unchanged;
    try {
        {
            Statement& statement = ChangeWritten(std::move(text));
            const StatementRun run(statement);
            for (std::size_t i = 0; i < values.size(); ++i) {
                statement.Bind(static_cast<int>(i) + 1, *values[i]);
            }
            const int code = statement.Step();
            if (code != SQLITE_DONE) mDatabase.Fail(code, change.table);
        }
        if (sqlite3_changes(mDatabase.Handle()) == 0) {
            throw database::RowGone();
        }
        mTransactions.MakeDurable();
    } catch (...) {
        mTransactions.DropChange();
        throw;
    }
}

}  // namespace kelvane::sqlite
