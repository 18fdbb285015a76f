// The record set's contract.
#include <gtest/gtest.h>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {
namespace {

using platform::DatabaseError;
using platform::DateTime;
using platform::LockType;
using platform::Money;
using platform::Value;

class RecordSets : public AccountTest {};

TEST_F(RecordSets, HoldsEveryKindOfValue) {
    Execute(
        "insert into Probe(id,c,n,i,t,s,b,m,f,d) values(1,'text','宽',-5,255,-7,1,-12.3456,0.1,"
        "'2004-06-30 12:30:00')");
    const auto set = Open("select c,n,i,t,s,b,m,f,d,null from Probe");
    EXPECT_EQ(set->FieldCount(), 10);
    EXPECT_EQ(set->Field(0), Value("text"));
    EXPECT_EQ(set->Field(1), Value("宽"));
    EXPECT_EQ(set->Field(2), Value(std::int64_t{-5}));
    EXPECT_EQ(set->Field(3), Value(std::int64_t{255}));
    EXPECT_EQ(set->Field(4), Value(std::int64_t{-7}));
    EXPECT_EQ(set->Field(5), Value(std::int64_t{1}));
    EXPECT_EQ(set->Field(6), Value(Money::FromText("-12.3456")));
    EXPECT_EQ(set->Field(7), Value(0.1));
    EXPECT_EQ(set->Field(8), Value(DateTime{2004, 6, 30, 12, 30}));
    EXPECT_TRUE(set->Field(9).IsNull());
}

TEST_F(RecordSets, WalksItsRows) {
    Execute("insert into Probe(id) values(1) insert into Probe(id) values(2)");
    const auto set = Open("select id from Probe order by id");
    EXPECT_EQ(set->RecordCount(), 2);
    EXPECT_FALSE(set->EndOfFile());
    set->MoveNext();
    EXPECT_EQ(set->Field("ID"), Value(std::int64_t{2}));
    set->MoveNext();
    EXPECT_TRUE(set->EndOfFile());
    EXPECT_THROW(set->Field(0), DatabaseError);
    set->MoveNext();
    EXPECT_TRUE(set->EndOfFile());
    set->MoveFirst();
    EXPECT_EQ(set->Field(0), Value(std::int64_t{1}));
}

TEST_F(RecordSets, IsASnapshot) {
    Execute("insert into Probe(id,i) values(1,1)");
    const auto set = Open("select i from Probe");
    Execute("update Probe set i = 2 delete from Probe");
    EXPECT_EQ(set->RecordCount(), 1);
    EXPECT_EQ(set->Field(0), Value(std::int64_t{1}));
}

TEST_F(RecordSets, AnEmptyOneStaysAtItsEnd) {
    const auto set = Open("select * from Probe");
    EXPECT_TRUE(set->EndOfFile());
    set->MoveFirst();
    EXPECT_TRUE(set->EndOfFile());
    set->MoveNext();
    EXPECT_TRUE(set->EndOfFile());
    EXPECT_EQ(set->RecordCount(), 0);
    EXPECT_THROW(set->Field("id"), DatabaseError);
}

TEST_F(RecordSets, AStatementWithoutRowsGivesAnEmptyOne) {
    const auto set = Open("insert into Probe(id) values(1)");
    EXPECT_TRUE(set->EndOfFile());
    EXPECT_EQ(set->FieldCount(), 0);
    EXPECT_EQ(Rows("insert into Probe(id) values(2) select id from Probe order by id select 5"),
              "1\n2\n");
}

TEST_F(RecordSets, RefusesUnknownFields) {
    Execute("insert into Probe(id) values(1)");
    const auto set = Open("select id,count(*) from Probe group by id");
    EXPECT_THROW(set->Field(-1), DatabaseError);
    EXPECT_THROW(set->Field(2), DatabaseError);
    EXPECT_THROW(set->Field(""), DatabaseError);
    EXPECT_EQ(TextOfError([&] { set->Field("none"); }),
              "Item 'none' cannot be found in the record set.");
}

TEST_F(RecordSets, WritesEveryKindOfValue) {
    Execute("insert into Probe(id) values(1) insert into Probe(id) values(2)");
    const auto set = Open("select * from Probe where id = 1", LockType::Optimistic);
    set->SetField("c", Value(std::int64_t{12}));
    set->SetField("n", Value("宽'"));
    set->SetField("i", Value(Money::FromText("2.5")));
    set->SetField("t", Value(""));
    set->SetField("b", Value("true"));
    set->SetField("m", Value(0.1));
    set->SetField("f", Value(Money::FromText("1.25")));
    set->SetField("d", Value("2004.07.01"));
    set->Update();
    EXPECT_EQ(Rows("select id,c,n,i,t,b,m,f,d from Probe order by id"),
              "1|12|宽'|3|0|1|0.1|1.25|2004-07-01\n2|NULL|NULL|NULL|NULL|NULL|NULL|NULL|NULL\n");
    set->SetField("d", Value(DateTime{2005, 1, 2, 3, 4, 5}));
    set->SetField("c", Value());
    set->Update();
    EXPECT_EQ(Rows("select c,d from Probe where id = 1"), "NULL|2005-01-02 03:04:05.000\n");
}

TEST_F(RecordSets, RefusesWhatAColumnCannotHold) {
    Execute("insert into Coded(code,name) values('a','b') insert into Probe(id) values(1)");
    const auto set = Open("select * from Probe", LockType::Optimistic);
    EXPECT_EQ(ErrorOf([&] { set->SetField("i", Value("x")); }), 245);
    EXPECT_EQ(ErrorOf([&] { set->SetField("t", Value(std::int64_t{256})); }), 8115);
    EXPECT_EQ(ErrorOf([&] { set->SetField("c", Value("一二三四五六")); }), 8152);
    EXPECT_EQ(ErrorOf([&] { set->SetField("d", Value(DateTime{100, 1, 1})); }), 242);
    EXPECT_EQ(ErrorOf([&] { set->SetField("m", Value("1.2.3")); }), 235);
    const auto coded = Open("select * from Coded", LockType::Optimistic);
    coded->SetField("name", Value());
    EXPECT_EQ(ErrorOf([&] { coded->Update(); }), 515);
    EXPECT_EQ(Rows("select * from Coded"), "a|b\n");
}

TEST_F(RecordSets, RefusesToChangeWhatIsNoTablesRow) {
    Execute("insert into Probe(id,i) values(1,1)");
    const auto readOnly = Open("select * from Probe");
    EXPECT_THROW(readOnly->SetField("i", Value(std::int64_t{2})), DatabaseError);
    const auto joined = Open("select a.i from Probe a, Probe b", LockType::Optimistic);
    EXPECT_THROW(joined->SetField("i", Value(std::int64_t{2})), DatabaseError);
    const auto computed = Open("select i + 1 as j from Probe", LockType::Optimistic);
    EXPECT_THROW(computed->SetField("j", Value(std::int64_t{2})), DatabaseError);
}

TEST_F(RecordSets, ChangesTheCurrentRowAlone) {
    Execute("insert into Probe(id,i) values(1,1) insert into Probe(id,i) values(2,2)");
    const auto set = Open("select id,i from Probe order by id", LockType::Optimistic);
    set->SetField("i", Value(std::int64_t{10}));
    set->MoveNext();
    set->SetField("i", Value(std::int64_t{20}));
    set->Update();
    EXPECT_EQ(Rows("select i from Probe order by id"), "1\n20\n");
}

// The same columns with other values, and other columns in between.
TEST_F(RecordSets, EachChangeIsItsOwn) {
    Execute("insert into Probe(id,i) values(1,10) insert into Probe(id,i) values(2,20)");
    const auto change = [this](const char* column, const Value& value) {
        const auto set = Open("select id,i,c from Probe order by id", LockType::Optimistic);
        set->MoveNext();
        set->SetField(column, value);
        set->Update();
    };
    change("i", Value(std::int64_t{21}));
    change("i", Value(std::int64_t{22}));
    change("c", Value("c"));
    Execute("delete from Probe where id = 1 insert into Probe(id,i) values(3,30)");
    change("i", Value(std::int64_t{31}));
    EXPECT_EQ(Rows("select id,i,c from Probe order by id"), "2|22|c\n3|31|NULL\n");
}

TEST_F(RecordSets, ATransactionDoesNotVouchForRowsReadBeforeIt) {
    Execute("insert into Probe(id,i) values(1,1)");
    const auto set = Open("select id,i from Probe where id = 1", LockType::Optimistic);
    Connect()->Execute(platform::StatementText("update Probe set i = 5 where id = 1"));
    platform::Transaction transaction(Account());
    set->SetField("i", Value(std::int64_t{2}));
    EXPECT_EQ(TextOfError([&] { set->Update(); }),
              "Row cannot be located for updating. Some values may have been changed since it was "
              "last read.");
    transaction.RollBack();
    EXPECT_EQ(Rows("select i from Probe"), "5\n");
}

TEST_F(RecordSets, IsClosedOnce) {
    const auto set = Open("select id from Probe");
    EXPECT_EQ(set->State(), platform::kStateOpen);
    set->Close();
    EXPECT_EQ(set->State(), 0);
    EXPECT_THROW(set->Close(), DatabaseError);
    EXPECT_THROW(set->EndOfFile(), DatabaseError);
}

TEST_F(RecordSets, ConnectionsSayWhetherTheyAreOpen) {
    const auto other = Connect();
    EXPECT_EQ(other->State(), platform::kStateOpen);
    EXPECT_THROW(other->Open("", "", -1), DatabaseError);
    other->Close();
    EXPECT_EQ(other->State(), 0);
    EXPECT_THROW(other->Execute(platform::StatementText("delete from Probe")), DatabaseError);
    EXPECT_THROW(other->Begin(), DatabaseError);
    other->Open("", "", -1);
    EXPECT_EQ(other->State(), platform::kStateOpen);
}

}  // namespace
}  // namespace kelvane::database_test
