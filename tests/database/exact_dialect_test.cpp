// What the dialect does where another server that reads it may do otherwise: nothing that the
// component's statements need.
#include <gtest/gtest.h>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {
namespace {

class ExactDialect : public ExactDialectTest {};

TEST_F(ExactDialect, RefusesTextThatIsNoNumber) {
    Execute("insert into Probe(id,i,t) values(1,7,8)");
    ExpectFailure("Conversion failed when converting the varchar value 'abc' to data type int.",
                  [&] { Open("select id from Probe where i = 'abc'"); });
    ExpectFailure(245, [&] { Open("select id from Probe where i = 'abc'"); });
    ExpectFailure(245, [&] { Open("select id from Probe where i = '12.5'"); });
    ExpectFailure(248, [&] { Open("select id from Probe where i = '99999999999'"); });
    ExpectFailure(244, [&] { Open("select id from Probe where t = '300'"); });
    ExpectFailure(235, [&] { Open("select id from Probe where m = 'abc'"); });
    ExpectFailure(8114, [&] { Open("select id from Probe where f = 'abc'"); });
    EXPECT_EQ(Rows("select id from Probe where i = '7'"), "1\n");
}

TEST_F(ExactDialect, AmountsBecomeTextInThreeStyles) {
    Execute(
        "insert into Probe(id,m) values(1,1234567.8951) insert into Probe(id,m) values(2,-0.125)"
        " insert into Probe(id,m) values(3,922337203685477.5807) insert into Probe(id) values(4)"
        " insert into Probe(id,m) values(5,0)");
    EXPECT_EQ(Rows("select convert(varchar,m),convert(varchar,m,1),convert(varchar,m,2) from Probe "
                   "order by id"),
              "1234567.90|1,234,567.90|1234567.8951\n-0.13|-0.13|-0.1250\n"
              "922337203685477.58|922,337,203,685,477.58|922337203685477.5807\nNULL|NULL|NULL\n"
              "0.00|0.00|0.0000\n");
}

TEST_F(ExactDialect, TextsBecomeWhatTheySay) {
    Execute("insert into Probe(id,c) values(1,' 12 ') insert into Probe(id,c) values(2,'')");
    EXPECT_EQ(Rows("select convert(int,c),convert(money,c),convert(float,c) from "
                   "Probe order by id"),
              "12|12|12\n0|0|0\n");
    Execute("update Probe set c = '2004.6.5' where id = 1");
    EXPECT_EQ(Rows("select convert(datetime,c) from Probe order by id"),
              "2004-06-05\n1900-01-01\n");
    Execute("update Probe set c = '-1.25' where id = 1");
    EXPECT_EQ(Rows("select convert(money,c),convert(float,c) from Probe where id = 1"),
              "-1.25|-1.25\n");
}

TEST_F(ExactDialect, TextsThatSaySomethingElseAreRefused) {
    Execute("insert into Probe(id,c) values(1,'1x')");
    ExpectFailure("Conversion failed when converting the varchar value '1x' to data type int.",
                  [&] { Open("select convert(int,c) from Probe"); });
    ExpectFailure(235, [&] { Open("select convert(money,c) from Probe"); });
    ExpectFailure(8114, [&] { Open("select convert(float,c) from Probe"); });
    ExpectFailure(241, [&] { Open("select convert(datetime,c) from Probe"); });
    Execute("update Probe set c = '9999999999'");
    ExpectFailure(248, [&] { Open("select convert(int,c) from Probe"); });
    ExpectFailure(244, [&] { Open("select convert(tinyint,c) from Probe"); });
    Execute("update Probe set c = '2023-02-30'");
    ExpectFailure(242, [&] { Open("select convert(datetime,c) from Probe"); });
}

TEST_F(ExactDialect, LikeKeepsTrailingBlanks) {
    Execute("insert into Coded(code,name) values('P01  ','x')");
    EXPECT_EQ(Rows("select code from Coded where code like 'P01'"), "");
    EXPECT_EQ(Rows("select code from Coded where code like 'P01  '"), "P01  \n");
}

TEST_F(ExactDialect, ComparesWithADateInDots) {
    Execute("insert into Probe(id,d) values(1,'2005-01-01')");
    EXPECT_EQ(Rows("select id from Probe where d = '2005.1.1'"), "1\n");
    EXPECT_EQ(Rows("select id from Probe where d = '2005.1.2'"), "");
}

TEST_F(ExactDialect, WhatABatchCannotFindEndsIt) {
    ExpectFailure(
        208, [&] { Execute("insert into Coded(code,name) values('C','1') delete from Nowhere"); });
    EXPECT_EQ(Rows("select code from Coded order by code"), "C\n");
    ExpectFailure(207, [&] {
        Execute("insert into Coded(code,name) values('D','1') delete from Coded where x=1");
    });
    EXPECT_EQ(Rows("select code from Coded order by code"), "C\n");
}

}  // namespace
}  // namespace kelvane::database_test
