#include "adapters/database/announced_queries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kelvane::database {
namespace {

using platform::StatementText;
using testing::ElementsAre;

using Announced = AnnouncedQueries<std::string>;

StatementText Numbered(int number) {
    StatementText query("select ");
    query.Number(number);
    return query;
}

void Announce(Announced& announced, const std::vector<int>& numbers) {
    std::vector<StatementText> queries;
    for (const int number : numbers) queries.push_back(Numbered(number));
    announced.Announce(queries, false);
}

TEST(AnnouncedQueries, OneTextIsAskedOnceAndAnswersEachOfItsTurns) {
    Announced announced;
    Announce(announced, {1, 2, 1, 1});
    ASSERT_TRUE(announced.IsNext("select 1", false));
    EXPECT_FALSE(announced.IsAnswered());
    EXPECT_THAT(announced.NextBatch(), ElementsAre("select 1", "select 2"));
    announced.SetAnswers({"one", "two"});
    EXPECT_EQ(announced.Take(), "one");
    EXPECT_TRUE(announced.IsNext("select 2", false));
    EXPECT_EQ(announced.Take(), "two");
    EXPECT_EQ(announced.Take(), "one");
    EXPECT_TRUE(announced.IsAnswered());
    EXPECT_EQ(announced.Take(), "one");
    EXPECT_EQ(announced.Take(), std::nullopt);
}

TEST(AnnouncedQueries, OnlyTheNextOneIsKnown) {
    Announced announced;
    Announce(announced, {1, 2});
    EXPECT_FALSE(announced.IsNext("select 2", false));
    EXPECT_FALSE(announced.IsNext("select 1", true));
    announced.End();
    EXPECT_FALSE(announced.IsNext("select 1", false));
    EXPECT_EQ(announced.Take(), std::nullopt);
}

TEST(AnnouncedQueries, WhatHasNoAnswerIsAskedWithTheNextBatch) {
    Announced announced;
    Announce(announced, {1, 2, 3, 1});
    announced.NextBatch();
    announced.SetAnswers({"one"});
    EXPECT_EQ(announced.Take(), "one");
    EXPECT_FALSE(announced.IsAnswered());
    EXPECT_THAT(announced.NextBatch(), ElementsAre("select 2", "select 3", "select 1"));
    announced.SetAnswers({"two", "three", "one again"});
    EXPECT_EQ(announced.Take(), "two");
    EXPECT_EQ(announced.Take(), "three");
    EXPECT_EQ(announced.Take(), "one again");
}

TEST(AnnouncedQueries, WithoutAnyAnswerTheRestGoesAlone) {
    Announced announced;
    Announce(announced, {1, 2});
    announced.NextBatch();
    announced.SetAnswers({});
    EXPECT_FALSE(announced.IsNext("select 1", false));
    EXPECT_FALSE(announced.IsNext("select 2", false));
}

TEST(AnnouncedQueries, LongListsGoInSeveralBatches) {
    Announced announced;
    std::vector<int> numbers;
    for (int i = 0; i < 1100; ++i) numbers.push_back(i);
    Announce(announced, numbers);
    std::vector<std::string> answers;
    for (const std::string_view text : announced.NextBatch()) answers.emplace_back(text);
    ASSERT_EQ(answers.size(), 1024U);
    announced.SetAnswers(answers);
    for (int i = 0; i < 1024; ++i) {
        ASSERT_TRUE(announced.IsAnswered());
        EXPECT_EQ(announced.Take(), Numbered(i).Text());
    }
    EXPECT_FALSE(announced.IsAnswered());
    EXPECT_EQ(announced.NextBatch().size(), 76U);
}

// Behind each query whose answer is a text other than "none": what it would be changed to.
class ChangesOfAnswers : public ::testing::Test {
protected:
    void SetUp() override {
        Announce(mAnnounced, {1, 2, 3, 1});
        mAnnounced.Changes().Announce([](std::size_t query, const platform::Value& first) {
            if (first.ToText() == "bad") throw std::runtime_error("no such change");
            StatementText change;
            if (first.ToText() == "none") return change;
            change << "set ";
            change.Number(static_cast<std::int64_t>(query)) << " to ";
            return change.Inside(first.ToText());
        });
    }
    static platform::Value FirstOf(const std::string& answer) { return platform::Value(answer); }
    void Answer(std::vector<std::string> answers) {
        mAnnounced.NextBatch();
        mAnnounced.SetAnswers(std::move(answers));
        mAnnounced.CollectChanges(FirstOf);
    }
    AnnouncedChanges& Changes() { return mAnnounced.Changes(); }

    Announced mAnnounced;
};

TEST_F(ChangesOfAnswers, OnlyTheOneBehindTheQueryJustTakenIsKnown) {
    Answer({"a", "none", "c"});
    mAnnounced.Take();
    EXPECT_TRUE(Changes().IsNext("set 0 to a"));
    EXPECT_FALSE(Changes().IsNext("set 2 to c"));
    EXPECT_THAT(Changes().Rest(), ElementsAre("set 0 to a", "set 2 to c", "set 3 to a"));
    mAnnounced.Take();
    EXPECT_FALSE(Changes().IsNext(""));
    mAnnounced.Take();
    EXPECT_TRUE(Changes().IsNext("set 2 to c"));
    EXPECT_THAT(Changes().Rest(), ElementsAre("set 2 to c", "set 3 to a"));
}

TEST_F(ChangesOfAnswers, WhatIsMadeIsMadeOnce) {
    Answer({"a", "b", "c"});
    mAnnounced.Take();
    EXPECT_FALSE(Changes().IsMade());
    EXPECT_FALSE(Changes().TakeMade("set 0 to a"));
    Changes().SetMade();
    EXPECT_TRUE(Changes().IsMade());
    EXPECT_FALSE(Changes().TakeMade("set 1 to b"));
    EXPECT_TRUE(Changes().TakeMade("set 0 to a"));
    EXPECT_FALSE(Changes().IsNext("set 0 to a"));
    mAnnounced.Take();
    EXPECT_TRUE(Changes().IsNext("set 1 to b"));
    EXPECT_TRUE(Changes().IsMade());
}

TEST_F(ChangesOfAnswers, LeftAloneNoneIsKnownUntilTheNextBatch) {
    Answer({"a"});
    mAnnounced.Take();
    Changes().LeaveAlone();
    EXPECT_FALSE(Changes().IsNext("set 0 to a"));
    Answer({"b", "c", "d"});
    mAnnounced.Take();
    EXPECT_TRUE(Changes().IsNext("set 1 to b"));
    EXPECT_FALSE(Changes().IsMade());
}

TEST_F(ChangesOfAnswers, WhatCannotBeToldWaitsForItsTurnWithAllBehindIt) {
    Answer({"a", "bad", "c"});
    mAnnounced.Take();
    EXPECT_THAT(Changes().Rest(), ElementsAre("set 0 to a"));
    EXPECT_TRUE(mAnnounced.IsChangeBehindNext(FirstOf));
    mAnnounced.Take();
    mAnnounced.Take();
    EXPECT_FALSE(Changes().IsNext("set 2 to c"));
}

TEST_F(ChangesOfAnswers, OneIsBehindTheNextQueryAsItsAnswerSays) {
    Answer({"none", "b", "c"});
    EXPECT_FALSE(mAnnounced.IsChangeBehindNext(FirstOf));
    mAnnounced.Take();
    EXPECT_TRUE(mAnnounced.IsChangeBehindNext(FirstOf));
}

TEST_F(ChangesOfAnswers, DroppedAnswersAreAskedForAgainWithTheirChanges) {
    Answer({"a", "b", "c"});
    mAnnounced.Take();
    mAnnounced.DropAnswers();
    EXPECT_FALSE(mAnnounced.IsAnswered());
    EXPECT_FALSE(Changes().IsNext("set 0 to a"));
    EXPECT_THAT(mAnnounced.NextBatch(), ElementsAre("select 2", "select 3", "select 1"));
    mAnnounced.SetAnswers({"new", "c", "a"});
    mAnnounced.CollectChanges(FirstOf);
    EXPECT_EQ(mAnnounced.Take(), "new");
    EXPECT_TRUE(Changes().IsNext("set 1 to new"));
}

TEST_F(ChangesOfAnswers, TheyEndWithTheAnnouncement) {
    Answer({"a", "b", "c"});
    mAnnounced.Take();
    mAnnounced.End();
    EXPECT_FALSE(Changes().AreAnnounced());
    EXPECT_FALSE(Changes().IsNext("set 0 to a"));
}

TEST_F(ChangesOfAnswers, AMalformedQueryHasNoPlaceInTheBatch) {
    StatementText malformed("select '");
    malformed.Inside("a'b") << "'";
    const std::vector<StatementText> queries{malformed, Numbered(7)};
    std::vector<std::size_t> asked;
    mAnnounced.Announce(queries, false);
    Changes().Announce([&](std::size_t query, const platform::Value&) {
        asked.push_back(query);
        return StatementText();
    });
    Answer({"seven"});
    EXPECT_THAT(asked, ElementsAre(1));
}

}  // namespace
}  // namespace kelvane::database
