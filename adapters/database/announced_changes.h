// The changes that were announced behind queries: what they are for the answers that were read
// together, and whether they are made already. Only the one behind the query that was taken last
// can be asked for.
#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database.h"

namespace kelvane::database {

class AnnouncedChanges {
public:
    void Announce(platform::ChangeBehind changeOf) { mChangeOf = std::move(changeOf); }
    bool AreAnnounced() const { return static_cast<bool>(mChangeOf); }

    void End() {
        mChangeOf = {};
        ForgetBatch();
    }
    void ForgetBatch() {
        mTexts.clear();
        mTurn = mMade = 0;
        mUntold = false;
    }

    // Whether one is asked for behind a query; also when that cannot be told.
    template <typename First>
    bool IsAsked(std::size_t query, const First& first) const {
        if (!mChangeOf) return false;
        try {
            return !mChangeOf(query, first()).IsEmpty();
        } catch (const std::exception&) {
            return true;
        }
    }

    // The next query of the batch, by its place in the announcement; `first` gives the first field
    // of its answer. What cannot be told, and all behind it, is left for its turn.
    template <typename First>
    void Add(std::size_t query, const First& first) {
        if (mUntold) return;
        try {
            mTexts.push_back(mChangeOf(query, first()).Checked());
        } catch (const std::exception&) {
            mUntold = true;
        }
    }

    // The batch's query in this place was taken, or is about to be.
    void SetTurn(std::size_t place) { mTurn = place; }

    bool IsNext(std::string_view change) const {
        return mTurn < mTexts.size() && !change.empty() && mTexts[mTurn] == change;
    }
    bool IsAskedNow() const { return mTurn < mTexts.size() && !mTexts[mTurn].empty(); }
    bool IsMade() const { return mTurn < mMade; }
    // Whether `change` is the next one and is made; it is asked for no second time then.
    bool TakeMade(std::string_view change) {
        if (!IsNext(change) || !IsMade()) return false;
        mTexts[mTurn].clear();
        return true;
    }

    // The next one and those behind it. Valid until anything here is changed.
    std::vector<std::string_view> Rest() const {
        std::vector<std::string_view> rest;
        for (std::size_t i = mTurn; i < mTexts.size(); ++i) {
            if (!mTexts[i].empty()) rest.emplace_back(mTexts[i]);
        }
        return rest;
    }
    // The rest is made.
    void SetMade() { mMade = mTexts.size(); }
    // Each of the rest goes alone.
    void LeaveAlone() { ForgetBatch(); }

private:
    platform::ChangeBehind mChangeOf;
    // By the query in the batch; empty: none.
    std::vector<std::string> mTexts;
    std::size_t mTurn = 0;
    std::size_t mMade = 0;  // of the texts
    bool mUntold = false;
};

}  // namespace kelvane::database
