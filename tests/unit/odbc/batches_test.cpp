// Batches, their results and their errors.
#include "tests/unit/odbc/server_fixture.h"

namespace kelvane::odbc {
namespace {

using platform::DatabaseError;
using platform::Value;

class Batches : public ServerTest {};

TEST_F(Batches, AreSentAsTheyStand) {
    Open(
        "run delete from T where a=1 insert into T(a) values('x')insert into T(a) values(2)\n"
        "count 1\ncount 1\ncount 1");
    Execute("delete from T where a=1 insert into T(a) values('x')insert into T(a) values(2)");
    EXPECT_EQ(Driver().Left(), 0);
}

TEST_F(Batches, FailWhenALaterStatementDoes) {
    Open(
        "run delete from T insert into T(a) values(1) insert into T(a) values(2)\n"
        "count 1\n"
        "error 23000 2627 [Own][Driver][Engine]Violation of PRIMARY KEY constraint 'pk'.\n"
        "count 1\n"
        "run select 1\ncolumns - INTEGER\nrow 1");
    try {
        Execute("delete from T insert into T(a) values(1) insert into T(a) values(2)");
        FAIL() << "the failed statement was not noticed";
    } catch (const DatabaseError& error) {
        EXPECT_STREQ(error.what(), "Violation of PRIMARY KEY constraint 'pk'.");
        EXPECT_EQ(error.NativeCode(), 2627);
    }
    EXPECT_EQ(Query("select 1")->Field(0), Value(std::int64_t{1}));
}

TEST_F(Batches, AreNotFailedByWarnings) {
    Open(
        "run select a from T\ncolumns a INTEGER\nrow 5\nwarning 01003 8153 Null was eliminated\n"
        "run print\nwarning 01000 0 said");
    EXPECT_EQ(Query("select a from T")->Field(0), Value(std::int64_t{5}));
    EXPECT_NO_THROW(Execute("print"));
}

TEST_F(Batches, GiveTheRowsOfTheirFirstQuery) {
    Open(
        "run insert into T values(1) select a from T select b from T\n"
        "count 1\ncolumns a INTEGER\nrow 1\nrow 2\ncolumns b INTEGER|c INTEGER\nrow 3|4");
    const auto set = Query("insert into T values(1) select a from T select b from T");
    EXPECT_EQ(set->RecordCount(), 2);
    EXPECT_EQ(set->FieldCount(), 1);
}

TEST_F(Batches, WithoutRowsGiveAnEmptySet) {
    Open("run delete from T\ncount 0\nrun select a from T\ncolumns a INTEGER");
    const auto none = Query("delete from T");
    EXPECT_TRUE(none->EndOfFile());
    EXPECT_EQ(none->FieldCount(), 0);
    const auto empty = Query("select a from T");
    EXPECT_TRUE(empty->EndOfFile());
    EXPECT_EQ(empty->FieldCount(), 1);
    EXPECT_EQ(empty->RecordCount(), 0);
    EXPECT_THROW(empty->Field("a"), DatabaseError);
}

TEST_F(Batches, ThatAreMalformedNeverReachTheServer) {
    Open("");
    platform::StatementText statement("select '");
    statement.Inside("a'b") << "'";
    EXPECT_THROW(Server().Execute(statement), platform::MalformedStatement);
    EXPECT_EQ(Log(), "");
}

// A driver that reports the same error for ever.
TEST_F(Batches, EndThoughTheDriverDoesNot) {
    std::string script = "run x\n";
    for (int i = 0; i < 2000; ++i) script += "error HY000 5 again\n";
    Open(script);
    EXPECT_EQ(TextOf<DatabaseError>([&] { Execute("x"); }), "again");
}

}  // namespace
}  // namespace kelvane::odbc
