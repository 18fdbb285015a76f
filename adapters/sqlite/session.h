// An open account: runs statements of the dialect on its file.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/database/announcing_session.h"
#include "adapters/sqlite/catalog.h"
#include "adapters/sqlite/database.h"
#include "adapters/sqlite/file_transaction.h"
#include "adapters/sqlite/prepared_batch.h"
#include "adapters/sqlite/result_row.h"
#include "adapters/tsql/language/lexer.h"
#include "adapters/tsql/sqlite/sqlite_writer.h"

namespace kelvane::sqlite {

// What a query returned.
struct Result {
    std::shared_ptr<const tsql::Translated> origin;  // null: the batch returned no rows
    tsql::PackedRows rows;
    // The transaction that keeps the rows locked; 0: none does.
    long lockedIn = 0;
};

// A change to one row of a result.
struct RowChange {
    std::string table;
    std::int64_t identity = 0;
    struct Column {
        std::string name;
        tsql::Datum value;
        tsql::Datum original;
    };
    std::vector<Column> columns;
};

class Session : public database::AnnouncingSession<Result> {
public:
    // Opens an account file that has been checked to be one.
    Session(const std::string& path, int timeout)
        : AnnouncingSession(mTransaction), mDatabase(path, timeout), mCatalog(mDatabase) {}

    // Runs a batch statement by statement. Throws DatabaseError for the first that fails; outside a
    // transaction those before it stay done. Returns the rows of the first query when `wantsRows`.
    // `changeable`: the rows carry their identity behind the columns where that is possible.
    Result Run(std::string_view batch, bool wantsRows, bool changeable);

    // Which queries Answer() will be asked next; an empty list ends what was announced before.
    void Announce(std::span<const platform::StatementText> queries, bool changeable);
    // Whether `change` is the next of those that are asked for behind them and is made: those that
    // go by answers read together are made together, all or none, when the first of those queries
    // is asked. False: it has to be run by itself.
    bool TakeMade(std::string_view change) { return mAnnounced.Changes().TakeMade(change); }
    // The last of them was asked; gives back what was kept for them.
    void EndAnnounced();
    // The rows of the next announced query, when `query` is it and can be read ahead: together with
    // those behind it, as of one moment. A query behind it that fails has its error in its turn.
    // Throws what `query` itself fails with.
    std::optional<Result> Answer(std::string_view query, bool changeable);

    // `lockedIn` is the row's Result's. Throws DatabaseError when the row is gone or has been
    // changed.
    void Change(const RowChange& change, long lockedIn);

    Database& Engine() { return mDatabase; }
    database::Transactions& Transactions() { return mTransactions; }

private:
    std::shared_ptr<PreparedBatch> Prepare(bool changeable);
    Statement& PreparedAt(PreparedBatch& batch, std::size_t place);
    // False when the schema was found changed before anything was done.
    bool RunOne(PreparedBatch& batch, std::size_t place, tsql::PackedRows* rows);
    int StepAll(Statement& statement, const tsql::Translated& translated, tsql::PackedRows* rows,
                bool& stale);
    void Forget();
    // Runs the batch that mText is, which Prepare() has given.
    Result RunPrepared(std::shared_ptr<PreparedBatch> batch, bool wantsRows, bool changeable);
    void ReadAhead(bool changeable);
    void MakeTogether(bool changeable);
    // A number that is another one once somebody else has written to the file; nothing when it
    // cannot be read.
    std::optional<std::int64_t> DataVersion();
    bool IsAnswerOld();
    // A change to a row, prepared; it is kept, for rows that are saved one after the other are
    // mostly changed in the same columns.
    Statement& ChangeWritten(std::string text);

    Database mDatabase;
    SqliteCatalog mCatalog;
    PreparedBatches mCache;
    FileTransaction mTransaction{mDatabase};
    tsql::SqliteWriter mWriter;
    tsql::LexedText mText;
    std::vector<tsql::Datum> mValues;
    bool mManyAnnounced = false;  // since EndAnnounced()
    Statement mChange;
    std::string mChangeText;
    Statement mDataVersion;
    std::optional<std::int64_t> mAnsweredVersion;
};

}  // namespace kelvane::sqlite
