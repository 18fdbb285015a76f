// Each rule of the check on an account that is damaged in one way: what it says, on every engine
// the same.
#include <algorithm>

#include "tests/database/check_fixture.h"

namespace kelvane::entries {
namespace {

using CheckTest = CheckFixture;

TEST_F(CheckTest, AnAccountInOrderHasNothing) {
    EXPECT_EQ(Check(), Lines{});
    EXPECT_EQ(mResult.entries, 3U);
    EXPECT_EQ(mResult.errors + mResult.warnings, 0U);
}

TEST_F(CheckTest, AnEmptyAccountHasNothing) {
    Run("delete from PM_ItemQC");
    Run("delete from PM_ItemQCsub");
    EXPECT_EQ(Check(), Lines{});
    EXPECT_EQ(mResult.entries, 0U);
}

TEST_F(CheckTest, ReferencesToWhatIsNotThere) {
    Run("insert into PM_ItemQC values(4,'2004-06-01','D09','P09','','','E09','人工',1)");
    Run("insert into PM_ItemQC values(5,'2004-06-01',null,null,'','',null,'人工',2)");
    Run("update PM_ItemQCsub set cCodeMx='J09' where iEleVid=2");
    Run("update PM_ItemQCsub set cCodeMx='J01' where iEleVid=3");
    EXPECT_EQ(
        Check(),
        (Lines{"2 check.code 编码: 要素“E02”的设备“J09”不存在",
               "3 check.code 编码: 要素“E03”的存货“J01”不存在",
               "4 check.item 项目编号: 项目“P09”不存在",
               "4 check.center 责任中心: 责任中心“D09”不存在",
               "4 check.element 要素: 要素“E09”不存在", "5 check.item 项目编号: 项目“”不存在",
               "5 check.center 责任中心: 责任中心“”不存在", "5 check.element 要素: 要素“”不存在"}));
    EXPECT_EQ(mResult.errors, 8U);
    EXPECT_EQ(mResult.warnings, 0U);
}

TEST_F(CheckTest, AnAmountThatIsNotTheSumOfItsLines) {
    Run("update PM_ItemQC set mQC=81.0001 where iEleVid=2");
    Run("update PM_ItemQC set mQC=-1234567.5 where iEleVid=3");
    EXPECT_EQ(
        Check(),
        (Lines{
            "2 check.lines.sum 未结转期初: 项目“P01”要素“E02”的未结转期初 81.0001 与明细合计 "
            "80.00 不符，相差 1.0001",
            "3 check.lines.sum 未结转期初: 项目“P02”要素“E03”的未结转期初 -1,234,567.50 与明细合计 "
            "1,234.50 不符，相差 -1,235,802.00"}));
}

// Opening the list leaves these as they are.
TEST_F(CheckTest, LinesThatComeToNothingAreComparedToo) {
    Run("insert into PM_ItemQCsub values(2,'J01',8,-10,-80)");
    EXPECT_EQ(
        Check(),
        (Lines{"2 check.lines.sum 未结转期初: 项目“P01”要素“E02”的未结转期初 80.00 与明细合计 "
               "0.00 不符，相差 80.00"}));
}

TEST_F(CheckTest, AnEntryWithoutLinesIsNotMeant) {
    Run("delete from PM_ItemQCsub");
    EXPECT_EQ(Check(), Lines{});
}

TEST_F(CheckTest, SumsOfLinesGoBeyondAnAmount) {
    Run("update PM_ItemQCsub set iUprice=922337203685477.58,iNum=1,mQC=922337203685477.58 where "
        "iEleVid=3");
    Run("insert into PM_ItemQCsub values(3,'C01',922337203685477.58,1,922337203685477.58)");
    EXPECT_EQ(Check(),
              (Lines{"3 check.lines.sum 未结转期初: 项目“P02”要素“E03”的未结转期初 1,234.50 "
                     "与明细合计 1,844,674,407,370,955.16 不符，相差 "
                     "-1,844,674,407,369,720.66"}));
}

TEST_F(CheckTest, LinesWithoutAnEntry) {
    Run("delete from PM_ItemQC where iEleVid=2");
    Run("insert into PM_ItemQCsub values(2,'J02',1,1,1)");
    Run("insert into PM_ItemQCsub values(77,'C01',300,2,600)");
    EXPECT_EQ(Check(), (Lines{"2 check.lines.orphan 编码: 没有编号为 2 的期初，却有它的明细 2 "
                              "行（J01、J02），余额合计 81.00",
                              "77 check.lines.orphan 编码: 没有编号为 77 的期初，却有它的明细 1 "
                              "行（C01），余额合计 600.00"}));
}

TEST_F(CheckTest, ManyLinesWithoutAnEntryAreCountedNotListed) {
    for (int i = 0; i < 11; ++i) Run("insert into PM_ItemQCsub values(77,'C01',1,1,1)");
    EXPECT_EQ(Check(), (Lines{"77 check.lines.orphan 编码: 没有编号为 77 的期初，却有它的明细 11 "
                              "行（C01、C01、C01、C01、C01、C01、C01、C01、C01、C01等），余额合计 "
                              "11.00"}));
}

TEST_F(CheckTest, LinesOfAnElementThatHasNone) {
    Run("insert into PM_ItemQCsub values(1,'J09',3,100,300)");
    EXPECT_EQ(Check(),
              (Lines{"1 check.lines.kind 编码: 要素“E01”没有明细，却有明细 1 行（J09），余额合计 "
                     "300.00，未结转期初 300.00"}));
}

TEST_F(CheckTest, ALineThatIsNotPriceByQuantity) {
    Run("update PM_ItemQCsub set iUprice=8.5 where iEleVid=2");
    Run("update PM_ItemQCsub set iNum=-3 where iEleVid=3");
    EXPECT_EQ(Check(),
              (Lines{"2 check.lines.product 余额: 明细“J01”的余额 80.00 不是单价 8.50 乘以数量 "
                     "10，应为 85.00",
                     "3 check.lines.product 余额: 明细“C01”的余额 1,234.50 不是单价 411.50 "
                     "乘以数量 -3，应为 -1,234.50"}));
}

TEST_F(CheckTest, AProductIsWhatTheEditorSavesOrExactlyIt) {
    Run("delete from PM_ItemQCsub where iEleVid=2");
    // 0.015 is saved as 0.02; 0.005 as 0.01.
    Run("insert into PM_ItemQCsub values(2,'J01',0.05,0.3,0.02)");
    Run("insert into PM_ItemQCsub values(2,'J01',0.05,0.1,0.005)");
    Run("insert into PM_ItemQCsub values(2,'J01',-0.05,0.1,-0.01)");
    Run("insert into PM_ItemQCsub values(2,'J01',0.1,0.3,0.03)");
    Run("update PM_ItemQC set mQC=0.045 where iEleVid=2");
    EXPECT_EQ(Check(), Lines{});
    Run("update PM_ItemQCsub set mQC=0.0301 where mQC=0.03");
    Run("update PM_ItemQC set mQC=0.0451 where iEleVid=2");
    EXPECT_EQ(Check(),
              (Lines{"2 check.lines.product 余额: 明细“J01”的余额 0.0301 不是单价 0.10 乘以数量 "
                     "0.3，应为 0.03"}));
}

TEST_F(CheckTest, AProductBeyondAnAmount) {
    Run("update PM_ItemQCsub set iUprice=900000000000000 where iEleVid=2");
    Run("update PM_ItemQCsub set iNum=10000000 where iEleVid=2");
    const Lines told = Check();
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.front(),
              "2 check.lines.product 余额: 明细“J01”的余额 80.00 不是单价 900,000,000,000,000.00 "
              "乘以数量 10000000，应为 超出金额范围");
}

TEST_F(CheckTest, TheCounter) {
    Run("update PM_SettingInf set cValue='3'");
    EXPECT_EQ(Check(), Lines{});
    Run("update PM_SettingInf set cValue='2'");
    EXPECT_EQ(Check(), (Lines{"3 check.counter : 期初编号计数器 2 小于最大的编号 3"}));
    EXPECT_EQ(mResult.errors, 1U);
    Run("update PM_SettingInf set cValue=null");
    EXPECT_EQ(Check(), (Lines{"3 check.counter : 期初编号计数器 0 小于最大的编号 3"}));
    Run("update PM_SettingInf set cValue='九'");
    EXPECT_EQ(Check(), (Lines{"3 check.counter : 期初编号计数器“九”不是编号，最大的编号是 3"}));
    Run("delete from PM_SettingInf");
    EXPECT_EQ(Check(),
              (Lines{"3 check.counter : 没有期初编号计数器（NumMax_EleQc），最大的编号是 3"}));
}

TEST_F(CheckTest, ValuesThatAreMissing) {
    Run("update PM_ItemQC set dDate=null,mQC=null where iEleVid=1");
    Run("update PM_ItemQC set mQC=null where iEleVid=2");
    Run("update PM_ItemQCsub set iUprice=null,iNum=null where iEleVid=2");
    Run("update PM_ItemQCsub set mQC=null where iEleVid=3");
    Run("insert into PM_ItemQCsub values(null,'C09',1,1,2)");
    EXPECT_EQ(Check(),
              (Lines{"0 check.lines.product 余额: 明细“C09”的余额 2.00 不是单价 1.00 乘以数量 "
                     "1，应为 1.00",
                     "0 check.value 编码: 明细“C09”的期初编号为空或无法读取",
                     "1 check.value 日期: 项目“P01”要素“E01”的日期为空或无法读取",
                     "1 check.value 未结转期初: 项目“P01”要素“E01”的未结转期初为空或无法读取",
                     "2 check.value 未结转期初: 项目“P01”要素“E02”的未结转期初为空或无法读取",
                     "2 check.value 单价: 明细“J01”的单价为空或无法读取",
                     "2 check.value 数量: 明细“J01”的数量为空或无法读取",
                     "3 check.value 余额: 明细“C01”的余额为空或无法读取"}));
    EXPECT_EQ(mResult.errors, 8U);
}

TEST_F(CheckTest, TheBudgetOfItemAndElement) {
    Run("insert into PM_ItemQC values(4,'2004-06-03','D01','p01 ','','','e01','夜班',0.01)");
    const Lines blanks{"4 check.blank 项目编号: 项目“p01 ”与基础数据的“P01”只差空格或大小写",
                       "4 check.blank 要素: 要素“e01”与基础数据的“E01”只差空格或大小写"};
    Lines expected{
        "4 check.budget 未结转期初: 项目“p01 ”要素“e01”已录入期初 300.01，超出预算 300.00"};
    expected.insert(expected.end(), blanks.begin(), blanks.end());
    EXPECT_EQ(Check(), expected);
    EXPECT_EQ(mResult.errors, 0U);
    EXPECT_EQ(mResult.warnings, 3U);
    Run("update pm_budget set iMoneysum=300.01");
    EXPECT_EQ(Check(), blanks);
    Run("update pm_budget set iMoneysum=null");
    EXPECT_EQ(Check().front(),
              "4 check.budget 未结转期初: 项目“p01 ”要素“e01”已录入期初 300.01，超出预算 0.00");
    Run("update pm_budget set iBudget=0");
    EXPECT_EQ(Check(), blanks);
    Run("update pm_budget set iBudget=1");
    Run("update pm_BudgetVer set bControl=0");
    EXPECT_EQ(Check(), blanks);
}

TEST_F(CheckTest, WhatIsRecordedGoesBeyondAnAmount) {
    Run("update PM_ItemQC set mQC=922337203685477.58 where iEleVid=1");
    Run("insert into PM_ItemQC "
        "values(4,'2004-06-03','D01','P01','','','E01','夜班',922337203685477.58)");
    EXPECT_EQ(Check(), (Lines{"4 check.budget 未结转期初: 项目“P01”要素“E01”已录入期初 "
                              "1,844,674,407,370,955.16，超出预算 300.00"}));
}

TEST_F(CheckTest, TwoVersionsInControl) {
    Run("update pm_BudgetVer set bControl=1");
    Run("update PM_ItemQC set mQC=301 where iEleVid=1");
    EXPECT_EQ(Check(), (Lines{"0 check.budget : 控制预算的版本不止一个（1、2），不能检查预算"}));
}

TEST_F(CheckTest, TheBudgetOfDetailCodes) {
    Run("insert into PM_ItemQC values(4,'2004-06-03','D01','P01','','','E02','塔吊',0.6)");
    Run("insert into PM_ItemQCsub values(4,'J01',2,0.3,0.6)");
    EXPECT_EQ(
        Check(),
        (Lines{"4 check.line.budget 余额: 项目“P01”要素“E02”明细“J01”已录入余额 80.60，超出预算 "
               "80.00",
               "4 check.line.budget 数量: 项目“P01”要素“E02”明细“J01”已录入数量 10.3，超出预算数量 "
               "10"}));
    Run("update pm_budgetsub set inumberSum=0");
    EXPECT_EQ(Check(), Lines{});
}

TEST_F(CheckTest, ADateOnTheBoundOrBeyond) {
    Run("update PM_ItemQC set dDate='2004-07-01' where iEleVid=1");
    Run("update PM_ItemQC set dDate='2005-01-02' where iEleVid=3");
    EXPECT_EQ(
        Check(),
        (Lines{"1 check.date 日期: 日期 2004-07-01 不早于本年度帐套启用期间第一天 2004-07-01",
               "3 check.date 日期: 日期 2005-01-02 不早于本年度帐套启用期间第一天 2004-07-01"}));
}

TEST_F(CheckTest, ASettledItem) {
    Run("insert into fitemss97sub(citemcode,iclose,denddate) values('P01',1,'2004-06-30')");
    Run("insert into fitemss97sub(citemcode,iclose,denddate) values('P02',1,'2004-07-01')");
    EXPECT_EQ(Check(),
              (Lines{"1 check.settled 项目编号: 项目“P01”已经完工结算，仍有未结转期初 300.00"}));
    // Keywords need a field that they can be asked for in.
    Run("update fitemss97sub set denddate=null where citemcode='P01'");
    EXPECT_EQ(Check(),
              (Lines{"1 check.settled 项目编号: 项目“P01”已经完工结算，仍有未结转期初 300.00"}));
    Run("update fitemss97sub set iclose=0 where citemcode='P01'");
    EXPECT_EQ(Check(), Lines{});
}

TEST_F(CheckTest, AnAmountOfZero) {
    Run("update PM_ItemQC set mQC=0 where iEleVid=1");
    EXPECT_EQ(Check(), (Lines{"1 check.zero 未结转期初: 项目“P01”要素“E01”的未结转期初为 0.00"}));
}

TEST_F(CheckTest, KeywordsThatAreNoneOfTheItemsInTheCentre) {
    data::gItemKeyField1 = "标段";
    Run("update PM_ItemQC set cKeyCode1='九标段' where iEleVid=2");
    Run("update PM_ItemQC set cKeyCode1='',cKeyCode2='B9' where iEleVid=3");
    EXPECT_EQ(Check(),
              (Lines{"2 check.keys 标段 (关键字): 责任中心“D01”下项目“P01”没有关键字“九标段”",
                     "3 check.keys 关键字: 责任中心“D01”下项目“P02”没有关键字“B9”"}));
    Run("update PM_ItemQC set cKeyCode1='A1',cKeyCode2='B9' where iEleVid=3");
    EXPECT_EQ(Check().back(),
              "3 check.keys 标段 (关键字): 责任中心“D01”下项目“P02”没有关键字“A1、B9”");
    Run("update PM_ItemQC set cKeyCode1='',cKeyCode2=null");
    EXPECT_EQ(Check(), Lines{});
}

TEST_F(CheckTest, ACentreThatHasNotTheItem) {
    Run("update PM_ItemQC set cCenterCode='D02' where iEleVid=2");
    EXPECT_EQ(Check(), (Lines{"2 check.authority 责任中心: 责任中心“D02”下不包括项目“P01”"}));
}

TEST_F(CheckTest, TheSameEntryTwice) {
    Run("insert into PM_ItemQC values(4,'2004-06-01','D01','P01','','','E01','人工',300)");
    Run("insert into PM_ItemQC values(5,'2004-06-01','D01','P01','','','E01','人工 ',300)");
    Run("insert into PM_ItemQC values(6,'2004-06-01','D01','P01','','','E01','夜班',300)");
    Run("update pm_budget set iBudget=0");
    EXPECT_EQ(Check(), (Lines{"4 check.twin : 与编号 1 的期初相同：日期 "
                              "2004-06-01，责任中心“D01”，项目“P01”，要素“E01”"
                              "，未结转期初 300.00",
                              "5 check.twin : 与编号 1 的期初相同：日期 "
                              "2004-06-01，责任中心“D01”，项目“P01”，要素“E01”"
                              "，未结转期初 300.00"}));
}

TEST_F(CheckTest, CodesThatDifferInBlanksOrLetterCase) {
    Run("update PM_ItemQC set cCenterCode='d01',cItemCode='P01  ' where iEleVid=1");
    Run("update PM_ItemQC set cKeyCode1='a1 ' where iEleVid=3");
    Run("update PM_ItemQCsub set cCodeMx='ｃ01' where iEleVid=3");
    Run("update PM_ItemQCsub set cCodeMx='j01' where iEleVid=2");
    EXPECT_EQ(Check(),
              (Lines{"1 check.blank 责任中心: 责任中心“d01”与基础数据的“D01”只差空格或大小写",
                     "1 check.blank 项目编号: 项目“P01  ”与基础数据的“P01”只差空格或大小写",
                     "2 check.blank 编码: 明细的设备“j01”与基础数据的“J01”只差空格或大小写",
                     "3 check.code 编码: 要素“E03”的存货“ｃ01”不存在",
                     "3 check.blank 关键字: 关键字“a1 ”与基础数据的“A1”只差空格或大小写"}));
}

// The list's join would not show it.
TEST_F(CheckTest, ABlankInFrontMakesAnotherCodeOfIt) {
    Run("update PM_ItemQC set cItemCode=' P01' where iEleVid=1");
    EXPECT_EQ(Check(),
              (Lines{"1 check.item 项目编号: 项目“ P01”不存在",
                     "1 check.blank 项目编号: 项目“ P01”与基础数据的“P01”只差空格或大小写"}));
}

TEST_F(CheckTest, FindingsStandByIdentityAndThenByRule) {
    Run("insert into PM_ItemQC values(12,'2004-07-01','D09','P09','','','E09','人工',0)");
    EXPECT_EQ(Check(), (Lines{"12 check.item 项目编号: 项目“P09”不存在",
                              "12 check.center 责任中心: 责任中心“D09”不存在",
                              "12 check.element 要素: 要素“E09”不存在",
                              "12 check.counter : 期初编号计数器 9 小于最大的编号 12",
                              "12 check.date 日期: 日期 2004-07-01 不早于本年度帐套启用期间第一天 "
                              "2004-07-01",
                              "12 check.zero 未结转期初: 项目“P09”要素“E09”的未结转期初为 0.00"}));
    EXPECT_EQ(mResult.errors, 4U);
    EXPECT_EQ(mResult.warnings, 2U);
}

TEST_F(CheckTest, WritesNothing) {
    Run("update PM_ItemQC set mQC=81 where iEleVid=2");
    mLog.statements.clear();
    Check();
    EXPECT_EQ(Read("select mQC from PM_ItemQC where iEleVid=2"), "81");
    const Lines all = mLog.Lines();
    EXPECT_FALSE(all.empty());
    for (const std::string& line : all) {
        EXPECT_TRUE(line.starts_with("gConn: select ") || line == "gConn: begin snapshot" ||
                    line == "gConn: roll back")
            << line;
    }
}

TEST_F(CheckTest, AsksAsOftenForManyEntriesAsForFew) {
    mLog.statements.clear();
    Check();
    const auto few = mLog.Lines().size();
    for (int i = 0; i < 50; ++i) {
        platform::StatementText entry("insert into PM_ItemQC values(");
        entry.Number(100 + i) << ",'2004-06-01','D01','P01','','','E01','人工',";
        mOther->Execute(entry.Number(i + 1) << ")");
        platform::StatementText line("insert into PM_ItemQCsub values(");
        mOther->Execute(line.Number(100 + i) << ",'J01',1,1,1)");
    }
    mLog.statements.clear();
    Check();
    EXPECT_EQ(mResult.entries, 53U);
    EXPECT_EQ(mLog.Lines().size(), few);
}

TEST_F(CheckTest, SeesOneMoment) {
    const platform::Snapshot snapshot(*data::gConn);
    EXPECT_EQ(Check(), Lines{});
    try {
        Run("update PM_ItemQC set cItemCode='P09' where iEleVid=1");
    } catch (const platform::DatabaseBusy&) {
        GTEST_SKIP() << "an engine that keeps writers out meanwhile";
    }
    EXPECT_EQ(Check(), Lines{});
}

TEST(CheckRules, AreThoseOfTheCatalogue) {
    std::vector<std::string_view> declared;
    for (const DeclaredRule& each : DeclaredRules()) {
        const bool isNew = declared.empty() || declared.back() != each.id;
        if (each.id.starts_with("check.") && isNew) declared.push_back(each.id);
    }
    std::vector<std::string_view> known;
    for (const CheckRule& each : CheckRules()) known.push_back(each.id);
    EXPECT_EQ(known, declared);
    EXPECT_FALSE(IsWarning(Rule::CheckDateValue));
    EXPECT_TRUE(IsWarning(Rule::CheckBudgetVersions));
    EXPECT_TRUE(IsWarning(Rule::CheckLineBlank));
    EXPECT_FALSE(IsWarning(Rule::DateBound));
}

TEST(CheckTexts, StandBelowTheirTitles) {
    const CheckFinding finding{12, "日期", Found(Rule::CheckDate, "2004-07-01", "2004-07-01")};
    EXPECT_EQ(CheckTitles(), (Lines{"编号", "级别", "规则", "列", "说明"}));
    EXPECT_EQ(CheckTexts(finding),
              (Lines{"12", "警告", "check.date", "日期",
                     "日期 2004-07-01 不早于本年度帐套启用期间第一天 2004-07-01"}));
    const CheckFinding account{0, "", Found(Rule::CheckBudgetVersions, "1、2")};
    EXPECT_EQ(CheckTexts(account).front(), "");
}

}  // namespace
}  // namespace kelvane::entries
