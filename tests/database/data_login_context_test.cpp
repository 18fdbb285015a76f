#include <algorithm>

#include "tests/database/data_fixture.h"

namespace kelvane::data {
namespace {

using platform::DateTime;

class LoginContext : public DataTest {};

constexpr const char* kNumPointsLine =
    "gConn: select cname, cValue from PM_SettingInf  where cName like 'NumPoint%' ";
constexpr const char* kKeyFieldsLine =
    "gEnv:  SELECT * From fitemstructure WHERE (citem_class = '97') AND (iSubItem = '1') AND "
    "(bPrimaryKey = '1')";

TEST_F(LoginContext, NumPointsComeFromTheSettings) {
    Run("insert into PM_SettingInf(cName,cValue) values('NumPoint_Num','3')");
    Run("insert into PM_SettingInf(cName,cValue) values('NumPoint_Price','2.5')");
    Run("insert into PM_SettingInf(cName,cValue) values('NumPoint_Rate',' 6 位')");
    Run("insert into PM_SettingInf(cName,cValue) values('NumPoint_Money','7')");
    Run("insert into PM_SettingInf(cName,cValue) values('NumMax_EleQc','9')");
    LoadNumPoints();
    EXPECT_EQ(gNumPointQty, 3);
    EXPECT_EQ(gNumPointPrice, 2);
    EXPECT_EQ(gNumPointRate, 6);
    EXPECT_EQ(gNumPointMoney, 2);
    EXPECT_EQ(mLog.Lines(), Lines{kNumPointsLine});
    const auto options = mLog.statements.front().options;
    EXPECT_EQ(options.cursor, platform::CursorType::Unspecified);
    EXPECT_EQ(options.lock, platform::LockType::Unspecified);
    EXPECT_EQ(options.command, platform::CommandType::Text);
}

TEST_F(LoginContext, MissingNumPointsStay0AndMoneyHas2) {
    Run("insert into PM_SettingInf(cName,cValue) values('NumPoint_Num','3')");
    LoadNumPoints();
    EXPECT_EQ(gNumPointQty, 3);
    EXPECT_EQ(gNumPointPrice, 0);
    EXPECT_EQ(gNumPointRate, 0);
    EXPECT_EQ(gNumPointMoney, 2);
}

TEST_F(LoginContext, NamesOfNumPointsKeepTheirLetterCase) {
    Run("insert into PM_SettingInf(cName,cValue) values('NUMPOINT_NUM','3')");
    LoadNumPoints();
    EXPECT_EQ(gNumPointQty, 0);
    EXPECT_EQ(gNumPointMoney, 2);
}

TEST_F(LoginContext, AFailureKeepsTheNumPointsNotReached) {
    gNumPointPrice = 4;
    Run("insert into PM_SettingInf(cName,cValue) values('NumPoint_Price','70000')");
    LoadNumPoints();
    EXPECT_EQ(gNumPointPrice, 4);
    EXPECT_EQ(gNumPointMoney, 2);
    EXPECT_TRUE(gNumPointsFailed);
    gNumPointsFailed = false;
    mLog.failing = "PM_SettingInf";
    LoadNumPoints();
    EXPECT_EQ(gNumPointMoney, 2);
    EXPECT_TRUE(gNumPointsFailed);
    EXPECT_EQ(mDiagnostics.places, (Lines{"LoadNumPoints", "LoadNumPoints"}));
    EXPECT_EQ(mDiagnostics.details, (Lines{"数字溢出：70000", "模拟的数据库错误"}));
    EXPECT_EQ(Messages(), Lines{});
    mLog.failing.clear();
    Run("delete from PM_SettingInf");
    LoadNumPoints();
    EXPECT_FALSE(gNumPointsFailed);
}

TEST_F(LoginContext, OneKeyField) {
    Run("insert into fitemstructure values('97','cContract',3,1,1,'合同号')");
    Run("insert into fitemstructure values('97','citemcode',1,0,1,'项目编号')");
    Run("insert into fitemstructure values('97','iclose',2,1,0,'结算')");
    Run("insert into fitemstructure values('98','cOther',2,1,1,'其他')");
    LoadItemKeyFields();
    EXPECT_EQ(gItemKeyCount, 1);
    EXPECT_EQ(gItemKeyField1, "cContract");
    EXPECT_EQ(gItemKeyType1, 3);
    EXPECT_EQ(gItemKeyField2, "");
    EXPECT_EQ(mLog.Lines(), Lines{kKeyFieldsLine});
}

TEST_F(LoginContext, TwoKeyFields) {
    Run("insert into fitemstructure values('97','cContract',3,1,1,'合同号')");
    Run("insert into fitemstructure values('97','cSection',5,1,1,'标段')");
    LoadItemKeyFields();
    EXPECT_EQ(gItemKeyCount, 2);
    EXPECT_EQ(gItemKeyField1, "cContract");
    EXPECT_EQ(gItemKeyType1, 3);
    EXPECT_EQ(gItemKeyField2, "cSection");
    EXPECT_EQ(gItemKeyType2, 5);
}

TEST_F(LoginContext, WithNoneOrThreeKeyFieldsOnlyTheCountIsKept) {
    LoadItemKeyFields();
    EXPECT_EQ(gItemKeyCount, 0);
    Run("insert into fitemstructure values('97','cContract',3,1,1,'合同号')");
    Run("insert into fitemstructure values('97','cSection',5,1,1,'标段')");
    Run("insert into fitemstructure values('97','cPart',5,1,1,'分部')");
    LoadItemKeyFields();
    EXPECT_EQ(gItemKeyCount, 3);
    EXPECT_EQ(gItemKeyField1, "");
    EXPECT_EQ(gItemKeyField2, "");
    std::sort(gSurplusKeyFields.begin(), gSurplusKeyFields.end());
    EXPECT_EQ(gSurplusKeyFields, (Lines{"cContract", "cPart", "cSection"}));
    EXPECT_EQ(mDiagnostics.places, Lines{});
    Run("delete from fitemstructure where cfield_name='cPart'");
    LoadItemKeyFields();
    EXPECT_EQ(gSurplusKeyFields, Lines{});
}

TEST_F(LoginContext, AKeyFieldWithoutATypeEndsTheLoading) {
    gItemKeyType1 = 9;
    Run("insert into fitemstructure values('97','cContract',null,1,1,'合同号')");
    LoadItemKeyFields();
    EXPECT_EQ(gItemKeyCount, 1);
    EXPECT_EQ(gItemKeyField1, "cContract");
    EXPECT_EQ(gItemKeyType1, 9);
    EXPECT_EQ(mDiagnostics.places, Lines{"LoadItemKeyFields"});
}

TEST_F(LoginContext, AFailureKeepsTheKeyFields) {
    gItemKeyCount = 2;
    mLog.failing = "fitemstructure";
    LoadItemKeyFields();
    EXPECT_EQ(gItemKeyCount, 2);
    EXPECT_EQ(mDiagnostics.places, Lines{"LoadItemKeyFields"});
}

TEST_F(LoginContext, TheStartPeriodGivesItsYearAlone) {
    Run("insert into AccInformation(cSysID,cName,cValue) values('PM','dPMStartDate','2004-07-15')");
    Run("insert into AccInformation(cSysID,cName,cValue) "
        "values('PM','dPMStartDatePeriod','2005/8/1')");
    Run("insert into AccInformation(cSysID,cName,cValue) values('GL','dPMStartDate','1999-01-01')");
    LoadPmStartDate();
    EXPECT_EQ(gPmStartDate, (DateTime{2004, 7, 15}));
    EXPECT_EQ(gPmStartYear, 2005);
    EXPECT_EQ(mLog.Lines(),
              (Lines{"gEnv: SELECT cValue From AccInformation WHERE cSysID = 'PM' and cName = "
                     "'dPMStartDate'",
                     "gEnv: SELECT cValue From AccInformation WHERE cSysID = 'PM' and cName = "
                     "'dPMStartDatePeriod'"}));
}

TEST_F(LoginContext, StartDatesMayBeWrittenByHand) {
    Run("insert into AccInformation(cSysID,cName,cValue) "
        "values('PM','dPMStartDate','2004年7月15日')");
    Run("insert into AccInformation(cSysID,cName,cValue) "
        "values('PM','dPMStartDatePeriod','2005-08')");
    LoadPmStartDate();
    EXPECT_EQ(gPmStartDate, (DateTime{2004, 7, 15}));
    EXPECT_EQ(gPmStartYear, 2005);
    EXPECT_EQ(mDiagnostics.places, Lines{});
}

TEST_F(LoginContext, WithoutRowsTheStartDateStays) {
    LoadPmStartDate();
    EXPECT_EQ(gPmStartDate, (DateTime{1899, 12, 30}));
    EXPECT_EQ(gPmStartYear, 0);
    EXPECT_EQ(mDiagnostics.places, Lines{});
}

TEST_F(LoginContext, AStartDateThatIsNoneEndsTheLoading) {
    Run("insert into AccInformation(cSysID,cName,cValue) values('PM','dPMStartDate','七月')");
    Run("insert into AccInformation(cSysID,cName,cValue) "
        "values('PM','dPMStartDatePeriod','2005-08-01')");
    LoadPmStartDate();
    EXPECT_EQ(gPmStartYear, 0);
    EXPECT_EQ(mDiagnostics.places, Lines{"LoadPmStartDate"});
    EXPECT_EQ(mDiagnostics.details, Lines{"PM.dPMStartDate：不是日期：七月"});
}

}  // namespace
}  // namespace kelvane::data
