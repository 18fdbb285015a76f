#include "adapters/database/announced_queries.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
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
    for (int i = 0; i < 300; ++i) numbers.push_back(i);
    Announce(announced, numbers);
    std::vector<std::string> answers;
    for (const std::string_view text : announced.NextBatch()) answers.emplace_back(text);
    ASSERT_EQ(answers.size(), 256U);
    announced.SetAnswers(answers);
    for (int i = 0; i < 256; ++i) {
        ASSERT_TRUE(announced.IsAnswered());
        EXPECT_EQ(announced.Take(), Numbered(i).Text());
    }
    EXPECT_FALSE(announced.IsAnswered());
    EXPECT_EQ(announced.NextBatch().size(), 44U);
}

}  // namespace
}  // namespace kelvane::database
