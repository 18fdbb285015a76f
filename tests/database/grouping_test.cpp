// Rows that are grouped, and changes that read their own table: what engines need other forms for.
#include <gtest/gtest.h>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {
namespace {

class Grouping : public AccountTest {
protected:
    Grouping() {
        Execute(
            "insert into Probe(id,c,n,i,m) values(1,'ab','x',7,1)"
            " insert into Probe(id,c,n,i,m) values(2,'AB ','x',7,2)"
            " insert into Probe(id,c,n,i,m) values(3,null,'yy',8,3)");
    }
};

TEST_F(Grouping, AConstantIsNoGroup) {
    EXPECT_EQ(Rows("select distinct 'x',5,null,1.5,-2 from Probe"), "x|5|NULL|1.5|-2\n");
    EXPECT_EQ(SortedRows("select distinct 1.5,i from Probe"), "1.5|7\n1.5|8\n");
    EXPECT_EQ(Rows("select distinct 'x',convert(money,5) from Probe where id = 0"), "");
    EXPECT_EQ(Rows("select max('x'),min(5) from Probe"), "x|5\n");
    EXPECT_EQ(Rows("select i,max('x') from Probe group by i order by i"), "7|x\n8|x\n");
}

TEST_F(Grouping, AConstantGivesNoOrder) {
    EXPECT_EQ(Rows("select 9 as a,id from Probe order by a,id desc"), "9|3\n9|2\n9|1\n");
    EXPECT_EQ(Rows("select 'x' as a,id from Probe order by a,id"), "x|1\nx|2\nx|3\n");
}

TEST_F(Grouping, RowsArePickedOneByOneBefore) {
    EXPECT_EQ(Rows("select c,count(*) from Probe where c is not null and c like 'a%' group by c"),
              "ab|2\n");
    EXPECT_EQ(Rows("select distinct c from Probe where isnull(c,'') <> ''"), "ab\n");
    EXPECT_EQ(Rows("select a.n,count(*) from Probe a inner join Probe b on a.n + 'y' = b.n + 'y' "
                   "group by a.n order by a.n"),
              "x|4\nyy|1\n");
}

TEST_F(Grouping, WhatIsPutTogetherOfTextsIsAGroup) {
    EXPECT_EQ(SortedRows("select distinct n+n,n,len(n) from Probe"), "xx|x|1\nyyyy|yy|2\n");
    EXPECT_EQ(Rows("select n + 'z',count(*) from Probe group by n + 'z',n order by 2"),
              "yyz|1\nxz|2\n");
}

TEST_F(Grouping, AQueryOfAnotherTableIsAGroup) {
    EXPECT_EQ(SortedRows("select distinct len(p.n) - (select max(x.id) from Probe x where x.i <> "
                         "p.i),p.n from Probe p"),
              "-2|x\n0|yy\n");
}

TEST_F(Grouping, AChangeReadsItsTableAsItWas) {
    Execute("delete from Probe where id = 3");
    Execute(
        "update Probe set m = 9 where (select max(x.m) from Probe x where x.id <> Probe.id) < 5");
    EXPECT_EQ(Rows("select id,m from Probe order by id"), "1|9\n2|9\n");
    Execute("delete from Probe where (select count(*) from Probe x where x.id <> Probe.id) = 1");
    EXPECT_EQ(Rows("select count(*) from Probe"), "0\n");
}

}  // namespace
}  // namespace kelvane::database_test
