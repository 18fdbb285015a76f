// Queries of which one is asked for every row of a list. They are announced to the host's data
// access in pieces, so that one that talks to a server over a network need not wait for each.
#pragma once

#include <cstddef>
#include <exception>
#include <functional>
#include <utility>
#include <vector>

#include "platform/host.h"
#include "platform/statement_text.h"

namespace kelvane::entries {

// What `read` makes of every row, for announcing what will be asked of them; leaves the set at its
// first row. Ends before a row that cannot be read: that is an error when the row's turn comes.
template <typename Read>
auto ReadAll(platform::RecordSet& rows, const Read& read) {
    std::vector<decltype(read(rows))> values;
    try {
        for (; !rows.EndOfFile(); rows.MoveNext()) values.push_back(read(rows));
    } catch (const std::exception&) {
        // Told when the row is loaded.
    }
    rows.MoveFirst();
    return values;
}

class AnnouncedQueries {
public:
    // `queryOf`: the query of row `i`, the same whenever it is asked. Rows from `count` on are not
    // announced. Until this object goes, what is run over `access` beside these queries must not
    // change what they answer. `piece`: for how many rows answers may be read ahead at once.
    AnnouncedQueries(platform::HostDataAccess& access, std::size_t count,
                     std::function<platform::StatementText(std::size_t)> queryOf,
                     std::size_t piece = 1024)
        : mAccess(access), mCount(count), mQueryOf(std::move(queryOf)), mMaxPiece(piece) {}
    // The change that is asked for right behind row `i`'s query, by the first field of its answer.
    void AnnounceChanges(platform::ChangeBehind changeOf) { mChangeOf = std::move(changeOf); }
    ~AnnouncedQueries() { mAccess.ReadAhead({}); }
    AnnouncedQueries(const AnnouncedQueries&) = delete;
    AnnouncedQueries& operator=(const AnnouncedQueries&) = delete;

    // The next row's query, which is to be asked at once.
    platform::StatementText Next();

private:
    platform::HostDataAccess& mAccess;
    std::size_t mCount;
    std::function<platform::StatementText(std::size_t)> mQueryOf;
    std::size_t mMaxPiece;
    platform::ChangeBehind mChangeOf;
    std::size_t mNext = 0;
    std::size_t mPieceStart = 0;
    std::vector<platform::StatementText> mPiece;
};

}  // namespace kelvane::entries
