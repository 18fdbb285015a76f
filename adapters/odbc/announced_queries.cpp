#include "adapters/odbc/announced_queries.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace kelvane::odbc {

void AnnouncedQueries::Announce(std::span<const platform::StatementText> queries, bool changeable) {
    End();
    mChangeable = changeable;
    for (const platform::StatementText& query : queries) {
        if (!query.IsMalformed()) mQueries.push_back(query.Checked());
    }
}

void AnnouncedQueries::End() {
    *this = {};
}

bool AnnouncedQueries::IsNext(const std::string& query, bool changeable) const {
    return mNext < mQueries.size() && changeable == mChangeable && mQueries[mNext] == query;
}

const std::vector<std::string>& AnnouncedQueries::NextBatch() {
    const std::size_t end = std::min(mQueries.size(), mNext + kMaxTogether);
    std::unordered_map<std::string_view, std::size_t> places;
    mTexts.clear();
    mAnswers.clear();
    mAnswerOf.clear();
    mFirstOfBatch = mNext;
    for (std::size_t i = mNext; i < end; ++i) {
        const auto [place, isNew] = places.emplace(mQueries[i], mTexts.size());
        if (isNew) mTexts.push_back(mQueries[i]);
        mAnswerOf.push_back(place->second);
    }
    return mTexts;
}

void AnnouncedQueries::SetAnswers(std::vector<Result> answers) {
    // The queries before the first one whose text has no answer.
    const auto unanswered =
        std::find_if(mAnswerOf.begin(), mAnswerOf.end(),
                     [&](std::size_t place) { return place >= answers.size(); });
    mAnswerOf.erase(unanswered, mAnswerOf.end());
    mAnswers = std::move(answers);
    if (mAnswerOf.empty()) End();
}

std::optional<Result> AnnouncedQueries::Take() {
    if (mNext >= mQueries.size()) return {};
    const std::size_t taken = mNext++;
    if (taken - mFirstOfBatch >= mAnswerOf.size()) return {};
    return mAnswers[mAnswerOf[taken - mFirstOfBatch]];
}

}  // namespace kelvane::odbc
