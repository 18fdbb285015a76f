// Queries that were announced: which of them go to the server together, and that each still has its
// own answer, its own failure and its own turn.
#include <vector>

#include "tests/unit/odbc/server_fixture.h"

namespace kelvane::odbc {
namespace {

using platform::ConnectionLost;
using platform::DatabaseError;
using platform::FixedText;
using platform::LockType;
using platform::StatementText;
using platform::Value;

class ReadingAhead : public ServerTest {
protected:
    void Announce(const std::vector<FixedText>& queries, LockType lock = LockType::ReadOnly) {
        const std::vector<StatementText> statements(queries.begin(), queries.end());
        Server().ReadAhead(statements, {.lock = lock});
    }
    std::string First(FixedText query) { return Query(query)->Field(0).ToText(); }
};

constexpr const char* kBoth =
    "run select 1;select 2\ncolumns - INTEGER\nrow 1\n"
    "columns - INTEGER\nrow 2\n";

TEST_F(ReadingAhead, AsksAnnouncedQueriesInOneCall) {
    Open(kBoth);
    Announce({"select 1", "select 2"});
    EXPECT_EQ(Log(), "");
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_EQ(First("select 2"), "2");
    EXPECT_EQ(Log(), "run select 1;select 2\n");
}

TEST_F(ReadingAhead, AsksTheSameTextOnce) {
    Open("run select a from T;select b from T\ncolumns a INTEGER\nrow 1\ncolumns b VARCHAR 9\n");
    Announce({"select a from T", "select b from T", "select a from T"});
    const auto first = Query("select a from T");
    EXPECT_TRUE(Query("select b from T")->EndOfFile());
    const auto again = Query("select a from T");
    first->MoveNext();
    EXPECT_TRUE(first->EndOfFile());
    EXPECT_EQ(again->Field("a"), Value(std::int64_t{1}));
    EXPECT_EQ(Driver().Left(), 0);
}

TEST_F(ReadingAhead, GoesOnAfterAnotherStatementInBetween) {
    Open(std::string(kBoth) +
         "run update T set a = 1\ncount 1\nrun select 2\ncolumns - INTEGER\n"
         "row 3");
    Announce({"select 1", "select 2"});
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_TRUE(Query("update T set a = 1")->EndOfFile());
    EXPECT_EQ(First("select 2"), "2");
    EXPECT_EQ(First("select 2"), "3");
}

TEST_F(ReadingAhead, AnswersOnlyTheNextQueryOpenedAsAnnounced) {
    Open(
        "run select 2\ncolumns - INTEGER\nrow 5\nrun select 1\ncolumns - INTEGER\nrow 6\n"
        "run select 1;select 2\ncolumns - INTEGER\nrow 1\ncolumns - INTEGER\nrow 2");
    Announce({"select 1", "select 2"});
    EXPECT_EQ(First("select 2"), "5");
    EXPECT_EQ(Query("select 1", LockType::Optimistic)->Field(0).ToText(), "6");
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_EQ(First("select 2"), "2");
}

TEST_F(ReadingAhead, LeavesAFailureToTheQueryThatFails) {
    Open(
        "run select 1;select x;select 2\ncolumns - INTEGER\nrow 1\nerror 22018 245 no number\n"
        "columns - INTEGER\nrow 2\n"
        "run select 1\ncolumns - INTEGER\nrow 1\n"
        "run select x\nerror 22018 245 no number\n"
        "run select 2\ncolumns - INTEGER\nrow 2");
    Announce({"select 1", "select x", "select 2"});
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_EQ(TextOf<DatabaseError>([&] { Query("select x"); }), "no number");
    EXPECT_EQ(First("select 2"), "2");
    EXPECT_EQ(Driver().Left(), 0);
}

TEST_F(ReadingAhead, TrustsNoAnswersOfAnotherNumber) {
    Open(
        "run select 1;select 2\ncolumns - INTEGER\nrow 1\n"
        "run select 1\ncolumns - INTEGER\nrow 1\nrun select 2\ncolumns - INTEGER\nrow 2\n");
    Announce({"select 1", "select 2"});
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_EQ(First("select 2"), "2");
    EXPECT_EQ(Driver().Left(), 0);
}

TEST_F(ReadingAhead, StopsBeforeWhatIsNoQuery) {
    Open(
        "run select 1\ncolumns - INTEGER\nrow 1\nrun delete from T\ncount 1\n"
        "run select 2\ncolumns - INTEGER\nrow 2");
    Announce({"select 1", "delete from T", "select 2"});
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_TRUE(Query("delete from T")->EndOfFile());
    EXPECT_EQ(First("select 2"), "2");
    EXPECT_EQ(Log(), "run select 1\nrun delete from T\nrun select 2\n");
}

TEST_F(ReadingAhead, LeavesMalformedQueriesOut) {
    Open(kBoth);
    StatementText malformed("select '");
    malformed.Inside("a'b") << "'";
    const std::vector<StatementText> queries{StatementText("select 1"), malformed,
                                             StatementText("select 2")};
    Server().ReadAhead(queries, {.lock = LockType::ReadOnly});
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_THROW(Server().OpenRecordSet(malformed), platform::MalformedStatement);
    EXPECT_EQ(First("select 2"), "2");
    EXPECT_EQ(Driver().Left(), 0);
}

TEST_F(ReadingAhead, SendsALongAnnouncementInPieces) {
    constexpr int kPiece = 1024;
    std::vector<StatementText> queries;
    std::string script = "run ";
    std::string answers;
    for (int i = 0; i < kPiece; ++i) {
        queries.push_back(StatementText("select "));
        queries.back().Number(i);
        script += (i > 0 ? ";" : "") + queries.back().Text();
        answers += "\ncolumns - INTEGER\nrow " + std::to_string(i);
    }
    queries.push_back(StatementText("select "));
    queries.back().Number(kPiece);
    Open(script + answers + "\nrun select 1024\ncolumns - INTEGER\nrow 1024");
    Server().ReadAhead(queries, {});
    for (int i = 0; i <= kPiece; ++i) {
        EXPECT_EQ(Server().OpenRecordSet(queries[static_cast<std::size_t>(i)])->Field(0),
                  Value(std::int64_t{i}));
    }
    EXPECT_EQ(Driver().Left(), 0);
}

// What comes after an end is asked anew, whatever came before.
class ReadingAheadEnds : public ReadingAhead {
protected:
    template <typename Ending>
    void ExpectEndBy(Ending ending, const std::string& script = {}) {
        Open(std::string(kBoth) + script + "run select 2\ncolumns - INTEGER\nrow 3");
        Announce({"select 1", "select 2"});
        EXPECT_EQ(First("select 1"), "1");
        ending();
        EXPECT_EQ(First("select 2"), "3");
    }
};

TEST_F(ReadingAheadEnds, WithAnEmptyAnnouncement) {
    ExpectEndBy([&] { Announce({}); });
}

TEST_F(ReadingAheadEnds, WithOneOfRowsToBeLocked) {
    ExpectEndBy([&] { Announce({"select 2"}, LockType::Pessimistic); });
}

TEST_F(ReadingAheadEnds, WithAnExecutedStatement) {
    ExpectEndBy([&] { Execute("delete from T"); }, "run delete from T\ncount 1\n");
}

TEST_F(ReadingAheadEnds, WithALockedRow) {
    ExpectEndBy([&] { Query("select a from T where id = 1", LockType::Pessimistic)->Close(); },
                "run update T set a = a where id = 1\ncount 1\n"
                "run select a from T where id = 1\ncolumns a INTEGER\nrow 7\n");
}

TEST_F(ReadingAheadEnds, WithATransaction) {
    ExpectEndBy([&] { Server().Begin(); });
}

TEST_F(ReadingAheadEnds, WithTheCommit) {
    ExpectEndBy([&] {
        Server().Begin();
        Announce({"select 2", "select 1"});
        Server().Commit();
    });
}

TEST_F(ReadingAheadEnds, WithTheRollBack) {
    ExpectEndBy([&] {
        Server().Begin();
        Announce({"select 2", "select 1"});
        Server().RollBack();
    });
}

TEST_F(ReadingAheadEnds, WithAChangedRow) {
    ExpectEndBy(
        [&] {
            const auto row = Query("select a from T where id = 1", LockType::Optimistic);
            row->SetField("a", Value(std::int64_t{8}));
            row->Update();
        },
        "run select a from T where id = 1\ncolumns a INTEGER\nrow 7\n"
        "run update T set a = 8 where (id = 1) and a = 7\ncount 1\n");
}

TEST_F(ReadingAhead, AsksOneByOneInsideATransaction) {
    Open("run select 1\ncolumns - INTEGER\nrow 1\nrun select 2\ncolumns - INTEGER\nrow 2");
    Server().Begin();
    Announce({"select 1", "select 2"});
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_EQ(First("select 2"), "2");
    Server().RollBack();
}

TEST_F(ReadingAhead, TellsOfALostConnection) {
    Open(
        "run select 1;select 2\nerror 08S01 20006 Communication link failure\ndies\n"
        "run select 1\ncolumns - INTEGER\nrow 1");
    Announce({"select 1", "select 2"});
    EXPECT_NE(TextOf<ConnectionLost>([&] { Query("select 1"); }), "");
    EXPECT_EQ(First("select 1"), "1");
}

TEST_F(ReadingAhead, OfAClosedConnectionIsNothing) {
    OdbcConnection closed;
    const std::vector<StatementText> queries{StatementText("select 1")};
    EXPECT_NO_THROW(closed.ReadAhead(queries, {}));
}

// A record set of an answer read ahead can be changed like any other.
TEST_F(ReadingAhead, GivesRowsThatCanBeChanged) {
    Open(
        "run select a from T where id = 1;select a from T where id = 2\n"
        "columns a INTEGER\nrow 7\ncolumns a INTEGER\nrow 8\n"
        "run update T set a = 9 where (id = 2) and a = 8\ncount 1\n");
    Announce({"select a from T where id = 1", "select a from T where id = 2"},
             LockType::Optimistic);
    Query("select a from T where id = 1", LockType::Optimistic);
    const auto row = Query("select a from T where id = 2", LockType::Optimistic);
    row->SetField("a", Value(std::int64_t{9}));
    EXPECT_NO_THROW(row->Update());
    EXPECT_EQ(Driver().Left(), 0);
}

// This dialect has no text that does all or nothing.
TEST_F(ReadingAhead, LeavesEachChangeToItsTurn) {
    Open(std::string(kBoth) +
         "run update T set a = 1\ncount 1\nrun update T set a = 2\nerror 23000 547 refused\n");
    Announce({"select 1", "select 2"});
    Server().AnnounceChanges([](std::size_t, const Value& first) {
        StatementText change("update T set a = ");
        return change.Number(first.ToInteger());
    });
    EXPECT_EQ(First("select 1"), "1");
    EXPECT_TRUE(Query("update T set a = 1")->EndOfFile());
    EXPECT_EQ(First("select 2"), "2");
    EXPECT_EQ(TextOf<DatabaseError>([&] { Query("update T set a = 2"); }), "refused");
    EXPECT_EQ(Log(), "run select 1;select 2\nrun update T set a = 1\nrun update T set a = 2\n");
}

}  // namespace
}  // namespace kelvane::odbc
