// An account for tests of the check in which nothing is wrong: centre D01 with items P01 and P02,
// elements 人工费 (plain), 机械费 (equipment) and 材料费 (inventory), entry 1 without lines,
// entries 2 and 3 with them, budgets for them, the last number 9. Each test damages it.
#pragma once

#include <string>

#include "entries/check/check.h"
#include "tests/database/data_fixture.h"

namespace kelvane::entries {

using data::Lines;

class CheckFixture : public data::DataTest {
protected:
    void SetUp() override {
        DataTest::SetUp();
        data::gPmStartDate = {2004, 7, 1};
        data::gPmStartYear = 2004;
        data::gNumPointMoney = data::gNumPointPrice = data::gNumPointQty = 2;
        Run("insert into PM_SettingInf values('NumMax_EleQc','9')");
        Run("insert into PM_DutyCenter values('D01','一分公司')");
        Run("insert into PM_DutyCenter values('D02','二分公司')");
        Run("insert into fitemss97 values('P01','一号楼')");
        Run("insert into fitemss97 values('P02','二号楼')");
        Run("insert into PM_DutycenterSub values('D01','P01','一标段',null)");
        Run("insert into PM_DutycenterSub values('D01','P02','A1','B1')");
        Run("insert into PM_ItemElement values('E01','人工费',0,null)");
        Run("insert into PM_ItemElement values('E02','机械费',2,null)");
        Run("insert into PM_ItemElement values('E03','材料费',1,'C1')");
        Run("insert into pm_equipment values('J01','吊车','QY25',8,1)");
        Run("insert into inventory values('C01','水泥','32.5',300,null,'C1')");
        Run("insert into pm_BudgetVer values(1,0)");
        Run("insert into pm_BudgetVer values(2,1)");
        Run("insert into pm_budget values(2,'P01','E01',1,300)");
        Run("insert into pm_budgetsub values(2,'P01','E02','J01',1,80,10)");
        Run("insert into PM_ItemQC values(1,'2004-06-01','D01','P01','','','E01','人工',300)");
        Run("insert into PM_ItemQC values(2,'2004-06-02','D01','P01','一标段','','E02','吊车',80)");
        Run("insert into PM_ItemQC "
            "values(3,'2004-06-30','D01','P02','A1','B1','E03','水泥',1234.5)");
        Run("insert into PM_ItemQCsub values(2,'J01',8,10,80)");
        Run("insert into PM_ItemQCsub values(3,'C01',411.5,3,1234.5)");
    }

    // "identity rule column: text" of each finding.
    Lines Check() {
        mResult = CheckAccount();
        Lines told;
        for (const CheckFinding& each : mResult.findings) {
            told.push_back(std::to_string(each.identity) + " " + std::string(each.finding.id) +
                           " " + each.title + ": " + each.finding.text);
        }
        return told;
    }

    CheckResult mResult;
};

}  // namespace kelvane::entries
