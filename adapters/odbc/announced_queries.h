// The queries that a connection was told it will be asked next, and the answers that came for some
// of them ahead of their turn. Only the next one can be asked for; whatever else is run leaves
// them.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "adapters/odbc/engine_dialect.h"
#include "platform/statement_text.h"

namespace kelvane::odbc {

// What a query returned.
struct Result {
    ResultRows rows;
    RowSource source;
    // The transaction that keeps the rows locked; 0: none does.
    long lockedIn = 0;
};

class AnnouncedQueries {
public:
    // What was announced before is forgotten. `changeable`: how their rows will be opened.
    void Announce(std::span<const platform::StatementText> queries, bool changeable);
    void End();

    // Whether `query` is the next one.
    bool IsNext(const std::string& query, bool changeable) const;
    // Whether the next one's answer is there.
    bool IsAnswered() const { return mNext < mFirstOfBatch + mAnswerOf.size(); }

    // The texts to send together now: the next one first, each text once.
    const std::vector<std::string>& NextBatch();
    // The answers to the first of the batch's texts, as many as there are. Without any, every query
    // goes alone from here on.
    void SetAnswers(std::vector<Result> answers);

    // Passes on to the query behind the next one; gives the answer when there is one.
    std::optional<Result> Take();

private:
    static constexpr std::size_t kMaxTogether = 256;

    std::vector<std::string> mQueries;
    bool mChangeable = false;
    std::size_t mNext = 0;
    // The batch: its texts, where it begins, and by query the place of its text.
    std::vector<std::string> mTexts;
    std::size_t mFirstOfBatch = 0;
    std::vector<std::size_t> mAnswerOf;
    std::vector<Result> mAnswers;
};

}  // namespace kelvane::odbc
