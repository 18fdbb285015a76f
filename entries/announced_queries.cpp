#include "entries/announced_queries.h"

#include <algorithm>

namespace kelvane::entries {

platform::StatementText AnnouncedQueries::Next() {
    const std::size_t row = mNext++;
    if (row >= mCount) return mQueryOf(row);
    if (row == mPieceStart + mPiece.size()) {
        mPieceStart = row;
        mPiece.clear();
        const std::size_t end = std::min(mCount, row + mMaxPiece);
        for (std::size_t i = row; i < end; ++i) mPiece.push_back(mQueryOf(i));
        mAccess.ReadAhead(mPiece);
        if (mChangeOf) {
            mAccess.AnnounceChanges([this](std::size_t i, const platform::Value& first) {
                return mChangeOf(mPieceStart + i, first);
            });
        }
    }
    return std::move(mPiece[row - mPieceStart]);
}

}  // namespace kelvane::entries
