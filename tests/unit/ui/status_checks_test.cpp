#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class StatusChecksTest : public EntryListTest {
protected:
    StatusChecksTest() {
        data::LoadPmStartDate();
        data::LoadItemKeyFields();
        log.statements.clear();
        Form();
    }
    std::vector<std::string> Taken() {
        const std::vector<std::string> lines = log.Lines();
        log.statements.clear();
        return lines;
    }
};

TEST_F(StatusChecksTest, APeriodClosedAtOrAfterTheStartCounts) {
    EXPECT_FALSE(Form().CheckPeriodClosed());
    EXPECT_THAT(Taken(), ElementsAre("gEnv: select bflag_PM from Gl_mend where iperiod > = '7' "
                                     "and bflag_PM = '1'"));
    Run("insert into Gl_mend values(6,1)");
    Run("insert into Gl_mend values(8,0)");
    EXPECT_FALSE(Form().CheckPeriodClosed());
    Run("update Gl_mend set bflag_PM = 1 where iperiod = 8");
    EXPECT_TRUE(Form().CheckPeriodClosed());
    Run("delete from Gl_mend");
    Run("insert into Gl_mend values(7,1)");
    EXPECT_TRUE(Form().CheckPeriodClosed());
}

TEST_F(StatusChecksTest, TheLoginsYearIsLookedForAmongTheCarriedOver) {
    login.year = 2005;
    Run("insert into PM_TranControl values(2004)");
    EXPECT_FALSE(Form().CheckYearCarriedOver());
    EXPECT_THAT(Taken(),
                ElementsAre("gEnv: select count(*) from PM_TranControl where  IYear = '2005'"));
    Run("insert into PM_TranControl values(2005)");
    EXPECT_TRUE(Form().CheckYearCarriedOver());
}

TEST_F(StatusChecksTest, KeywordsNarrowTheItemByTheirType) {
    data::gItemKeyField1 = "标段";
    data::gItemKeyField2 = "楼号";
    const std::string base =
        "gEnv: select iclose,denddate from fitemss97sub where citemcode = 'P03'";
    data::gItemKeyType1 = data::gItemKeyType2 = 3;
    EXPECT_TRUE(Form().CheckItemSettled("P03", "", " "));
    EXPECT_TRUE(Form().CheckItemSettled("P03", "一标段", ""));
    EXPECT_FALSE(Form().CheckItemSettled("P03", "一标段", "5"));
    EXPECT_THAT(Taken(), ElementsAre(base, base + " and isnull(标段,'') = '一标段'",
                                     base + " and isnull(标段,'') = '一标段' and "
                                            "isnull(楼号,'') = '5'"));
    Run("update fitemss97sub set 楼号 = '5' where citemcode = 'P03'");
    for (const auto numeric : {std::int16_t{1}, std::int16_t{2}}) {
        data::gItemKeyType2 = numeric;
        EXPECT_TRUE(Form().CheckItemSettled("P03", "", "5"));
        EXPECT_FALSE(Form().CheckItemSettled("P03", "", "6"));
        EXPECT_THAT(Taken(), ElementsAre(base + " and isnull(楼号,'') = 5",
                                         base + " and isnull(楼号,'') = 6"));
    }
    // A column of fixed width fills its values up with blanks.
    EXPECT_TRUE(Form().CheckItemSettled("P03", "", "5  "));
    EXPECT_THAT(Taken(), ElementsAre(base + " and isnull(楼号,'') = 5  "));
    EXPECT_THAT(diagnostics.places, IsEmpty());
}

TEST_F(StatusChecksTest, ANumericKeywordThatIsNoNumberFailsBeforeTheDatabase) {
    data::gItemKeyField1 = "标段";
    data::gItemKeyType1 = 1;
    EXPECT_FALSE(Form().CheckItemSettled("P03", "1 or 1=1", ""));
    EXPECT_THAT(Taken(), IsEmpty());
    EXPECT_THAT(diagnostics.places, ElementsAre("CheckItemSettled"));
}

TEST_F(StatusChecksTest, MoreThanTwoKeyFieldsAreNamed) {
    data::gItemKeyField1.clear();
    data::gSurplusKeyFields = {"标段", "楼号", "期次"};
    EXPECT_FALSE(Form().CheckItemSettled("P03", "一标段", ""));
    EXPECT_THAT(diagnostics.places, ElementsAre("CheckItemSettled"));
    EXPECT_EQ(Form().Notice(),
              "检查项目是否已结算时出错。项目大类的关键字字段多于两个（标段、楼号、"
              "期次），不能按关键字检查。");
    // Without a keyword nothing stands in the way.
    EXPECT_TRUE(Form().CheckItemSettled("P03", "", ""));
}

TEST_F(StatusChecksTest, AnItemIsSettledByItsFlagAndItsEndDate) {
    EXPECT_FALSE(Form().CheckItemSettled("P09", "", ""));
    EXPECT_FALSE(Form().CheckItemSettled("P01", "", ""));
    Run("update fitemss97sub set iclose = 0 where citemcode = 'P03'");
    EXPECT_FALSE(Form().CheckItemSettled("P03", "", ""));
    Run("update fitemss97sub set iclose = null where citemcode = 'P03'");
    EXPECT_FALSE(Form().CheckItemSettled("P03", "", ""));
    Run("update fitemss97sub set iclose = 1, denddate = null where citemcode = 'P03'");
    EXPECT_TRUE(Form().CheckItemSettled("P03", "", ""));
}

TEST_F(StatusChecksTest, TheFirstRecordOfTheItemDecides) {
    Run("insert into fitemss97sub(citemcode,iclose,denddate) values('P01',1,'2003-01-01')");
    EXPECT_FALSE(Form().CheckItemSettled("P01", "", ""));
}

TEST_F(StatusChecksTest, ItemsHaveNames) {
    EXPECT_EQ(Form().GetItemName("P02"), "二号楼");
    EXPECT_EQ(Form().GetItemName("P09"), "");
    EXPECT_THAT(Taken(), ElementsAre("gEnv: select * from Fitemss97 where citemcode = 'P02'",
                                     "gEnv: select * from Fitemss97 where citemcode = 'P09'"));
}

TEST_F(StatusChecksTest, FailuresAnswerNoAndAreNamed) {
    log.failing = "select";
    EXPECT_FALSE(Form().CheckPeriodClosed());
    EXPECT_EQ(Form().Notice(), "检查会计期间是否结账时出错。");
    EXPECT_FALSE(Form().CheckYearCarriedOver());
    EXPECT_EQ(Form().Notice(), "检查年度是否结转时出错。");
    EXPECT_FALSE(Form().CheckItemSettled("P03", "", ""));
    EXPECT_EQ(Form().Notice(), "检查项目是否已结算时出错。");
    EXPECT_EQ(Form().GetItemName("P01"), "");
    EXPECT_EQ(Form().Notice(), "读取项目名称时出错。");
    EXPECT_THAT(Messages(), IsEmpty());
    log.failing.clear();
    environment.fails = true;
    EXPECT_FALSE(Form().CheckPeriodClosed());
    // The item is settled, but by which day cannot be told.
    data::gPmStartYear = 2003;
    EXPECT_FALSE(Form().CheckItemSettled("P03", "", ""));
    EXPECT_THAT(diagnostics.places,
                ElementsAre("CheckPeriodClosed", "CheckYearCarriedOver", "CheckItemSettled",
                            "GetItemName", "CheckPeriodClosed", "CheckItemSettled"));
}

TEST_F(StatusChecksTest, CodesWithAnApostropheNeverReachTheDatabase) {
    EXPECT_FALSE(Form().CheckItemSettled("P'03", "", ""));
    EXPECT_EQ(Form().GetItemName("P'01"), "");
    EXPECT_THAT(Taken(), IsEmpty());
}

}  // namespace
}  // namespace kelvane::ui
