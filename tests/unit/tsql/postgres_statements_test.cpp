// Every statement of the component as PostgreSQL gets it.
#include <gtest/gtest.h>

#include "tests/unit/tsql/postgres_account.h"

namespace kelvane::tsql {
namespace {

struct Pair {
    const char* statement;
    const char* written;
};

TEST(PostgresStatements, LoginContextAndItemFields) {
    const Pair pairs[] = {
        {"select cname, cValue from PM_SettingInf  where cName like 'NumPoint%' ",
         R"(select "PM_SettingInf"."cName", "PM_SettingInf"."cValue" from "PM_SettingInf" )"
         R"(as "PM_SettingInf" where (kelvane_fold("PM_SettingInf"."cName") ~ )"
         R"(kelvane_pattern('NumPoint%')) order by "PM_SettingInf"."kelvane_row")"},
        {" SELECT * From fitemstructure WHERE (citem_class = '97') AND (iSubItem = '1') "
         "AND (bPrimaryKey = '1')",
         R"(select "fitemstructure"."citem_class", "fitemstructure"."cfield_name", )"
         R"("fitemstructure"."itype", "fitemstructure"."iSubItem", )"
         R"("fitemstructure"."bPrimaryKey", "fitemstructure"."ctext" from )"
         R"("fitemstructure" as "fitemstructure" where )"
         R"((((kelvane_key("fitemstructure"."citem_class") = '97') and )"
         R"(("fitemstructure"."iSubItem" = 1)) and ("fitemstructure"."bPrimaryKey" = 1)) )"
         R"(order by "fitemstructure"."kelvane_row")"},
        {"SELECT cValue From AccInformation WHERE cSysID = 'PM' and cName = "
         "'dPMStartDate'",
         R"(select "AccInformation"."cValue" from "AccInformation" as "AccInformation" )"
         R"(where ((kelvane_key("AccInformation"."cSysID") = 'pm') and )"
         R"((kelvane_key("AccInformation"."cName") = 'dpmstartdate')) order by )"
         R"("AccInformation"."kelvane_row")"},
        {"select ctext  from fitemstructure where citem_class = '97' and cfield_name = "
         "'citemname' and isubitem = '0'",
         R"(select "fitemstructure"."ctext" from "fitemstructure" as "fitemstructure" )"
         R"(where (((kelvane_key("fitemstructure"."citem_class") = '97') and )"
         R"((kelvane_key("fitemstructure"."cfield_name") = 'citemname')) and )"
         R"(("fitemstructure"."iSubItem" = 0)) order by "fitemstructure"."kelvane_row")"},
        {"select ctext from fitemstructure where cfield_name='citemname' and "
         "citem_class='97'",
         R"(select "fitemstructure"."ctext" from "fitemstructure" as "fitemstructure" )"
         R"(where ((kelvane_key("fitemstructure"."cfield_name") = 'citemname') and )"
         R"((kelvane_key("fitemstructure"."citem_class") = '97')) order by )"
         R"("fitemstructure"."kelvane_row")"},
    };
    for (const Pair& pair : pairs) EXPECT_EQ(ForPostgres(pair.statement), pair.written);
}

TEST(PostgresStatements, ReferencesAndPickLists) {
    const Pair pairs[] = {
        {"select PM_DutycenterSub.cItemCode,Fitemss97.citemname from PM_DutycenterSub "
         "inner join Fitemss97 on PM_DutycenterSub.cItemCode = Fitemss97.citemcode  "
         "where cCenterCode = 'C01'",
         R"(select "PM_DutycenterSub"."cItemCode", "Fitemss97"."citemname" from )"
         R"("PM_DutycenterSub" as "PM_DutycenterSub" inner join "fitemss97" as )"
         R"("Fitemss97" on (kelvane_key("PM_DutycenterSub"."cItemCode") = )"
         R"(kelvane_key("Fitemss97"."citemcode")) where )"
         R"((kelvane_key("PM_DutycenterSub"."cCenterCode") = 'c01') order by )"
         R"("PM_DutycenterSub"."kelvane_row", "Fitemss97"."kelvane_row")"},
        {"select cItemCode from Fitemss97",
         R"(select "Fitemss97"."citemcode" from "fitemss97" as "Fitemss97" order by )"
         R"("Fitemss97"."kelvane_row")"},
        {"select PM_DutyCenter.cCenterCode from PM_DutyCenter inner join  PM_UserAuth "
         "on PM_DutyCenter.cCenterCode = PM_UserAuth.cCenterCode where "
         "PM_UserAuth.cUserID = 'DEMO'and  PM_DutyCenter.cCenterCode = 'C01'",
         R"(select "PM_DutyCenter"."cCenterCode" from "PM_DutyCenter" as "PM_DutyCenter" )"
         R"(inner join "PM_UserAuth" as "PM_UserAuth" on )"
         R"((kelvane_key("PM_DutyCenter"."cCenterCode") = )"
         R"(kelvane_key("PM_UserAuth"."cCenterCode")) where )"
         R"(((kelvane_key("PM_UserAuth"."cUserID") = 'demo') and )"
         R"((kelvane_key("PM_DutyCenter"."cCenterCode") = 'c01')) order by )"
         R"("PM_DutyCenter"."kelvane_row", "PM_UserAuth"."kelvane_row")"},
        {"select cElementCode,iElementDetail from PM_ItemElement where cElementName "
         "='设备费'",
         R"(select "PM_ItemElement"."cElementCode", "PM_ItemElement"."iElementDetail" )"
         R"(from "PM_ItemElement" as "PM_ItemElement" where )"
         R"((kelvane_key("PM_ItemElement"."cElementName") = '设备费') order by )"
         R"("PM_ItemElement"."kelvane_row")"},
        {"select * from PM_DutyCenter inner join  PM_UserAuth on "
         "PM_DutyCenter.cCenterCode = PM_UserAuth.cCenterCode where PM_UserAuth.cUserID "
         "= 'demo'",
         R"(select "PM_DutyCenter"."cCenterCode", "PM_DutyCenter"."cCenterName", )"
         R"("PM_UserAuth"."cUserID", "PM_UserAuth"."cCenterCode" from "PM_DutyCenter" as )"
         R"("PM_DutyCenter" inner join "PM_UserAuth" as "PM_UserAuth" on )"
         R"((kelvane_key("PM_DutyCenter"."cCenterCode") = )"
         R"(kelvane_key("PM_UserAuth"."cCenterCode")) where )"
         R"((kelvane_key("PM_UserAuth"."cUserID") = 'demo') order by )"
         R"("PM_UserAuth"."kelvane_row", "PM_DutyCenter"."kelvane_row")"},
        {"select distinct PM_DutycenterSub.cItemCode,Fitemss97.citemname",
         R"(The name "PM_DutycenterSub.cItemCode" is not permitted in this context. Valid )"
         R"(expressions are constants, constant expressions, and (in some contexts) )"
         R"(variables. Column names are not permitted.)"},
        {"select cItemCode,citemname from  Fitemss97 ",
         R"(select "Fitemss97"."citemcode", "Fitemss97"."citemname" from "fitemss97" as )"
         R"("Fitemss97" order by "Fitemss97"."kelvane_row")"},
        {"Select distinct iEleVid from PM_ItemQC",
         R"(select "PM_ItemQC"."iEleVid" from "PM_ItemQC" as "PM_ItemQC" group by )"
         R"("PM_ItemQC"."iEleVid" order by min("PM_ItemQC"."iEleVid"))"},
        {"select "
         "PM_ItemQC.iEleVid,PM_ItemQC.dDate,PM_ItemQC.cItemCode,fitemss97.citemname,cKeyCode1,"
         "cKeyCode2,cCenterCode,cDigest,cElementCode,mQC "
         "from PM_ItemQC inner join fitemss97 on fitemss97.citemcode = "
         "PM_ItemQC.cItemCode order by PM_ItemQC.cItemCode asc",
         R"(select "PM_ItemQC"."iEleVid", "PM_ItemQC"."dDate", "PM_ItemQC"."cItemCode", )"
         R"("fitemss97"."citemname", "PM_ItemQC"."cKeyCode1", "PM_ItemQC"."cKeyCode2", )"
         R"("PM_ItemQC"."cCenterCode", "PM_ItemQC"."cDigest", "PM_ItemQC"."cElementCode", )"
         R"("PM_ItemQC"."mQC" from "PM_ItemQC" as "PM_ItemQC" inner join "fitemss97" as )"
         R"("fitemss97" on (kelvane_key("fitemss97"."citemcode") = )"
         R"(kelvane_key("PM_ItemQC"."cItemCode")) order by )"
         R"(kelvane_key("PM_ItemQC"."cItemCode") nulls first, "PM_ItemQC"."iEleVid", )"
         R"("fitemss97"."kelvane_row")"},
        {"select cElementName,iElementDetail from PM_ItemElement where cElementCode = "
         "'E02'",
         R"(select "PM_ItemElement"."cElementName", "PM_ItemElement"."iElementDetail" )"
         R"(from "PM_ItemElement" as "PM_ItemElement" where )"
         R"((kelvane_key("PM_ItemElement"."cElementCode") = 'e02') order by )"
         R"("PM_ItemElement"."kelvane_row")"},
        {"select * from Fitemss97 where citemcode = 'P02'",
         R"(select "Fitemss97"."citemcode", "Fitemss97"."citemname" from "fitemss97" as )"
         R"("Fitemss97" where (kelvane_key("Fitemss97"."citemcode") = 'p02') order by )"
         R"("Fitemss97"."kelvane_row")"},
        {"select a.citemcode,b.citemname,ckeyword1,ckeyword2 from pm_dutycentersub "
         "a,fitemss97 b where ccentercode='C01' and a.citemcode=b.citemcode order by "
         "a.citemcode",
         R"(select "a"."cItemCode", "b"."citemname", "a"."cKeyWord1", "a"."cKeyWord2" )"
         R"(from "PM_DutycenterSub" as "a", "fitemss97" as "b" where )"
         R"(((kelvane_key("a"."cCenterCode") = 'c01') and (kelvane_key("a"."cItemCode") = )"
         R"(kelvane_key("b"."citemcode"))) order by kelvane_key("a"."cItemCode") nulls )"
         R"(first, "a"."kelvane_row", "b"."kelvane_row")"},
        {"select cKeyWord1 from PM_DutycenterSub where cCenterCode = 'C01' and "
         "cItemCode = 'P01'",
         R"(select "PM_DutycenterSub"."cKeyWord1" from "PM_DutycenterSub" as )"
         R"("PM_DutycenterSub" where ((kelvane_key("PM_DutycenterSub"."cCenterCode") = )"
         R"('c01') and (kelvane_key("PM_DutycenterSub"."cItemCode") = 'p01')) order by )"
         R"("PM_DutycenterSub"."kelvane_row")"},
        {"select  cKeyWord2 from PM_DutycenterSub where cCenterCode = 'C01' and  "
         "cItemCode = 'P01'",
         R"(select "PM_DutycenterSub"."cKeyWord2" from "PM_DutycenterSub" as )"
         R"("PM_DutycenterSub" where ((kelvane_key("PM_DutycenterSub"."cCenterCode") = )"
         R"('c01') and (kelvane_key("PM_DutycenterSub"."cItemCode") = 'p01')) order by )"
         R"("PM_DutycenterSub"."kelvane_row")"},
    };
    for (const Pair& pair : pairs) EXPECT_EQ(ForPostgres(pair.statement), pair.written);
}

TEST(PostgresStatements, BudgetsAndSums) {
    const Pair pairs[] = {
        {"select iBudget,imoneysum,inumberSum from pm_budgetsub where iVerID=(select "
         "iverid from pm_BudgetVer where bControl=1) and citemCode='P01' and "
         "cElementCode='E01'and cCodeMx='Q01'",
         R"(select "pm_budgetsub"."iBudget", "pm_budgetsub"."imoneysum", )"
         R"("pm_budgetsub"."inumberSum" from "pm_budgetsub" as "pm_budgetsub" where )"
         R"((((("pm_budgetsub"."iVerID" = (select "pm_BudgetVer"."iverid" from )"
         R"("pm_BudgetVer" as "pm_BudgetVer" where ("pm_BudgetVer"."bControl" = 1))) and )"
         R"((kelvane_key("pm_budgetsub"."citemCode") = 'p01')) and )"
         R"((kelvane_key("pm_budgetsub"."cElementCode") = 'e01')) and )"
         R"((kelvane_key("pm_budgetsub"."cCodeMx") = 'q01')) order by )"
         R"("pm_budgetsub"."kelvane_row")"},
        {"select iBudget,iMoneysum from pm_budget where iVerID=(select iverid from "
         "pm_BudgetVer where bControl=1) and citemCode='P01' and cElementCode='E01'",
         R"(select "pm_budget"."iBudget", "pm_budget"."iMoneysum" from "pm_budget" as )"
         R"("pm_budget" where ((("pm_budget"."iVerID" = (select "pm_BudgetVer"."iverid" )"
         R"(from "pm_BudgetVer" as "pm_BudgetVer" where ("pm_BudgetVer"."bControl" = 1))) )"
         R"(and (kelvane_key("pm_budget"."citemCode") = 'p01')) and )"
         R"((kelvane_key("pm_budget"."cElementCode") = 'e01')) order by )"
         R"("pm_budget"."kelvane_row")"},
        {"select sum(mQc) as sumQC from pm_itemqc where citemcode='p02' and "
         "celementcode='E02' and iEleVid<>0",
         R"(select kelvane_range(sum("pm_itemqc"."mQC"), 'money')::numeric(19,4) from )"
         R"("PM_ItemQC" as "pm_itemqc" where (((kelvane_key("pm_itemqc"."cItemCode") = )"
         R"('p02') and (kelvane_key("pm_itemqc"."cElementCode") = 'e02')) and )"
         R"(("pm_itemqc"."iEleVid" <> 0)))"},
        {"select sum(a.inum) as SumAmount,sum(a.mQc) as sumQC  from pm_itemqcsub a "
         "inner join pm_itemqc b on a.ielevid=b.ielevid  where b.citemcode='P01' and "
         "b.celementcode='E01' and a.ielevid<>0 and a.cCodeMx='Q01'",
         R"(select sum("a"."iNum"), kelvane_range(sum("a"."mQC"), 'money')::numeric(19,4) )"
         R"(from "PM_ItemQCsub" as "a" inner join "PM_ItemQC" as "b" on ("a"."iEleVid" = )"
         R"("b"."iEleVid") where ((((kelvane_key("b"."cItemCode") = 'p01') and )"
         R"((kelvane_key("b"."cElementCode") = 'e01')) and ("a"."iEleVid" <> 0)) and )"
         R"((kelvane_key("a"."cCodeMx") = 'q01')))"},
        {"Select sum(mQc) from pm_itemqcsub where iEleVid = '1'",
         R"(select kelvane_range(sum("pm_itemqcsub"."mQC"), 'money')::numeric(19,4) from )"
         R"("PM_ItemQCsub" as "pm_itemqcsub" where ("pm_itemqcsub"."iEleVid" = 1))"},
    };
    for (const Pair& pair : pairs) EXPECT_EQ(ForPostgres(pair.statement), pair.written);
}

TEST(PostgresStatements, StatusChecks) {
    const Pair pairs[] = {
        {"select count(*) from PM_ItemElement",
         R"(select count(*)::int from "PM_ItemElement" as "PM_ItemElement")"},
        {"select bflag_PM from Gl_mend where iperiod > = '6' and bflag_PM = '1'",
         R"(select "Gl_mend"."bflag_PM" from "Gl_mend" as "Gl_mend" where )"
         R"((("Gl_mend"."iperiod" >= 6) and ("Gl_mend"."bflag_PM" = 1)) order by )"
         R"("Gl_mend"."kelvane_row")"},
        {"select count(*) from PM_TranControl where  IYear = '2003'",
         R"(select count(*)::int from "PM_TranControl" as "PM_TranControl" where )"
         R"(("PM_TranControl"."IYear" = 2003))"},
        {"select iclose,denddate from fitemss97sub where citemcode = 'P01' and "
         "isnull(cKeyA,'') = 'k1'",
         R"(select "fitemss97sub"."iclose", "fitemss97sub"."denddate" from "fitemss97sub" )"
         R"(as "fitemss97sub" where ((kelvane_key("fitemss97sub"."citemcode") = 'p01') )"
         R"(and (kelvane_key(coalesce("fitemss97sub"."cKeyA", '')) = 'k1')) order by )"
         R"("fitemss97sub"."kelvane_row")"},
        {"select iclose,denddate from fitemss97sub where citemcode = 'P01' and "
         "isnull(iKeyN,'') = 5",
         R"(select "fitemss97sub"."iclose", "fitemss97sub"."denddate" from "fitemss97sub" )"
         R"(as "fitemss97sub" where ((kelvane_key("fitemss97sub"."citemcode") = 'p01') )"
         R"(and (coalesce("fitemss97sub"."iKeyN", 0) = 5)) order by )"
         R"("fitemss97sub"."kelvane_row")"},
        {"select * from fitemss97sub where cItemCode = 'P01'",
         R"(select "fitemss97sub"."citemcode", "fitemss97sub"."iclose", )"
         R"("fitemss97sub"."denddate", "fitemss97sub"."cKeyA", "fitemss97sub"."iKeyN" )"
         R"(from "fitemss97sub" as "fitemss97sub" where )"
         R"((kelvane_key("fitemss97sub"."citemcode") = 'p01') order by )"
         R"("fitemss97sub"."kelvane_row")"},
    };
    for (const Pair& pair : pairs) EXPECT_EQ(ForPostgres(pair.statement), pair.written);
}

TEST(PostgresStatements, DetailLines) {
    const Pair pairs[] = {
        {"select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from "
         "inventory a left join computationunit b on a.cSAComUnitCode=b.cComUnitCode",
         R"(select "a"."cInvCode", "a"."cInvName", "a"."cInvStd", "a"."iInvRCost", )"
         R"("b"."cComUnitName" from "inventory" as "a" left join "computationunit" as "b" )"
         R"(on (kelvane_key("a"."cSAComUnitCode") = kelvane_key("b"."cComUnitCode")) )"
         R"(order by "a"."kelvane_row", "b"."kelvane_row")"},
        {"select "
         "a.cEquipCode,a.cEquipName,a.cEquipModel,convert(varchar,b.iuprice,1),b.iNum,convert("
         "varchar,b.mQC,1) "
         "from pm_equipment a,pm_itemQCSub b where a.cEquipCode=b.cCodeMx and "
         "b.iEleVid=2",
         R"(select "a"."cEquipCode", "a"."cEquipName", "a"."cEquipModel", )"
         R"(kelvane_cut(kelvane_money_text("b"."iUprice", 1), 30, 'varchar', true), )"
         R"("b"."iNum", kelvane_cut(kelvane_money_text("b"."mQC", 1), 30, 'varchar', )"
         R"(true) from "pm_equipment" as "a", "PM_ItemQCsub" as "b" where )"
         R"(((kelvane_key("a"."cEquipCode") = kelvane_key("b"."cCodeMx")) and )"
         R"(("b"."iEleVid" = 2)) order by "b"."kelvane_row", "a"."kelvane_row")"},
        {"select a.cInvCode,a.cInvName,a.cInvStd,b.cComUnitName,c.iuprice,c.iNum,c.mQC "
         "from inventory a left join computationUnit b on "
         "a.cSAComUnitCode=b.cComUnitCode inner join pm_itemQCSub c on "
         "a.cInvCode=c.cCodeMx and c.iEleVid=1",
         R"(select "a"."cInvCode", "a"."cInvName", "a"."cInvStd", "b"."cComUnitName", )"
         R"("c"."iUprice", "c"."iNum", "c"."mQC" from "inventory" as "a" left join )"
         R"("computationunit" as "b" on (kelvane_key("a"."cSAComUnitCode") = )"
         R"(kelvane_key("b"."cComUnitCode")) inner join "PM_ItemQCsub" as "c" on )"
         R"(((kelvane_key("a"."cInvCode") = kelvane_key("c"."cCodeMx")) and )"
         R"(("c"."iEleVid" = 1)) order by "c"."kelvane_row", "a"."kelvane_row", )"
         R"("b"."kelvane_row")"},
        {"select * from pm_equipment where cEquipCode='q01' and bEquipEnd=1",
         R"(select "pm_equipment"."cEquipCode", "pm_equipment"."cEquipName", )"
         R"("pm_equipment"."cEquipModel", "pm_equipment"."dblTbUPrice", )"
         R"("pm_equipment"."bEquipEnd" from "pm_equipment" as "pm_equipment" where )"
         R"(((kelvane_key("pm_equipment"."cEquipCode") = 'q01') and )"
         R"(("pm_equipment"."bEquipEnd" = 1)) order by "pm_equipment"."kelvane_row")"},
        {"select cInvCCode from pm_itemelement where cElementName='材料费'",
         R"(select "pm_itemelement"."cInvCCode" from "PM_ItemElement" as "pm_itemelement" )"
         R"(where (kelvane_key("pm_itemelement"."cElementName") = '材料费') order by )"
         R"("pm_itemelement"."kelvane_row")"},
        {"select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from "
         "inventory a left join computationunit b on a.cSAComUnitCode=b.cComUnitCode "
         "where a.cInvCode='M01' and a.cInvCCode like '01%'",
         R"(select "a"."cInvCode", "a"."cInvName", "a"."cInvStd", "a"."iInvRCost", )"
         R"("b"."cComUnitName" from "inventory" as "a" left join "computationunit" as "b" )"
         R"(on (kelvane_key("a"."cSAComUnitCode") = kelvane_key("b"."cComUnitCode")) )"
         R"(where ((kelvane_key("a"."cInvCode") = 'm01') and )"
         R"((kelvane_fold("a"."cInvCCode") ~ kelvane_pattern('01%'))) order by )"
         R"("a"."kelvane_row", "b"."kelvane_row")"},
        {"select a.cInvCode,a.cInvName,a.cInvStd,a.iInvRCost,b.cComUnitName from "
         "inventory a left join computationunit b on a.cSAComUnitCode=b.cComUnitCode "
         "where a.cInvName='水泥' and a.cInvCCode='01'",
         R"(select "a"."cInvCode", "a"."cInvName", "a"."cInvStd", "a"."iInvRCost", )"
         R"("b"."cComUnitName" from "inventory" as "a" left join "computationunit" as "b" )"
         R"(on (kelvane_key("a"."cSAComUnitCode") = kelvane_key("b"."cComUnitCode")) )"
         R"(where ((kelvane_key("a"."cInvName") = '水泥') and )"
         R"((kelvane_key("a"."cInvCCode") = '01')) order by "a"."kelvane_row", )"
         R"("b"."kelvane_row")"},
    };
    for (const Pair& pair : pairs) EXPECT_EQ(ForPostgres(pair.statement), pair.written);
}

TEST(PostgresStatements, Changes) {
    const Pair pairs[] = {
        {"Update PM_ItemQC set mQC = 1202.5 where iEleVid = '1'",
         R"(update "PM_ItemQC" as "PM_ItemQC" set "mQC" = 1202.5000 where )"
         R"(("PM_ItemQC"."iEleVid" = 1) and ("PM_ItemQC"."mQC" is distinct from 1202.5000))"},
        {"Update PM_ItemQC set mQC = 2469 where iEleVid = '2'",
         R"(update "PM_ItemQC" as "PM_ItemQC" set "mQC" = 2469.0000 where )"
         R"(("PM_ItemQC"."iEleVid" = 2) and ("PM_ItemQC"."mQC" is distinct from 2469.0000))"},
        {"delete from PM_ItemQCsub where iEleVid=1 insert into "
         "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(1,'M01',300,4.5,1350) "
         "insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) "
         "values(1,'M02',1,2,2)",
         R"(delete from "PM_ItemQCsub" as "PM_ItemQCsub" where ("PM_ItemQCsub"."iEleVid" )"
         R"(= 1))"
         "\n"
         R"(insert into "PM_ItemQCsub"("iEleVid", "cCodeMx", "iUprice", "iNum", "mQC") )"
         R"(values (1, 'M01', 300.0000, '4.5'::float8, 1350.0000))"
         "\n"
         R"(insert into "PM_ItemQCsub"("iEleVid", "cCodeMx", "iUprice", "iNum", "mQC") )"
         R"(values (1, 'M02', 1.0000, '2'::float8, 2.0000))"},
        {"delete from pm_itemQC where iEleVid=1",
         R"(delete from "PM_ItemQC" as "pm_itemQC" where ("pm_itemQC"."iEleVid" = 1))"},
        {"delete from pm_itemQCSub where iEleVid=1",
         R"(delete from "PM_ItemQCsub" as "pm_itemQCSub" where ("pm_itemQCSub"."iEleVid" )"
         R"(= 1))"},
    };
    for (const Pair& pair : pairs) EXPECT_EQ(ForPostgres(pair.statement), pair.written);
}

TEST(PostgresStatements, TheEntryThatIsSavedIsLockedInsideATransaction) {
    EXPECT_EQ(ForPostgres("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=1", true,
                          {.held = true}),
              R"(select "PM_ItemQC"."iEleVid", "PM_ItemQC"."dDate", "PM_ItemQC"."cCenterCode", )"
              R"("PM_ItemQC"."cItemCode", "PM_ItemQC"."cKeyCode1", "PM_ItemQC"."cKeyCode2", )"
              R"("PM_ItemQC"."cElementCode", "PM_ItemQC"."cDigest", "PM_ItemQC"."mQC", )"
              R"("PM_ItemQC"."iEleVid" from "PM_ItemQC" as "PM_ItemQC" where )"
              R"(("PM_ItemQC"."iEleVid" = 1) order by "PM_ItemQC"."iEleVid" for update of )"
              R"("PM_ItemQC")");
    EXPECT_EQ(ForPostgres("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=1", true),
              R"(select "PM_ItemQC"."iEleVid", "PM_ItemQC"."dDate", "PM_ItemQC"."cCenterCode", )"
              R"("PM_ItemQC"."cItemCode", "PM_ItemQC"."cKeyCode1", "PM_ItemQC"."cKeyCode2", )"
              R"("PM_ItemQC"."cElementCode", "PM_ItemQC"."cDigest", "PM_ItemQC"."mQC", )"
              R"("PM_ItemQC"."iEleVid" from "PM_ItemQC" as "PM_ItemQC" where )"
              R"(("PM_ItemQC"."iEleVid" = 1) order by "PM_ItemQC"."iEleVid")");
}

}  // namespace
}  // namespace kelvane::tsql
