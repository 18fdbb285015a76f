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
    static constexpr int kEntries = 2500;

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
    InsertLine(1300, 5);
    InsertLine(1300, 6);
    const auto queries = Sums();
    Account().ReadAhead(queries, {});
    for (int i = 1; i <= kEntries; ++i) {
        const Value sum = Answer(queries[static_cast<std::size_t>(i - 1)]);
        if (i == 1) {
            EXPECT_EQ(sum.ToMoney(), Money::FromText("7"));
        } else if (i == 1300) {
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

// Behind the query of each row of Probe one is added to its i; row 2 can be made to refuse that.
class ChangesAhead : public ReadAhead {
protected:
    void SetUp() override {
        Execute("insert into Probe(id,i) values(1,0)");
        Execute("insert into Probe(id,i) values(2,0)");
        Execute("insert into Probe(id,i) values(3,0)");
        for (int id = 1; id <= 3; ++id) {
            StatementText query("select id from Probe where id = ");
            mQueries.push_back(query.Number(id));
        }
        Account().ReadAhead(mQueries, {});
        Account().AnnounceChanges([this](std::size_t query, const Value& first) {
            EXPECT_EQ(first, Value(static_cast<std::int64_t>(query) + 1));
            return ChangeOf(static_cast<int>(first.ToInteger()));
        });
    }
    StatementText ChangeOf(int id) const {
        StatementText change("update Probe set i = i + ");
        change.Number(id == 2 ? mSecondAdds : 1) << " where id = ";
        return change.Number(id);
    }
    void AskAndChange(int id) {
        Answer(mQueries[static_cast<std::size_t>(id - 1)]);
        Account().OpenRecordSet(ChangeOf(id));
    }
    std::string Counts() { return Rows("select i from Probe order by id"); }

    std::int64_t mSecondAdds = 1;
    std::vector<StatementText> mQueries;
};

TEST_F(ChangesAhead, EachIsMadeOnce) {
    for (int id = 1; id <= 3; ++id) AskAndChange(id);
    EXPECT_EQ(Counts(), "1\n1\n1\n");
    Account().OpenRecordSet(ChangeOf(3));
    EXPECT_EQ(Counts(), "1\n1\n2\n");
}

TEST_F(ChangesAhead, AFailureIsThatOfItsChangeAlone) {
    mSecondAdds = 2'147'483'648;
    AskAndChange(1);
    EXPECT_EQ(Counts(), "1\n0\n0\n");
    EXPECT_THROW(AskAndChange(2), DatabaseError);
    EXPECT_EQ(Counts(), "1\n0\n0\n");
    AskAndChange(3);
    EXPECT_EQ(Counts(), "1\n0\n1\n");
}

TEST_F(ChangesAhead, AnotherOnesLockIsThatOfItsChangeAlone) {
    if (Engine() == EngineKind::Sqlite) GTEST_SKIP() << "a file has one writer";
    const auto other = Connect();
    platform::Transaction transaction(*other);
    other->Execute(StatementText("update Probe set i = 7 where id = 2"));
    AskAndChange(1);
    EXPECT_THROW(AskAndChange(2), platform::DatabaseBusy);
    AskAndChange(3);
    transaction.Commit();
    EXPECT_EQ(Counts(), "1\n7\n1\n");
}

TEST_F(ChangesAhead, AnotherChangeIsMadeInItsTurn) {
    Answer(mQueries[0]);
    Account().OpenRecordSet(StatementText("update Probe set i = 5 where id = 1"));
    AskAndChange(2);
    EXPECT_EQ(Rows("select i from Probe where id < 3 order by id"), "5\n1\n");
}

TEST_F(ChangesAhead, OfAnEndedAnnouncementNoneIsMade) {
    Account().ReadAhead({}, {});
    AskAndChange(1);
    EXPECT_EQ(Counts(), "1\n0\n0\n");
}

}  // namespace
}  // namespace kelvane::database_test
