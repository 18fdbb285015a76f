// Queries that were announced answer as they do when nobody announces them, on every engine.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {
namespace {

using platform::DatabaseError;
using platform::Money;
using platform::StatementText;
using platform::Value;

class ReadAhead : public AccountTest {
protected:
    static constexpr int kEntries = 600;

    static StatementText SumOf(int identity) {
        StatementText query("Select sum(mQc) from pm_itemqcsub where iEleVid = '");
        query.Number(identity) << "'";
        return query;
    }
    static std::vector<StatementText> Sums() {
        std::vector<StatementText> queries;
        for (int i = 1; i <= kEntries; ++i) queries.push_back(SumOf(i));
        return queries;
    }
    void InsertLine(int identity, std::int64_t amount) {
        StatementText insert("insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(");
        insert.Number(identity) << ",'M01',1,1,";
        insert.Number(amount) << ")";
        Execute(insert);
    }
    Value Answer(const StatementText& query) { return Account().OpenRecordSet(query)->Field(0); }
};

TEST_F(ReadAhead, EveryQueryHasItsOwnAnswer) {
    InsertLine(1, 7);
    InsertLine(300, 5);
    InsertLine(300, 6);
    const auto queries = Sums();
    Account().ReadAhead(queries, {});
    for (int i = 1; i <= kEntries; ++i) {
        const Value sum = Answer(queries[static_cast<std::size_t>(i - 1)]);
        if (i == 1) {
            EXPECT_EQ(sum.ToMoney(), Money::FromText("7"));
        } else if (i == 300) {
            EXPECT_EQ(sum.ToMoney(), Money::FromText("11"));
        } else {
            EXPECT_TRUE(sum.IsNull()) << i;
        }
    }
}

TEST_F(ReadAhead, WhatIsWrittenInBetweenIsWritten) {
    Execute("insert into Probe(id,i) values(1,0)");
    InsertLine(1, 7);
    InsertLine(2, 8);
    const std::vector<StatementText> queries{SumOf(1), SumOf(2)};
    Account().ReadAhead(queries, {});
    for (const StatementText& query : queries) {
        EXPECT_FALSE(Answer(query).IsNull());
        Account().OpenRecordSet(StatementText("update Probe set i = i + 1 where id = 1"));
    }
    EXPECT_EQ(One("select i from Probe"), Value(std::int64_t{2}));
}

TEST_F(ReadAhead, TheSameQueryHasItsOwnRows) {
    Execute("insert into Probe(id,c,m) values(1,'text',-12.3456)");
    const std::vector<StatementText> queries(3, StatementText("select id,c,m,null from Probe"));
    Account().ReadAhead(queries, {});
    for (const StatementText& query : queries) {
        const auto row = Account().OpenRecordSet(query);
        EXPECT_EQ(row->RecordCount(), 1);
        EXPECT_EQ(row->Field("ID"), Value(std::int64_t{1}));
        EXPECT_EQ(row->Field(1), Value("text"));
        EXPECT_EQ(row->Field("m"), Value(Money::FromText("-12.3456")));
        EXPECT_TRUE(row->Field(3).IsNull());
        row->MoveNext();
        EXPECT_TRUE(row->EndOfFile());
    }
}

TEST_F(ReadAhead, AFailureIsThatOfItsQueryAlone) {
    Execute("insert into Probe(id,c) values(1,'a')");
    const std::vector<StatementText> queries{
        StatementText("select id from Probe"), StatementText("select id from Probe where c = 1"),
        StatementText("select absent from Probe"), StatementText("select c from Probe")};
    Account().ReadAhead(queries, {});
    EXPECT_EQ(Answer(queries[0]), Value(std::int64_t{1}));
    EXPECT_THROW(Account().OpenRecordSet(queries[1]), DatabaseError);
    EXPECT_THROW(Account().OpenRecordSet(queries[2]), DatabaseError);
    EXPECT_EQ(Answer(queries[3]), Value("a"));
}

TEST_F(ReadAhead, AFailureOfTheFirstLeavesTheOthers) {
    Execute("insert into Probe(id,c) values(1,'a')");
    const std::vector<StatementText> queries{StatementText("select absent from Probe"),
                                             StatementText("select c from Probe"),
                                             StatementText("select id from Probe where c = 1")};
    Account().ReadAhead(queries, {});
    EXPECT_THROW(Account().OpenRecordSet(queries[0]), DatabaseError);
    EXPECT_EQ(Answer(queries[1]), Value("a"));
    EXPECT_THROW(Account().OpenRecordSet(queries[2]), DatabaseError);
}

TEST_F(ReadAhead, ABatchIsAsOfOneMomentAndNoLonger) {
    if (IsNative()) GTEST_SKIP() << "a server of its own dialect may ignore announcements";
    InsertLine(1, 7);
    const std::vector<StatementText> queries{SumOf(1), SumOf(2), SumOf(1)};
    Account().ReadAhead(queries, {});
    EXPECT_EQ(Answer(queries[0]).ToMoney(), Money::FromText("7"));
    Connect()->Execute(StatementText("delete from PM_ItemQCsub"));
    EXPECT_TRUE(Answer(queries[1]).IsNull());
    EXPECT_EQ(Answer(queries[2]).ToMoney(), Money::FromText("7"));
    EXPECT_TRUE(Answer(queries[2]).IsNull());
}

TEST_F(ReadAhead, EndedItSeesWhatOthersHaveSaved) {
    const std::vector<StatementText> queries{SumOf(2), SumOf(1)};
    Account().ReadAhead(queries, {});
    EXPECT_TRUE(Answer(queries[0]).IsNull());
    Connect()->Execute(StatementText(
        "insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(1,'M01',1,1,7)"));
    Account().ReadAhead({}, {});
    EXPECT_EQ(Answer(queries[1]).ToMoney(), Money::FromText("7"));
}

TEST_F(ReadAhead, EndsWithAWriteOfOurOwn) {
    const std::vector<StatementText> queries{SumOf(2), SumOf(1)};
    Account().ReadAhead(queries, {});
    EXPECT_TRUE(Answer(queries[0]).IsNull());
    InsertLine(1, 7);
    EXPECT_EQ(Answer(queries[1]).ToMoney(), Money::FromText("7"));
}

TEST_F(ReadAhead, EndsWithAChangedRow) {
    Execute("insert into Probe(id,i) values(1,5)");
    const auto row = Open("select id,i from Probe", platform::LockType::Optimistic);
    const StatementText stored("select i from Probe");
    const std::vector<StatementText> queries{stored, stored};
    Account().ReadAhead(queries, {});
    EXPECT_EQ(Answer(stored), Value(std::int64_t{5}));
    row->SetField("i", Value(std::int64_t{6}));
    row->Update();
    EXPECT_EQ(Answer(stored), Value(std::int64_t{6}));
}

TEST_F(ReadAhead, EndsWithATransaction) {
    InsertLine(1, 7);
    const std::vector<StatementText> queries{SumOf(2), SumOf(1), SumOf(1)};
    Account().ReadAhead(queries, {});
    EXPECT_TRUE(Answer(queries[0]).IsNull());
    Connect()->Execute(StatementText("delete from PM_ItemQCsub"));
    platform::Transaction transaction(Account());
    EXPECT_TRUE(Answer(queries[1]).IsNull());
}

}  // namespace
}  // namespace kelvane::database_test
