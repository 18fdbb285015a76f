#include "data/reference_queries.h"

#include "tests/database/data_fixture.h"

namespace kelvane::data {
namespace {

class ReferenceQueries : public DataTest {
protected:
    void SetUp() override {
        DataTest::SetUp();
        Run("insert into Fitemss97 values('P01','一号厂房')");
        Run("insert into Fitemss97 values('P02','二号厂房')");
        Run("insert into PM_DutyCenter values('C1','第一项目部')");
        Run("insert into PM_DutyCenter values('C2','第二项目部')");
        Run("insert into PM_DutycenterSub values('C1','P01',null,null)");
        Run("insert into PM_UserAuth values('demo','C1')");
        Run("insert into PM_ItemElement values('E01','人工费',0,null)");
        Run("insert into PM_ItemElement values('E02','机械费',2,null)");
    }
};

TEST_F(ReferenceQueries, AnyItemPassesWithoutACenter) {
    gRefCenterCode = "C2";
    EXPECT_TRUE(ItemInDutyCenter("P01"));
    EXPECT_TRUE(ItemInDutyCenter("P02"));
    EXPECT_FALSE(ItemInDutyCenter("P03"));
    EXPECT_EQ(mLog.Lines(), Lines(3, "gEnv: select cItemCode from Fitemss97"));
}

TEST_F(ReferenceQueries, ACenterHasItsOwnItems) {
    gRefByCenter = true;
    gRefCenterCode = "C1";
    EXPECT_TRUE(ItemInDutyCenter("P01"));
    EXPECT_FALSE(ItemInDutyCenter("P02"));
    EXPECT_EQ(mLog.Lines().front(),
              "gEnv: select PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub "
              "inner join Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  where "
              "cCenterCode = 'C1'");
    gRefCenterCode = "C2";
    EXPECT_FALSE(ItemInDutyCenter("P01"));
}

TEST_F(ReferenceQueries, ItemCodesAreComparedExactly) {
    EXPECT_FALSE(ItemInDutyCenter("p01"));
    EXPECT_FALSE(ItemInDutyCenter("P01 "));
    EXPECT_FALSE(ItemInDutyCenter(""));
}

TEST_F(ReferenceQueries, ItemErrorsGoToTheCaller) {
    gRefByCenter = true;
    gRefCenterCode = "x' or '1'='1";
    EXPECT_THROW(ItemInDutyCenter("P01"), platform::MalformedStatement);
    gRefByCenter = false;
    mLog.failing = "Fitemss97";
    EXPECT_THROW(ItemInDutyCenter("P01"), platform::DatabaseError);
    EXPECT_EQ(mDiagnostics.places, Lines{});
}

TEST_F(ReferenceQueries, OnlyAuthorisedCentersAreAllowed) {
    EXPECT_TRUE(DutyCenterAllowed("C1"));
    EXPECT_FALSE(DutyCenterAllowed("C2"));
    EXPECT_FALSE(DutyCenterAllowed("C3"));
    mLogin.userId = "other";
    EXPECT_FALSE(DutyCenterAllowed("C1"));
    EXPECT_EQ(mLog.Lines().front(),
              "gEnv: select PM_DutyCenter.cCenterCode from PM_DutyCenter inner join  PM_UserAuth "
              "on PM_DutyCenter.cCenterCode = PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = "
              "'demo'and  PM_DutyCenter.cCenterCode = 'C1'");
}

TEST_F(ReferenceQueries, AnExemptOperatorMayUseEveryCenter) {
    mLogin.exempt = true;
    EXPECT_TRUE(DutyCenterAllowed("C2"));
    EXPECT_TRUE(DutyCenterAllowed("c2"));
    EXPECT_FALSE(DutyCenterAllowed("C3"));
    EXPECT_EQ(mLog.Lines().front(),
              "gEnv: select cCenterCode from PM_DutyCenter where cCenterCode = 'C2'");
}

TEST_F(ReferenceQueries, AnErrorAllowsNoCenter) {
    mLogin.exempt = true;
    EXPECT_FALSE(DutyCenterAllowed("x' or '1'='1"));
    EXPECT_EQ(mLog.Lines(), Lines{});
    mLog.failing = "PM_DutyCenter";
    EXPECT_FALSE(DutyCenterAllowed("C1"));
    EXPECT_EQ(mDiagnostics.places, (Lines{"DutyCenterAllowed", "DutyCenterAllowed"}));
    EXPECT_EQ(Messages(), Lines{});
}

TEST_F(ReferenceQueries, ElementsAreFoundByName) {
    std::int16_t detail = 7;
    EXPECT_TRUE(GetElementByName(" 机械费 ", detail));
    EXPECT_EQ(detail, 2);
    EXPECT_FALSE(GetElementByName("材料费", detail));
    EXPECT_EQ(detail, 2);
    EXPECT_TRUE(GetElementByName("人工费", detail));
    EXPECT_EQ(detail, 0);
    EXPECT_EQ(mLog.Lines().front(),
              "gConn: select cElementCode,iElementDetail from PM_ItemElement where cElementName "
              "='机械费'");
    EXPECT_EQ(mLog.statements.front().options.command, platform::CommandType::Text);
    EXPECT_THROW(GetElementByName("'", detail), platform::MalformedStatement);
}

}  // namespace
}  // namespace kelvane::data
