#include "entries/item_budget.h"

#include "entries/account_master_data.h"
#include "entries/entry_rules.h"
#include "entries/entry_store.h"
#include "tests/database/data_fixture.h"
#include "ui/common/opening_budget.h"

namespace kelvane::entries {
namespace {

using data::Lines;
using ui::CheckOpeningBudget;
using ui::gCurrentEntry;

using platform::Money;

class BudgetControl : public data::DataTest {
protected:
    void SetUp() override {
        DataTest::SetUp();
        Run("insert into PM_ItemElement values('E01','人工费',0,null)");
        Run("insert into pm_BudgetVer values(1,0)");
        Run("insert into pm_BudgetVer values(2,1)");
        Run("insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,mQC) values(1,'P01','E01',300)");
        Run("insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,mQC) values(2,'P01','E01',600)");
        Run("insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,mQC) values(3,'P01','E02',5000)");
        Run("insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,mQC) values(4,'P02','E01',5000)");
        gCurrentEntry = [this] { return mEntry; };
    }
    void TearDown() override {
        gCurrentEntry = nullptr;
        DataTest::TearDown();
    }

    bool Check(const char* amount) { return CheckOpeningBudget(Money::FromText(amount)); }

    bool ReadBudget(std::string_view detailCode = "") {
        return GetItemBudget("P01", "E01", mControlled, mBudget, mError, detailCode, mQuantity);
    }

    BudgetedEntry mEntry{1, "P01", "人工费"};
    bool mControlled = true;
    Money mBudget = Money::FromInteger(-1);
    std::string mError = "-";
    float mQuantity = -1;
};

constexpr const char* kRefusal = "[项目管理|information] 金额超出项目预算中的项目期初发生额";

TEST_F(BudgetControl, AnItemLineOfTheControllingVersionCounts) {
    Run("insert into pm_budget values(1,'P01','E01',1,7000)");
    Run("insert into pm_budget values(2,'P01','E01',1,1234.5678)");
    EXPECT_TRUE(ReadBudget());
    EXPECT_TRUE(mControlled);
    EXPECT_EQ(mBudget.ToText(), "1234.5678");
    EXPECT_EQ(mQuantity, -1.0F);
    EXPECT_EQ(mError, "-");
    EXPECT_EQ(mLog.Lines(),
              Lines{"gConn: select iBudget,iMoneysum from pm_budget where iVerID=(select iverid "
                    "from pm_BudgetVer where bControl=1) and citemCode='P01' and "
                    "cElementCode='E01'"});
    EXPECT_EQ(mLog.statements.front().options.command, platform::CommandType::Text);
}

TEST_F(BudgetControl, ADetailLineHasAQuantity) {
    Run("insert into pm_budgetsub values(2,'P01','E01','Q01',1,500,12.5)");
    EXPECT_TRUE(ReadBudget("Q01"));
    EXPECT_TRUE(mControlled);
    EXPECT_EQ(mBudget.ToText(), "500");
    EXPECT_EQ(mQuantity, 12.5F);
    EXPECT_EQ(mLog.Lines(),
              Lines{"gConn: select iBudget,imoneysum,inumberSum from pm_budgetsub where "
                    "iVerID=(select iverid from pm_BudgetVer where bControl=1) and "
                    "citemCode='P01' and cElementCode='E01'and cCodeMx='Q01'"});
}

TEST_F(BudgetControl, NullAmountsOfADetailLineAre0) {
    Run("insert into pm_budgetsub values(2,'P01','E01','Q01',1,null,null)");
    EXPECT_TRUE(ReadBudget("Q01"));
    EXPECT_TRUE(mControlled);
    EXPECT_EQ(mBudget, Money());
    EXPECT_EQ(mQuantity, 0.0F);
}

TEST_F(BudgetControl, WithoutALineThereIsNoControl) {
    EXPECT_TRUE(ReadBudget());
    EXPECT_FALSE(mControlled);
    EXPECT_EQ(mBudget, Money::FromInteger(-1));
}

TEST_F(BudgetControl, WithoutAControllingVersionThereIsNoControl) {
    Run("update pm_BudgetVer set bControl=0");
    Run("insert into pm_budget values(2,'P01','E01',1,1)");
    EXPECT_TRUE(ReadBudget());
    EXPECT_FALSE(mControlled);
    EXPECT_TRUE(Check("900000"));
    EXPECT_EQ(Messages(), Lines{});
}

TEST_F(BudgetControl, ABudgetNotAbove0IsNoControl) {
    Run("insert into pm_budget values(2,'P01','E01',0,1)");
    EXPECT_TRUE(ReadBudget());
    EXPECT_FALSE(mControlled);
    Run("update pm_budget set iBudget=null");
    mControlled = true;
    EXPECT_TRUE(ReadBudget());
    EXPECT_FALSE(mControlled);
    Run("update pm_budget set iBudget=-5");
    mControlled = true;
    EXPECT_TRUE(ReadBudget());
    EXPECT_FALSE(mControlled);
    EXPECT_TRUE(Check("900000"));
}

TEST_F(BudgetControl, AnErrorIsDescribed) {
    mLog.failing = "pm_budget ";
    EXPECT_FALSE(ReadBudget());
    EXPECT_EQ(mError, "模拟的数据库错误");
    EXPECT_TRUE(mControlled);
    EXPECT_EQ(mBudget, Money::FromInteger(-1));
    EXPECT_EQ(mDiagnostics.places, Lines{"GetItemBudget"});
}

TEST_F(BudgetControl, ANegativeBudgetAmountIsAnError) {
    Run("insert into pm_budget values(2,'P01','E01',1,-5)");
    EXPECT_FALSE(ReadBudget());
    EXPECT_EQ(mError, "不是金额：0-5");
    EXPECT_TRUE(mControlled);
}

TEST_F(BudgetControl, ATotalEqualToTheBudgetIsAccepted) {
    Run("insert into pm_budget values(2,'P01','E01',1,1000)");
    EXPECT_TRUE(Check("400"));
    EXPECT_EQ(Messages(), Lines{});
    EXPECT_FALSE(Check("400.01"));
    EXPECT_EQ(Messages(), Lines{kRefusal});
    mLog.statements.resize(3);
    EXPECT_EQ(mLog.Lines(),
              (Lines{"gConn: select cElementCode from PM_ItemElement where cElementName = "
                     "'人工费'",
                     "gConn: select iBudget,iMoneysum from pm_budget where iVerID=(select iverid "
                     "from pm_BudgetVer where bControl=1) and citemCode='P01' and "
                     "cElementCode='E01'",
                     "gConn: select sum(mQc) as sumQC from pm_itemqc where citemcode='P01' and "
                     "celementcode='E01' and iEleVid<>1"}));
}

TEST_F(BudgetControl, TheEntrysOldAmountDoesNotCount) {
    Run("insert into pm_budget values(2,'P01','E01',1,1000)");
    EXPECT_FALSE(Check("500"));
    mEntry.identity = 0;
    EXPECT_TRUE(Check("100"));
    EXPECT_FALSE(Check("100.0001"));
}

TEST_F(BudgetControl, ABudgetWithoutMoneyRefusesAnyAmount) {
    Run("insert into pm_budget values(2,'P09','E01',1,null)");
    mEntry.itemCode = "P09";
    EXPECT_FALSE(Check("0.0001"));
    EXPECT_TRUE(Check("0"));
    EXPECT_EQ(Messages(), Lines{kRefusal});
}

TEST_F(BudgetControl, TwoControllingVersionsRefuse) {
    Run("update pm_BudgetVer set bControl=1");
    Run("insert into pm_budget values(2,'P01','E01',1,1000000)");
    EXPECT_FALSE(Check("1"));
    ASSERT_EQ(mWindows.messages.size(), 1U);
    EXPECT_EQ(mWindows.messages.front().caption, "项目管理");
    EXPECT_EQ(mWindows.messages.front().text, mDiagnostics.details.front());
    EXPECT_EQ(mDiagnostics.places, Lines{"GetItemBudget"});
}

TEST_F(BudgetControl, AnItemThatBreaksTheStatementRefuses) {
    mEntry.itemCode = "P'01";
    EXPECT_FALSE(Check("1"));
    EXPECT_EQ(Messages(),
              Lines{"[项目管理|information] 语句有语法错误：select iBudget,iMoneysum from "
                    "pm_budget where iVerID=(select iverid from pm_BudgetVer where bControl=1) "
                    "and citemCode='P'01' and cElementCode='E01'"});
}

TEST_F(BudgetControl, AnUnknownElementGoesToTheCaller) {
    mEntry.elementName = "材料费";
    EXPECT_THROW(Check("1"), platform::DatabaseError);
    EXPECT_EQ(Messages(), Lines{});
}

TEST_F(BudgetControl, ATotalThatDoesNotFitGoesToTheCaller) {
    Run("insert into pm_budget values(2,'P01','E01',1,1000)");
    EXPECT_THROW(Check("922337203685477.5807"), platform::MoneyOverflow);
}

// Both find room before either has saved: the later one finds that there was none for both.
TEST_F(BudgetControl, OfTwoWhoOverrunItTheLaterOneFindsIt) {
    data::gNumPointMoney = 2;
    Run("insert into pm_budget values(2,'P01','E01',1,1000)");
    struct Saver {
        std::shared_ptr<platform::Connection> connection;
        std::int32_t identity;
        std::optional<CheckedBudget> checked = {};
    };
    std::vector<Saver> savers{{data::gConn, 8}, {Connect(), 9}};
    AccountMasterData masterData;
    const EntryRules rules(masterData);
    EntryStore store;
    for (Saver& saver : savers) {
        data::gConn = saver.connection;
        EXPECT_FALSE(
            rules.CheckBudget({0, "P01", "人工费"}, Money::FromInteger(60), &saver.checked));
        ASSERT_TRUE(saver.checked);
        saver.checked->entry.identity = saver.identity;
    }
    std::vector<std::string> overruns;
    for (const Saver& saver : savers) {
        data::gConn = saver.connection;
        const Entry entry{.identity = saver.identity,
                          .date = {2004, 6, 1},
                          .centerCode = "D01",
                          .itemCode = "P01",
                          .key1 = "",
                          .key2 = "",
                          .elementName = "人工费",
                          .digest = "",
                          .amount = saver.checked->amount};
        WrittenEntry written;
        store.Insert(entry, {}, written);
        EXPECT_TRUE(TakesMore(*saver.checked, written.before));
        overruns.push_back(rules.FindOverrun(*saver.checked));
    }
    EXPECT_EQ(overruns, (Lines{"", "预算 1,000.00，已用 960.00，可用 40.00"}));
}

TEST_F(BudgetControl, OneWhoSumsToLessThanNothingLeavesRoom) {
    const CheckedBudget checked{
        {9, "P01", "人工费"}, "E01", Money::FromInteger(5), Money::FromInteger(10)};
    Run("insert into PM_ItemQC(iEleVid,cItemCode,cElementCode,mQC) values(7,'P01','E01',-5000)");
    AccountMasterData masterData;
    EXPECT_EQ(EntryRules(masterData).FindOverrun(checked), "");
}

}  // namespace
}  // namespace kelvane::entries
