// Two operators use up a budget together: both found room before either had saved. The later one is
// told behind his commit, by one read that is made only where his save takes more of the budget.
#include "tests/unit/ui/entry_list_fixture.h"

namespace kelvane::ui {
namespace {

using support::StatementLog;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr const char* kOverrun = "与他人同时保存，金额合计已超出项目预算，请核对（Esc 不再提示）：";

// A budget of 2,000 for P01 and E01, of which entry 1 has used 1,234.50.
class BudgetOverrunTest : public EntryListTest {
protected:
    BudgetOverrunTest() {
        data::gNumPointMoney = 2;
        Run("insert into pm_BudgetVer values(1,1)");
        Run("insert into pm_budget values(1,'P01','E01',1,2000)");
    }

    // Another operator's save comes in between the check and the save of this one.
    void OtherSavesMeanwhile() {
        log.meets = "begin";
        log.meeting = [this] {
            Run("insert into PM_ItemQC "
                "values(9,'2004-06-01','D01','P01','一标段','','E01','另',700)");
        };
    }
    void Change(int row, int col, std::string_view text) {
        Go(row, col);
        Type(text);
    }
    // What is asked behind the commit when the row is left.
    std::vector<std::string> AskedBehindTheCommit(int to) {
        log.statements.clear();
        EXPECT_TRUE(Go(to, kDateColumn));
        std::vector<std::string> lines = log.Lines();
        const auto commit = std::find(lines.begin(), lines.end(), "gConn: commit");
        EXPECT_NE(commit, lines.end());
        lines.erase(lines.begin(), commit + (commit == lines.end() ? 0 : 1));
        return lines;
    }
    static std::string SumBeside(int identity) {
        return "gConn: select sum(mQc) as sumQC from pm_itemqc where citemcode='P01' and "
               "celementcode='E01' and iEleVid<>" +
               std::to_string(identity);
    }
};

TEST_F(BudgetOverrunTest, TheLaterOneIsTold) {
    Open();
    const int row = AddFilledRow("765.50");
    OtherSavesMeanwhile();
    EXPECT_THAT(AskedBehindTheCommit(2), ElementsAre(SumBeside(4)));
    EXPECT_EQ(Form().Notice(),
              std::string(kOverrun) +
                  "P01 人工费 新（期初编号 4），预算 2,000.00，已用 1,934.50，可用 65.50。");
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_EQ(Read("select count(*) from PM_ItemQC where cItemCode='P01'"),
              std::vector<std::string>{"3"});
    // Back in that row the check itself refuses to leave it so.
    EXPECT_TRUE(Go(row, kAmountColumn));
    EXPECT_FALSE(Go(2, kDateColumn));
    EXPECT_THAT(Messages(),
                ElementsAre("[项目管理|information] 金额超出项目预算中的项目期初发生额"));
    Change(row, kAmountColumn, "65.50");
    EXPECT_THAT(AskedBehindTheCommit(2), IsEmpty());
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(BudgetOverrunTest, WithRoomForBothNothingIsTold) {
    Open();
    AddFilledRow("65.50");
    OtherSavesMeanwhile();
    EXPECT_THAT(AskedBehindTheCommit(2), ElementsAre(SumBeside(4)));
    EXPECT_EQ(Form().Notice(), "");
    Run("update PM_ItemQC set mQC = 0 where iEleVid = 4");
    Change(1, kAmountColumn, "1,240");
    log.meets = "begin";
    log.meeting = [this] { Run("update PM_ItemQC set mQC = 60 where iEleVid = 4"); };
    EXPECT_THAT(AskedBehindTheCommit(2), ElementsAre(SumBeside(1)));
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(BudgetOverrunTest, WhoTakesNoMoreThanBeforeAsksNothing) {
    Open();
    Go(1, kDateColumn);
    EXPECT_THAT(AskedBehindTheCommit(2), IsEmpty());
    EXPECT_THAT(AskedBehindTheCommit(1), IsEmpty());  // no budget for it
    Change(1, kDigestColumn, "改");
    EXPECT_THAT(AskedBehindTheCommit(2), IsEmpty());
    Change(1, kAmountColumn, "1000");
    EXPECT_THAT(AskedBehindTheCommit(2), IsEmpty());
    Change(1, kAmountColumn, "1000.01");
    EXPECT_THAT(AskedBehindTheCommit(2), ElementsAre(SumBeside(1)));
    EXPECT_EQ(Form().Notice(), "");
    AddFilledRow("0");
    EXPECT_THAT(AskedBehindTheCommit(2), IsEmpty());
}

TEST_F(BudgetOverrunTest, WithoutAControlledBudgetNothingIsAsked) {
    Run("update pm_budget set iBudget = 0");
    Open();
    AddFilledRow("5000");
    EXPECT_THAT(AskedBehindTheCommit(1), IsEmpty());
    Run("update pm_budget set iBudget = 1");
    Run("update pm_BudgetVer set bControl = 0");
    Change(1, kAmountColumn, "6000");
    EXPECT_THAT(AskedBehindTheCommit(2), IsEmpty());
}

TEST_F(BudgetOverrunTest, AnEntryThatComesToTheBudgetTakesAllOfItsAmount) {
    Run("insert into PM_ItemQC "
        "values(8,'2004-06-01','D01','P01','一标段','','E03','移',700)");
    Open();
    int row = 1;
    while (List().RowData(row) != 8) ++row;
    const int away = row == 1 ? 2 : 1;
    Change(row, kElementColumn, "人工费");
    Change(row, kAmountColumn, "700");
    OtherSavesMeanwhile();
    EXPECT_THAT(AskedBehindTheCommit(away), ElementsAre(SumBeside(8)));
    EXPECT_THAT(Form().Notice(), StartsWith(std::string(kOverrun) + "P01 人工费 移（期初编号 8）"));
}

TEST_F(BudgetOverrunTest, ARowThatWasReplacedAndOverranSaysBoth) {
    Open();
    Change(1, kAmountColumn, "1900");
    log.meets = "begin";
    log.meeting = [this] {
        Run("insert into PM_ItemQC "
            "values(9,'2004-06-01','D01','P01','一标段','','E01','另',700)");
        Run("update PM_ItemQC set cDigest = '他人' where iEleVid = 1");
    };
    EXPECT_THAT(AskedBehindTheCommit(2), ElementsAre(SumBeside(1)));
    EXPECT_THAT(Form().Notice(), StartsWith(kOverrun));
    EXPECT_THAT(
        Form().Notice(),
        HasSubstr(
            "该行在打开后被他人修改，已按当前内容保存（Ctrl+Z 查看他人的内容，Esc 不再提示）："
            "P01 人工费 人工"));
    // Looking at the other's values does not end what the budget has to say.
    EXPECT_TRUE(Form().KeyDown(platform::KeyOfCharacter(U'Z'), platform::kCtrl));
    List().NavigationKey(platform::Key::Escape, 0);
    EXPECT_THAT(Form().Notice(), StartsWith(kOverrun));
    EXPECT_TRUE(List().NavigationKey(platform::Key::Escape, 0));
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(BudgetOverrunTest, AReadThatFailsLeavesTheRowSaved) {
    Open();
    const int row = AddFilledRow("1");
    log.failing = "iEleVid<>4";
    log.losesConnection = true;
    EXPECT_TRUE(Go(1, kDateColumn));
    EXPECT_EQ(List().Row(), 1);
    EXPECT_EQ(List().RowData(row), 4);
    EXPECT_EQ(Form().Notice(),
              "当前行已经保存，但保存后没有能够核对项目预算，再次离开此行时会检查。"
              "数据库连接已断开，恢复后会自动重新连接。");
    EXPECT_THAT(Messages(), IsEmpty());
    log.failing.clear();
    EXPECT_EQ(Read("select cDigest from PM_ItemQC where iEleVid = 4"),
              std::vector<std::string>{"新"});
    EXPECT_THAT(AskedBehindTheCommit(2), IsEmpty());
    EXPECT_EQ(Form().Notice(), "");
}

TEST_F(BudgetOverrunTest, ASaveThatRepeatsOneInDoubtAsks) {
    Open();
    Change(1, kAmountColumn, "1900");
    log.lostAnswer = StatementLog::LostAnswer::Saved;
    EXPECT_FALSE(Go(2, kDateColumn));
    log.lostAnswer = StatementLog::LostAnswer::None;
    OtherSavesMeanwhile();
    EXPECT_THAT(AskedBehindTheCommit(2), ElementsAre(SumBeside(1)));
    EXPECT_THAT(Form().Notice(), StartsWith(kOverrun));
}

TEST_F(BudgetOverrunTest, ASaveThatFailedIsNotAskedAboutByTheNext) {
    Open();
    Change(1, kAmountColumn, "1900");
    log.failing = "HOLDLOCK";
    EXPECT_FALSE(Go(2, kDateColumn));
    log.failing.clear();
    List().NavigationKey(platform::Key::Escape, 0);
    EXPECT_THAT(AskedBehindTheCommit(2), IsEmpty());
}

}  // namespace
}  // namespace kelvane::ui
