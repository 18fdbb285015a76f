// Every statement that the component runs, with its text as it is, and what comes back.
#include <gtest/gtest.h>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {
namespace {

using platform::DateTime;
using platform::Money;
using platform::Value;

class Statements : public AccountTest {
protected:
    Statements() {
        Execute(
            "insert into PM_SettingInf(cName,cValue) values('NumPoint_Num','3')"
            " insert into PM_SettingInf(cName,cValue) values('NumMax_EleQc','2')"
            " insert into AccInformation(cSysID,cName,cValue) "
            "values('PM','dPMStartDate','2004-07-01')"
            " insert into fitemstructure(citem_class,cfield_name,itype,iSubItem,bPrimaryKey,ctext)"
            " values('97','citemname',3,'0','0','项目名称')"
            " insert into fitemstructure(citem_class,cfield_name,itype,iSubItem,bPrimaryKey,ctext)"
            " values('97','cKeyA',3,'1','1','标段')"
            " insert into fitemss97(citemcode,citemname) values('P01','大桥')"
            " insert into fitemss97(citemcode,citemname) values('P02','隧道')"
            " insert into fitemss97sub(citemcode,cKeyA,iKeyN,iclose,denddate)"
            " values('P01','K1',5,1,'2004-05-31')"
            " insert into fitemss97sub(citemcode,cKeyA,iKeyN,iclose) values('P02',null,null,0)");
        Execute(
            "insert into PM_DutyCenter(cCenterCode,cCenterName) values('C01','一公司')"
            " insert into PM_DutyCenter(cCenterCode,cCenterName) values('C02','二公司')"
            " insert into PM_DutycenterSub(cCenterCode,cItemCode,cKeyWord1,cKeyWord2)"
            " values('C01','P01','K1','K2')"
            " insert into PM_UserAuth(cUserID,cCenterCode) values('demo','C01')"
            " insert into PM_ItemElement(cElementCode,cElementName,iElementDetail,cInvCCode)"
            " values('E01','设备费',2,'')"
            " insert into PM_ItemElement(cElementCode,cElementName,iElementDetail,cInvCCode)"
            " values('E02','材料费',1,'01')"
            " insert into pm_equipment(cEquipCode,cEquipName,cEquipModel,dblTbUPrice,bEquipEnd)"
            " values('Q01','挖掘机','W-1',1234.5,1)"
            " insert into inventory(cInvCode,cInvName,cInvStd,iInvRCost,cSAComUnitCode,cInvCCode)"
            " values('M01','水泥','425#',300.25,'T','0101')"
            " insert into inventory(cInvCode,cInvName,cInvStd,cInvCCode)"
            " values('M02','沙','粗','02')"
            " insert into computationunit(cComUnitCode,cComUnitName) values('T','吨')");
        Execute(
            "insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
            "cDigest,mQC,iEleVid) values ( '2004-06-30','C01','P02','K1','','E02','摘要',1500.5,1) "
            "insert into PM_ItemQC(dDate,cCenterCode,cItemCode,cKeyCode1,cKeyCode2,cElementCode,"
            "cDigest,mQC,iEleVid) values ( '2004-06-29','C01','P01','K1','','E01','',0,2) "
            "insert into PM_ItemQC(dDate,cItemCode,iEleVid) values('2004-06-28','GONE',3)"
            " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) "
            "values(2,'Q01',1234.5,2,2469)"
            " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) "
            "values(1,'M01',300.25,4,1201)"
            " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) "
            "values(1,'M02',0.5,3,1.5)");
        Execute(
            "insert into pm_BudgetVer(iverid,bControl) values(1,0)"
            " insert into pm_BudgetVer(iverid,bControl) values(2,1)"
            " insert into pm_budget(iVerID,citemCode,cElementCode,iBudget,iMoneysum)"
            " values(2,'P01','E01',1000,900)"
            " insert into pm_budgetsub(iVerID,citemCode,cElementCode,cCodeMx,iBudget,imoneysum,"
            "inumberSum) values(2,'P01','E01','Q01',500,450,12.5)");
        Execute(
            "insert into Gl_mend(iperiod,bflag_PM) values(6,'1')"
            " insert into Gl_mend(iperiod,bflag_PM) values(7,'0')"
            " insert into PM_TranControl(IYear) values(2003)");
    }
};

TEST_F(Statements, LoginContext) {
    EXPECT_EQ(Rows("select cname, cValue from PM_SettingInf  where cName like 'NumPoint%' "),
              "NumPoint_Num|3\n");
    const auto keys = Open(
        " SELECT * From fitemstructure WHERE (citem_class = '97') AND (iSubItem = '1') AND "
        "(bPrimaryKey = '1')");
    ASSERT_EQ(keys->RecordCount(), 1);
    EXPECT_EQ(keys->Field("CFIELD_NAME"), Value("cKeyA"));
    EXPECT_EQ(keys->Field("itype"), Value(std::int64_t{3}));
    EXPECT_EQ(Rows("SELECT cValue From AccInformation WHERE cSysID = 'PM' and cName = "
                   "'dPMStartDate'"),
              "2004-07-01\n");
}

TEST_F(Statements, ReferenceQueries) {
    EXPECT_EQ(
        Rows("select PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub inner "
             "join Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  where "
             "cCenterCode = 'C01'"),
        "P01|大桥\n");
    EXPECT_EQ(SortedRows("select cItemCode from Fitemss97"), "P01\nP02\n");
    EXPECT_EQ(
        Rows("select PM_DutyCenter.cCenterCode from PM_DutyCenter inner join  PM_UserAuth on "
             "PM_DutyCenter.cCenterCode = PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = "
             "'DEMO'and  PM_DutyCenter.cCenterCode = 'C01'"),
        "C01\n");
    EXPECT_EQ(Rows("select cElementCode,iElementDetail from PM_ItemElement where cElementName ="
                   "'设备费'"),
              "E01|2\n");
    EXPECT_EQ(
        Rows("select * from PM_DutyCenter inner join  PM_UserAuth on "
             "PM_DutyCenter.cCenterCode = PM_UserAuth.cCenterCode where PM_UserAuth.cUserID = "
             "'demo'"),
        "C01|一公司|demo|C01\n");
    EXPECT_EQ(Rows("select ctext  from fitemstructure where citem_class = '97' and cfield_name = "
                   "'citemname' and isubitem = '0'"),
              "项目名称\n");
    ExpectFailure(128,
                  [&] { Open("select distinct PM_DutycenterSub.cItemCode,Fitemss97.citemname"); });
    EXPECT_EQ(SortedRows("select cItemCode,citemname from  Fitemss97 "), "P01|大桥\nP02|隧道\n");
    EXPECT_EQ(
        SortedRows(
            "select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from inventory "
            "a left join computationunit b on a.cSAComUnitCode=b.cComUnitCode"),
        "M01|水泥|425#|300.25|吨\nM02|沙|粗|NULL|NULL\n");
}

TEST_F(Statements, Budgets) {
    EXPECT_EQ(
        Rows("select iBudget,imoneysum,inumberSum from pm_budgetsub where iVerID=(select iverid "
             "from pm_BudgetVer where bControl=1) and citemCode='P01' and "
             "cElementCode='E01'and cCodeMx='Q01'"),
        "500|450|12.5\n");
    EXPECT_EQ(Rows("select iBudget,iMoneysum from pm_budget where iVerID=(select iverid from "
                   "pm_BudgetVer where bControl=1) and citemCode='P01' and cElementCode='E01'"),
              "1000|900\n");
    Execute("insert into pm_BudgetVer(iverid,bControl) values(3,1)");
    ExpectFailure(512, [&] {
        Open(
            "select iBudget,iMoneysum from pm_budget where iVerID=(select iverid from "
            "pm_BudgetVer where bControl=1) and citemCode='P01' and cElementCode='E01'");
    });
    const auto sum = Open(
        "select sum(mQc) as sumQC from pm_itemqc where citemcode='p02' and celementcode='E02' and "
        "iEleVid<>0");
    EXPECT_EQ(sum->Field("SUMQC"), Value(Money::FromText("1500.5")));
    EXPECT_EQ(Rows("select sum(a.inum) as SumAmount,sum(a.mQc) as sumQC  from pm_itemqcsub a inner "
                   "join pm_itemqc b on a.ielevid=b.ielevid  where b.citemcode='P01' and "
                   "b.celementcode='E01' and a.ielevid<>0 and a.cCodeMx='Q01'"),
              "2|2469\n");
}

TEST_F(Statements, LoadingTheEntryList) {
    EXPECT_EQ(Rows("select ctext from fitemstructure where cfield_name='citemname' and "
                   "citem_class='97'"),
              "项目名称\n");
    EXPECT_EQ(Open("Select distinct iEleVid from PM_ItemQC")->RecordCount(), 3);
    EXPECT_EQ(One("Select sum(mQc) from pm_itemqcsub where iEleVid = '1'"),
              Value(Money::FromText("1202.5")));
    EXPECT_TRUE(One("Select sum(mQc) from pm_itemqcsub where iEleVid = '3'").IsNull());
    Execute("Update PM_ItemQC set mQC = 1202.5 where iEleVid = '1'");
    Execute("Update PM_ItemQC set mQC = 2469 where iEleVid = '2'");
    const auto list = Open(
        "select "
        "PM_ItemQC.iEleVid,PM_ItemQC.dDate,PM_ItemQC.cItemCode,fitemss97.citemname,cKeyCode1,"
        "cKeyCode2,cCenterCode,cDigest,cElementCode,mQC from PM_ItemQC inner join fitemss97 on "
        "fitemss97.citemcode = PM_ItemQC.cItemCode order by PM_ItemQC.cItemCode asc");
    ASSERT_EQ(list->RecordCount(), 2);
    EXPECT_EQ(list->Field("iEleVid"), Value(std::int64_t{2}));
    EXPECT_EQ(list->Field("citemname"), Value("大桥"));
    list->MoveNext();
    EXPECT_EQ(list->Field("dDate"), Value(DateTime{2004, 6, 30}));
    EXPECT_EQ(list->Field("mQC"), Value(Money::FromText("1202.5")));
    EXPECT_EQ(Rows("select cElementName,iElementDetail from PM_ItemElement where cElementCode = "
                   "'E02'"),
              "材料费|1\n");
    EXPECT_EQ(Rows("select count(*) from PM_ItemElement"), "2\n");
}

TEST_F(Statements, StatusChecks) {
    EXPECT_EQ(Rows("select bflag_PM from Gl_mend where iperiod > = '6' and bflag_PM = '1'"), "1\n");
    EXPECT_EQ(Rows("select bflag_PM from Gl_mend where iperiod > = '7' and bflag_PM = '1'"), "");
    EXPECT_EQ(One("select count(*) from PM_TranControl where  IYear = '2003'").ToText(), "1");
    EXPECT_EQ(One("select count(*) from PM_TranControl where  IYear = '2004'").ToText(), "0");
    EXPECT_EQ(Rows("select iclose,denddate from fitemss97sub where citemcode = 'P01' and "
                   "isnull(cKeyA,'') = 'k1'"),
              "1|2004-05-31\n");
    EXPECT_EQ(Rows("select iclose,denddate from fitemss97sub where citemcode = 'P01' and "
                   "isnull(iKeyN,'') = 5"),
              "1|2004-05-31\n");
    EXPECT_EQ(Rows("select iclose,denddate from fitemss97sub where citemcode = 'P02' and "
                   "isnull(iKeyN,'') = 0"),
              "0|NULL\n");
    EXPECT_EQ(Rows("select * from Fitemss97 where citemcode = 'P02'"), "P02|隧道\n");
}

TEST_F(Statements, PickListsOfTheGrid) {
    EXPECT_EQ(Rows("select a.citemcode,b.citemname,ckeyword1,ckeyword2 from pm_dutycentersub "
                   "a,fitemss97 b where ccentercode='C01' and a.citemcode=b.citemcode order by "
                   "a.citemcode"),
              "P01|大桥|K1|K2\n");
    EXPECT_EQ(
        Rows("select cKeyWord1 from PM_DutycenterSub where cCenterCode = 'C01' and cItemCode = "
             "'P01'"),
        "K1\n");
    EXPECT_EQ(
        Rows("select  cKeyWord2 from PM_DutycenterSub where cCenterCode = 'C01' and  cItemCode "
             "= 'P01'"),
        "K2\n");
}

TEST_F(Statements, SavingAnEntry) {
    platform::Transaction transaction(Account());
    const auto row = Open("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=1",
                          platform::LockType::Optimistic);
    ASSERT_EQ(row->RecordCount(), 1);
    row->SetField("dDate", Value(DateTime{2004, 6, 1}));
    row->SetField("cCenterCode", Value("C02"));
    row->SetField("citemcode", Value("P01"));
    row->SetField("cDigest", Value("改'过"));
    row->SetField("mQC", Value("1,234.56"));
    row->Update();
    Execute(
        "delete from PM_ItemQCsub where iEleVid=1 insert into PM_ItemQCsub(iEleVid,cCodeMx,"
        "iUprice,iNum,mQC) values(1,'M01',300,4.5,1350) insert into PM_ItemQCsub(iEleVid,"
        "cCodeMx,iUprice,iNum,mQC) values(1,'M02',1,2,2)");
    transaction.Commit();
    EXPECT_EQ(Rows("select dDate,cCenterCode,cItemCode,cDigest,mQC from PM_ItemQC where iEleVid=1"),
              "2004-06-01|C02|P01|改'过|1234.56\n");
    EXPECT_EQ(SortedRows("select cCodeMx,mQC from PM_ItemQCsub where iEleVid=1"),
              "M01|1350\nM02|2\n");
}

TEST_F(Statements, DeletingAnEntry) {
    platform::Transaction transaction(Account());
    Execute("delete from pm_itemQC where iEleVid=1");
    Execute("delete from pm_itemQCSub where iEleVid=1");
    transaction.Commit();
    EXPECT_EQ(Rows("select iEleVid from PM_ItemQC order by iEleVid"), "2\n3\n");
    EXPECT_EQ(Rows("select iEleVid from PM_ItemQCsub"), "2\n");
}

TEST_F(Statements, DetailEditor) {
    EXPECT_EQ(
        Rows("select a.cEquipCode,a.cEquipName,a.cEquipModel,convert(varchar,b.iuprice,1),b.iNum,"
             "convert(varchar,b.mQC,1) from pm_equipment a,pm_itemQCSub b where "
             "a.cEquipCode=b.cCodeMx and b.iEleVid=2"),
        "Q01|挖掘机|W-1|1,234.50|2|2,469.00\n");
    EXPECT_EQ(
        SortedRows(
            "select a.cInvCode,a.cInvName,a.cInvStd,b.cComUnitName,c.iuprice,c.iNum,c.mQC from "
            "inventory a left join computationUnit b on a.cSAComUnitCode=b.cComUnitCode inner "
            "join pm_itemQCSub c on a.cInvCode=c.cCodeMx and c.iEleVid=1"),
        "M01|水泥|425#|吨|300.25|4|1201\nM02|沙|粗|NULL|0.5|3|1.5\n");
    const auto equipment =
        Open("select * from pm_equipment where cEquipCode='q01' and bEquipEnd=1");
    ASSERT_EQ(equipment->RecordCount(), 1);
    EXPECT_EQ(equipment->Field("dblTbUPrice"), Value(1234.5));
    EXPECT_EQ(Rows("select cInvCCode from pm_itemelement where cElementName='材料费'"), "01\n");
    EXPECT_EQ(
        Rows("select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from inventory a "
             "left join computationunit b on a.cSAComUnitCode=b.cComUnitCode where "
             "a.cInvCode='M01' and a.cInvCCode like '01%'"),
        "M01|水泥|425#|300.25|吨\n");
    EXPECT_EQ(
        Rows("select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from inventory a "
             "left join computationunit b on a.cSAComUnitCode=b.cComUnitCode where "
             "a.cInvName='水泥' and a.cInvCCode='01'"),
        "");
}

TEST_F(Statements, FindDialog) {
    const auto rows = Open("select * from fitemss97sub where cItemCode = 'P01'");
    ASSERT_EQ(rows->RecordCount(), 1);
    EXPECT_EQ(rows->Field("ckeya"), Value("K1"));
}

}  // namespace
}  // namespace kelvane::database_test
