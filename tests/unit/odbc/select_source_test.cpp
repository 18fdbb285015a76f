#include "adapters/odbc/select_source.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvane::odbc {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SelectSources, AreTheOneTableOfAQuery) {
    const auto source =
        ReadBatch("select cValue from PM_SettingInf where cName='NumMax_EleQc'").source;
    ASSERT_TRUE(source);
    EXPECT_EQ(source->table, "PM_SettingInf");
    EXPECT_EQ(source->condition, "cName='NumMax_EleQc'");
    EXPECT_THAT(source->columns, ElementsAre("cValue"));
    EXPECT_EQ(source->conditionColumn, "cName");
    EXPECT_FALSE(source->holdsLock);
}

TEST(SelectSources, KnowTheHint) {
    const auto source =
        ReadBatch("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=12").source;
    ASSERT_TRUE(source);
    EXPECT_EQ(source->table, "PM_ItemQC");
    EXPECT_EQ(source->condition, "iEleVid=12");
    EXPECT_THAT(source->columns, IsEmpty());
    EXPECT_EQ(source->conditionColumn, "iEleVid");
    EXPECT_TRUE(source->holdsLock);
}

TEST(SelectSources, EndTheConditionWhereItEnds) {
    EXPECT_EQ(ReadBatch("select a from T where (b in (select b from U where c='x order by y')) "
                        "order by a;")
                  .source->condition,
              "(b in (select b from U where c='x order by y'))");
    EXPECT_EQ(ReadBatch("select a,b+1 from T order by a").source->condition, "");
    EXPECT_THAT(ReadBatch("select a,b+1 from T").source->columns, ElementsAre("a", ""));
}

TEST(SelectSources, AreNoneForWhatIsNoTablesRow) {
    for (const char* batch :
         {"select a.i from Probe a, Probe b", "select count(*) from T", "select distinct a from T",
          "select a from T group by a", "select 1", "select a from T select b from T",
          "delete from T", "select x.a from T x where x.a=1"}) {
        EXPECT_FALSE(ReadBatch(batch).source) << batch;
    }
}

TEST(SelectSources, TellWhetherABatchOnlyReads) {
    EXPECT_TRUE(ReadBatch("select 1 select 2").onlyQueries);
    EXPECT_FALSE(ReadBatch("select 1 delete from T").onlyQueries);
    EXPECT_FALSE(ReadBatch("exec something 'x'").onlyQueries);
    EXPECT_FALSE(ReadBatch("exec something 'x'").source);
    EXPECT_FALSE(ReadBatch("select 'x").onlyQueries);
}

}  // namespace
}  // namespace kelvane::odbc
