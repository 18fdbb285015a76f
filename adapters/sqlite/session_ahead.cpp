// What a session reads ahead of its turn: announced queries together, as of one moment.
#include <utility>

#include "adapters/sqlite/session.h"
#include "adapters/tsql/values/value_conversion.h"

namespace kelvane::sqlite {

namespace {

// The queries in its scope see the account as of one moment.
class ReadTransaction {
public:
    explicit ReadTransaction(Database& database) : mDatabase(database) { mDatabase.Run("begin"); }
    ~ReadTransaction() {
        if (mDatabase.InTransaction()) mDatabase.TryRun("commit");
    }
    ReadTransaction(const ReadTransaction&) = delete;
    ReadTransaction& operator=(const ReadTransaction&) = delete;

private:
    Database& mDatabase;
};

bool IsOneQuery(const tsql::Translation& translation) {
    if (translation.statements.size() != 1) return false;
    const tsql::TranslatedStatement& statement = translation.statements.front();
    return !statement.error && statement.translated.kind == tsql::Statement::Kind::Select;
}

platform::Value FirstOf(const Result& answer) {
    if (!answer.origin || answer.rows.RowCount() == 0) return {};
    return tsql::ToValue(answer.rows.At(0, 0), answer.origin->columns.front().type);
}

}  // namespace

void Session::EndAnnounced() {
    mAnnounced.End();
    // A list has been loaded: what was kept for its queries would take more room than the list.
    if (std::exchange(mManyAnnounced, false)) mDatabase.ForgetPages();
}

void Session::Announce(std::span<const platform::StatementText> queries, bool changeable) {
    constexpr std::size_t kMany = 16;  // more than a row is checked with
    mManyAnnounced = mManyAnnounced || queries.size() >= kMany;
    mAnnounced.Announce(queries, changeable);
}

std::optional<Result> Session::Answer(std::string_view query, bool changeable) {
    if (!mAnnounced.IsNext(query, changeable)) return {};
    // Who has a transaction or a lock decides himself what is read in it.
    if (mTransactions.IsExplicit() || mTransactions.HasLockers()) return {};
    if (!mAnnounced.IsAnswered()) ReadAhead(changeable);
    if (mAnnounced.IsAnswered()) MakeTogether(changeable);
    if (mAnnounced.IsAnswered() && IsAnswerOld()) {
        mAnnounced.DropAnswers();
        ReadAhead(changeable);
    }
    return mAnnounced.Take();
}

// Under one lock the answers are looked at and the changes that go by them are made: nobody's save
// comes between. Nobody is waited for here; who has to wait does so in his change's turn.
void Session::MakeTogether(bool changeable) {
    database::AnnouncedChanges& changes = mAnnounced.Changes();
    mAnnounced.TurnToNext();
    if (changes.IsMade() || !changes.IsAskedNow() || !mTransaction.TryLock()) return;
    try {
        const auto version = DataVersion();
        if (!version || version != mAnsweredVersion) {
            mAnnounced.DropAnswers();
            ReadAhead(changeable);
        }
        for (const std::string_view change : changes.Rest()) Run(change, false, changeable);
        mTransaction.Commit();
        changes.SetMade();
    } catch (const std::exception&) {
        if (mTransaction.InTransaction()) mDatabase.TryRun("rollback");
        changes.LeaveAlone();
    }
}

std::optional<std::int64_t> Session::DataVersion() {
    if (!mDataVersion) mDataVersion = Statement(mDatabase, "pragma data_version", true);
    const StatementRun run(mDataVersion);
    if (mDataVersion.Step() != SQLITE_ROW) return {};
    return mDataVersion.Integer(0);
}

// Only where a change goes by the answer: looking costs nearly as much as asking.
bool Session::IsAnswerOld() {
    if (mAnnounced.Changes().IsMade() || !mAnnounced.IsChangeBehindNext(FirstOf)) return false;
    const auto version = DataVersion();
    return !version || version != mAnsweredVersion;
}

// One lock on the file and one look at its state for all of them; a query for itself costs more of
// that than of reading.
void Session::ReadAhead(bool changeable) {
    std::vector<Result> answers;
    try {
        std::optional<ReadTransaction> moment;
        if (!mDatabase.InTransaction()) moment.emplace(mDatabase);
        if (mAnnounced.Changes().AreAnnounced()) mAnsweredVersion = DataVersion();
        for (const std::string_view query : mAnnounced.NextBatch()) {
            tsql::Lex(query, mText);
            std::shared_ptr<PreparedBatch> batch = Prepare(changeable);
            if (!IsOneQuery(*batch->translation)) break;
            answers.push_back(RunPrepared(std::move(batch), true, changeable));
        }
    } catch (...) {
        if (answers.empty()) {
            mAnnounced.End();
            throw;
        }
    }
    mAnnounced.SetAnswers(std::move(answers));
    mAnnounced.CollectChanges(FirstOf);
    mAnnounced.TurnToNext();
}

}  // namespace kelvane::sqlite
