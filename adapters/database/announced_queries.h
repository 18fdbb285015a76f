// The queries that a connection was told it will be asked next, and the answers that were read for
// some of them ahead of their turn. Only the next one can be asked for; whatever else is run leaves
// them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "adapters/database/announced_changes.h"
#include "platform/statement_text.h"

namespace kelvane::database {

// `Result`: what a query returned; each of the queries with one text gets a copy.
template <typename Result>
class AnnouncedQueries {
public:
    // What was announced before is forgotten. `changeable`: how their rows will be opened.
    void Announce(std::span<const platform::StatementText> queries, bool changeable) {
        End();
        mChangeable = changeable;
        mQueries.reserve(queries.size());
        mAnnouncedAt.reserve(queries.size());
        for (std::size_t i = 0; i < queries.size(); ++i) {
            if (queries[i].IsMalformed()) continue;
            mQueries.push_back(queries[i].Checked());
            mAnnouncedAt.push_back(i);
        }
    }
    // What was announced of the changes behind them.
    AnnouncedChanges& Changes() { return mChanges; }

    void End() {
        mQueries.clear();
        mAnnouncedAt.clear();
        mChanges.End();
        mNext = 0;
        ForgetBatch();
    }

    // Whether `query` is the next one.
    bool IsNext(std::string_view query, bool changeable) const {
        return mNext < mQueries.size() && changeable == mChangeable && mQueries[mNext] == query;
    }
    // Whether the next one's answer is there.
    bool IsAnswered() const { return mNext < mFirstOfBatch + mAnswerOf.size(); }

    // The texts to ask together now: the next one first, each text once. Valid until the answers
    // are set.
    const std::vector<std::string_view>& NextBatch() {
        ForgetBatch();
        const std::size_t end = std::min(mQueries.size(), mNext + kMaxTogether);
        mFirstOfBatch = mNext;
        for (std::size_t i = mNext; i < end; ++i) {
            const auto [place, isNew] = mPlaces.emplace(mQueries[i], mTexts.size());
            if (isNew) {
                mTexts.push_back(mQueries[i]);
                mLastTurn.push_back(i);
            }
            mLastTurn[place->second] = i;
            mAnswerOf.push_back(place->second);
        }
        return mTexts;
    }

    // The answers to the first of the batch's texts, as many as there are. Without any, every query
    // goes alone from here on.
    void SetAnswers(std::vector<Result> answers) {
        // The queries before the first one whose text has no answer.
        const auto unanswered =
            std::find_if(mAnswerOf.begin(), mAnswerOf.end(),
                         [&](std::size_t place) { return place >= answers.size(); });
        mAnswerOf.erase(unanswered, mAnswerOf.end());
        mAnswers = std::move(answers);
        if (mAnswerOf.empty()) End();
    }
    // With changes announced: what they are for these answers. `firstOf` gives an answer's first
    // field.
    template <typename FirstOf>
    void CollectChanges(const FirstOf& firstOf) {
        if (!mChanges.AreAnnounced()) return;
        for (std::size_t i = 0; i < mAnswerOf.size(); ++i) {
            mChanges.Add(mAnnouncedAt[mFirstOfBatch + i],
                         [&] { return firstOf(mAnswers[mAnswerOf[i]]); });
        }
    }
    // The changes' turn is that of the next query, which is answered.
    void TurnToNext() { mChanges.SetTurn(mNext - mFirstOfBatch); }
    // Whether a change is asked for behind the next query, which is answered.
    template <typename FirstOf>
    bool IsChangeBehindNext(const FirstOf& firstOf) const {
        const std::size_t place = mAnswerOf[mNext - mFirstOfBatch];
        return mChanges.IsAsked(mAnnouncedAt[mNext], [&] { return firstOf(mAnswers[place]); });
    }
    // The answers that are still there are not those of now any more.
    void DropAnswers() { ForgetBatch(); }

    // Passes on to the query behind the next one; gives the answer when there is one.
    std::optional<Result> Take() {
        if (mNext >= mQueries.size()) return {};
        const std::size_t taken = mNext++;
        if (taken < mFirstOfBatch || taken - mFirstOfBatch >= mAnswerOf.size()) return {};
        mChanges.SetTurn(taken - mFirstOfBatch);
        const std::size_t place = mAnswerOf[taken - mFirstOfBatch];
        if (mLastTurn[place] == taken) return std::move(mAnswers[place]);
        return mAnswers[place];
    }

private:
    static constexpr std::size_t kMaxTogether = 1024;

    void ForgetBatch() {
        mPlaces.clear();
        mTexts.clear();
        mLastTurn.clear();
        mAnswers.clear();
        mAnswerOf.clear();
        mChanges.ForgetBatch();
        mFirstOfBatch = 0;
    }

    std::vector<std::string> mQueries;
    std::vector<std::size_t> mAnnouncedAt;  // by query
    AnnouncedChanges mChanges;
    bool mChangeable = false;
    std::size_t mNext = 0;
    // The batch: its texts with their places, the query that is the last one with each, where the
    // batch begins, and by query the place of its text.
    std::unordered_map<std::string_view, std::size_t> mPlaces;
    std::vector<std::string_view> mTexts;
    std::vector<std::size_t> mLastTurn;
    std::size_t mFirstOfBatch = 0;
    std::vector<std::size_t> mAnswerOf;
    std::vector<Result> mAnswers;
};

}  // namespace kelvane::database
