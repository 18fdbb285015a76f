// What the engine itself computes from columns: conversions, arithmetic, LIKE, groups. Constants
// never reach it unconverted, columns do.
#include <gtest/gtest.h>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {
namespace {

class Conversions : public AccountTest {};

TEST_F(Conversions, NumbersBecomeText) {
    Execute(
        "insert into Probe(id,i,f) values(1,-5,0.1) insert into Probe(id,i,f) values(2,70,1234567)"
        " insert into Probe(id,i,f) values(3,0,0.00001234567) insert into Probe(id,i,f) "
        "values(4,1,999999.96) insert into Probe(id,f) values(5,-123456.7)");
    EXPECT_EQ(Rows("select convert(varchar,i),convert(varchar(20),f) from Probe order by id"),
              "-5|0.1\n70|1.23457e+006\n0|1.23457e-005\n1|1e+006\nNULL|-123457\n");
}

TEST_F(Conversions, DatesBecomeTextInManyStyles) {
    Execute("insert into Probe(id,d) values(1,'2004-06-05 13:04:05.997')");
    EXPECT_EQ(Rows("select convert(varchar,d),convert(varchar,d,23),convert(varchar,d,102),"
                   "convert(varchar,d,111),convert(varchar,d,112),convert(varchar,d,120),"
                   "convert(varchar,d,121) from Probe"),
              "Jun  5 2004  1:04PM|2004-06-05|2004.06.05|2004/06/05|20040605|2004-06-05 13:04:05|"
              "2004-06-05 13:04:05.997\n");
    EXPECT_EQ(Rows("select convert(varchar(7),d,121) from Probe"), "2004-06\n");
    ExpectFailure(281, [&] { Open("select convert(varchar,d,99) from Probe"); });
}

TEST_F(Conversions, NumbersBecomeOtherNumbers) {
    Execute(
        "insert into Probe(id,m,f,i) values(1,2.5,2.9,300) insert into Probe(id,m,f,i) "
        "values(2,-2.5,-2.9,0)");
    EXPECT_EQ(Rows("select convert(int,m),convert(int,f),convert(money,i),convert(bit,i),"
                   "convert(money,f),convert(float,m) from Probe order by id"),
              "3|2|300|1|2.9|2.5\n-3|-2|0|0|-2.9|-2.5\n");
    Execute("update Probe set i = 38167 where id = 1");
    EXPECT_EQ(Rows("select convert(datetime,i) from Probe order by id"),
              "2004-07-01\n1900-01-01\n");
}

TEST_F(Conversions, ArithmeticCutsOffAndChecks) {
    Execute("insert into Probe(id,m,i) values(1,10,-7) insert into Probe(id) values(2)");
    EXPECT_EQ(Rows("select m/3,m*2,m-1,i/2,i%3,i*2 from Probe order by id"),
              "3.3333|20|9|-3|-1|-14\nNULL|NULL|NULL|NULL|NULL|NULL\n");
    EXPECT_EQ(Rows("select -10/3,i+m from Probe where id = 1"), "-3|3\n");
    ExpectFailure(8115, [&] { Open("select i*1000000000 from Probe"); });
    ExpectFailure(8134, [&] { Open("select m/0 from Probe where id = 1"); });
}

TEST_F(Conversions, PatternsMatchClassesAndAnyText) {
    Execute(
        "insert into Probe(id,c) values(1,'a_b') insert into Probe(id,c) values(2,'a%b')"
        " insert into Probe(id,c) values(3,'axb') insert into Probe(id,c) values(4,'期初')"
        " insert into Probe(id,c) values(5,'a.b') insert into Probe(id,c) values(6,'a]b')"
        " insert into Probe(id,c) values(7,'a\\b') insert into Probe(id) values(8)"
        " insert into Probe(id,c) values(9,'a\nb')");
    EXPECT_EQ(Rows("select id from Probe where c like 'A[_]B' order by id"), "1\n");
    EXPECT_EQ(Rows("select id from Probe where c like 'a[%]b' order by id"), "2\n");
    EXPECT_EQ(Rows("select id from Probe where c like 'a[W-Z]b' order by id"), "3\n");
    EXPECT_EQ(Rows("select id from Probe where c like '期_' order by id"), "4\n");
    EXPECT_EQ(Rows("select id from Probe where c like 'a.b' order by id"), "5\n");
    EXPECT_EQ(Rows("select id from Probe where c like 'a\\b' order by id"), "7\n");
    EXPECT_EQ(Rows("select id from Probe where c like 'a[^x]b' order by id"), "1\n2\n5\n6\n7\n9\n");
    EXPECT_EQ(Rows("select id from Probe where c like 'a%b' order by id"), "1\n2\n3\n5\n6\n7\n9\n");
    EXPECT_EQ(Rows("select id from Probe where c like 'a[x' order by id"), "");
    EXPECT_EQ(Rows("select id from Probe where c not like 'a%' order by id"), "4\n");
    EXPECT_EQ(Rows("select a.id from Probe a,Probe b where a.c like b.c and b.id=3"), "3\n");
}

TEST_F(Conversions, TextsKeepEveryCharacter) {
    Execute(
        "insert into Probe(id,c,n) values(1,'a\r\n\tb',N'😀𠀀') insert into Probe(id,c) "
        "values(2,'{?}\\\"$1')");
    EXPECT_EQ(One("select c from Probe where id = 1"), platform::Value("a\r\n\tb"));
    EXPECT_EQ(One("select n from Probe where n = N'😀𠀀'"), platform::Value("😀𠀀"));
    EXPECT_EQ(One("select c from Probe where c = '{?}\\\"$1'"), platform::Value("{?}\\\"$1"));
}

TEST_F(Conversions, NullsComeFirst) {
    Execute(
        "insert into Probe(id,c,m) values(1,'b',2) insert into Probe(id) values(2)"
        " insert into Probe(id,c,m) values(3,'A',1)");
    EXPECT_EQ(Rows("select id from Probe order by c"), "2\n3\n1\n");
    EXPECT_EQ(Rows("select id from Probe order by c desc"), "1\n3\n2\n");
    EXPECT_EQ(Rows("select id from Probe order by m desc"), "1\n3\n2\n");
    EXPECT_EQ(Rows("select top 2 id from Probe order by m"), "2\n3\n");
}

TEST_F(Conversions, GroupsTakeTextsTogether) {
    Execute(
        "insert into Probe(id,c,i) values(1,'B',1) insert into Probe(id,c,i) values(2,'a ',2)"
        " insert into Probe(id,c,i) values(3,'b',3) insert into Probe(id,i) values(4,4)");
    EXPECT_EQ(Rows("select max(i),count(c) from Probe group by c order by c"), "4|0\n2|1\n3|2\n");
    EXPECT_EQ(Rows("select min(c),max(d),count(distinct c) from Probe"), "a |NULL|2\n");
    EXPECT_EQ(Rows("select sum(i) from Probe group by c having count(*) > 1"), "4\n");
    EXPECT_EQ(
        Rows("select id from Probe where c in (select c from Probe where id = 3) order by id"),
        "1\n3\n");
    EXPECT_EQ(Rows("select i from Probe a where i = (select max(i) from Probe b where b.c = a.c) "
                   "order by i"),
              "2\n3\n");
}

TEST_F(Conversions, ColumnsJudgeWhatOtherColumnsGiveThem) {
    Execute(
        "insert into Probe(id,c,n) values(1,'x',N'一二三四五六') insert into Probe(id,c,n) "
        "values(2,'y','1234567890')");
    ExpectFailure(8152, [&] { Execute("update Probe set c = n"); });
    EXPECT_EQ(Rows("select c from Probe order by id"), "x\ny\n");
    Execute("update Probe set c = n + '   ' where id = 2");
    EXPECT_EQ(Rows("select c from Probe where id = 2"), "1234567890\n");
    Execute("insert into Coded(code,name) select c, n from Probe");
    EXPECT_EQ(Rows("select name from Coded order by code"), "1234567890\n一二三四五六\n");
}

}  // namespace
}  // namespace kelvane::database_test
