// The sample company's figures against the rules that the component applies to them.

#include <gtest/gtest.h>

#include <optional>

#include "host/creation/account_creation.h"
#include "tests/unit/host/plain_sqlite.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using Lines = std::vector<std::string>;

struct Sample {
    int keyFields;
    std::int64_t entries;
    std::uint64_t seed;
};

void PrintTo(const Sample& sample, std::ostream* out) {
    *out << sample.keyFields << " keyword fields, " << sample.entries << " entries, seed "
         << sample.seed;
}

class SampleTest : public ::testing::TestWithParam<Sample> {
protected:
    void SetUp() override {
        host::CreateAccountFile(mPath, {.sample = true,
                                        .keyFields = GetParam().keyFields,
                                        .entries = GetParam().entries,
                                        .seed = GetParam().seed});
        mAccount.emplace(mPath);
    }

    Lines Rows(const std::string& sql) { return mAccount->Rows(sql); }
    std::string One(const std::string& sql) { return mAccount->One(sql); }

    // The part of the project that an entry is for.
    std::string PartOfEntry() const {
        const char* keys[] = {
            "", " and s.标段 = e.cKeyCode1",
            " and s.标段 = e.cKeyCode1 and s.期次 = cast(e.cKeyCode2 as integer)"};
        return std::string("s.citemcode = e.cItemCode") + keys[GetParam().keyFields];
    }

    TemporaryFolder mFolder;
    std::filesystem::path mPath = mFolder / "account";
    std::optional<PlainSqlite> mAccount;
};

// The amount in column `column`, in ten-thousandths.
std::string Units(const std::string& column) {
    return "cast(replace(" + column + ", '.', '') as integer)";
}

TEST_P(SampleTest, HasTheCompany) {
    EXPECT_EQ(One("select cUnitName from Host_Unit"), "华远建设集团有限公司");
    EXPECT_EQ(Rows("select cUserID, bExempt from Host_Operator order by rowid"),
              (Lines{"demo|1", "zhang|0", "li|0"}));
    EXPECT_EQ(Rows("select cUserID, count(*) from PM_UserAuth group by cUserID"), Lines{"zhang|3"});
    EXPECT_EQ(One("select count(*) from PM_DutyCenter"), "8");
    EXPECT_EQ(One("select count(*) from fitemss97"), "30");
    EXPECT_EQ(Rows("select distinct iElementDetail from PM_ItemElement order by 1"),
              (Lines{"0", "1", "2"}));
    EXPECT_EQ(Rows("select distinct bEquipEnd from pm_equipment order by 1"), (Lines{"0", "1"}));
    EXPECT_EQ(One("select count(*) from PM_ItemElement where cInvCCode = '无分类'"), "1");
    EXPECT_EQ(One("select count(*) from inventory where cSAComUnitCode is null"), "1");
}

TEST_P(SampleTest, EveryProjectIsAssignedAndEveryAssignmentIsAProjectsPart) {
    EXPECT_EQ(Rows("select citemcode from fitemss97 where citemcode not in "
                   "(select cItemCode from PM_DutycenterSub)"),
              Lines{});
    EXPECT_EQ(Rows("select cCenterCode from PM_DutyCenter where cCenterCode not in "
                   "(select cCenterCode from PM_DutycenterSub)"),
              Lines{});
    const char* keys[] = {"", " and s.标段 = a.cKeyWord1",
                          " and s.标段 = a.cKeyWord1 and s.期次 = cast(a.cKeyWord2 as integer)"};
    EXPECT_EQ(Rows("select a.* from PM_DutycenterSub a where (select count(*) from fitemss97sub s "
                   "where s.citemcode = a.cItemCode" +
                   std::string(keys[GetParam().keyFields]) + ") <> 1"),
              Lines{});
    EXPECT_EQ(One("select count(*) from PM_DutycenterSub where (cKeyWord1 is not null) + "
                  "(cKeyWord2 is not null) <> " +
                  std::to_string(GetParam().keyFields)),
              "0");
}

TEST_P(SampleTest, EveryEntryNamesWhatExists) {
    EXPECT_EQ(One("select count(*) from PM_ItemQC"), std::to_string(GetParam().entries));
    EXPECT_EQ(Rows("select e.iEleVid from PM_ItemQC e where not exists (select 1 from "
                   "PM_DutycenterSub a where a.cCenterCode = e.cCenterCode and a.cItemCode = "
                   "e.cItemCode and ifnull(a.cKeyWord1, '') = e.cKeyCode1 and "
                   "ifnull(a.cKeyWord2, '') = e.cKeyCode2)"),
              Lines{});
    EXPECT_EQ(Rows("select iEleVid from PM_ItemQC where cElementCode not in "
                   "(select cElementCode from PM_ItemElement)"),
              Lines{});
    EXPECT_EQ(Rows("select iEleVid from PM_ItemQC where dDate < '2003' or dDate >= '2004-07-01' "
                   "or length(dDate) <> 23 or dDate not like '% 00:00:00.000' or cDigest = ''"),
              Lines{});
    EXPECT_EQ(One("select cValue from PM_SettingInf where cName = 'NumMax_EleQc'"),
              std::to_string(GetParam().entries));
}

TEST_P(SampleTest, AmountsAreInCentsAndOnlyEntryTenIsZero) {
    EXPECT_EQ(Rows("select iEleVid from PM_ItemQC where mQC not like '%.__00' or " + Units("mQC") +
                   " < 0"),
              Lines{});
    EXPECT_EQ(Rows("select iEleVid from PM_ItemQC where " + Units("mQC") + " = 0"), Lines{"10"});
}

TEST_P(SampleTest, OnlyThreeEntriesBelongToSettledProjects) {
    EXPECT_EQ(
        Rows("select distinct e.iEleVid, e.cItemCode from PM_ItemQC e join fitemss97sub s on " +
             PartOfEntry() +
             " where s.iclose = 1 and ifnull(s.denddate, '') < '2004-07-01' order by 1"),
        (Lines{"5|P007", "18|P013", "24|P022"}));
}

TEST_P(SampleTest, ProjectsCloseInEveryWay) {
    EXPECT_EQ(Rows("select distinct citemcode, denddate from fitemss97sub where iclose = 1 "
                   "order by 1"),
              (Lines{"P007|2003-12-20 00:00:00.000", "P013|2004-05-31 00:00:00.000",
                     "P019|2004-09-30 00:00:00.000", "P022|", "P025|2004-07-01 00:00:00.000"}));
    EXPECT_EQ(One("select count(*) > 0 from fitemss97sub where citemcode = 'P013' and iclose = 0"),
              GetParam().keyFields == 0 ? "0" : "1");
}

TEST_P(SampleTest, AThirdOfTheEntriesHasDetailLinesThatTheirElementAllows) {
    EXPECT_EQ(Rows("select e.iEleVid from PM_ItemQC e join PM_ItemElement l using (cElementCode) "
                   "where (l.iElementDetail <> 0) <> (e.iEleVid % 3 = 0) or (l.iElementDetail <> "
                   "0) <> (e.iEleVid in (select iEleVid from PM_ItemQCsub))"),
              Lines{});
    EXPECT_EQ(Rows("select d.* from PM_ItemQCsub d join PM_ItemQC e using (iEleVid) join "
                   "PM_ItemElement l using (cElementCode) left join pm_equipment q on "
                   "q.cEquipCode = d.cCodeMx left join inventory i on i.cInvCode = d.cCodeMx where "
                   "case l.iElementDetail when 2 then ifnull(q.bEquipEnd, 0) = 0 else i.cInvCode "
                   "is null or (l.cInvCCode <> '无分类' and i.cInvCCode not like l.cInvCCode || "
                   "'%') end"),
              Lines{});
    EXPECT_EQ(Rows("select iEleVid, cCodeMx from PM_ItemQCsub group by 1, 2 having count(*) > 1"),
              Lines{});
    EXPECT_EQ(Rows("select * from PM_ItemQCsub where iNum <= 0 or " + Units("iUprice") +
                   " <= 0 or mQC not like '%.__00' or cast(" + Units("iUprice") +
                   " * iNum as integer) <> " + Units("mQC")),
              Lines{});
}

TEST_P(SampleTest, OnlyEntryTwelveIsNotTheSumOfItsDetailLines) {
    EXPECT_EQ(Rows("select e.iEleVid, " + Units("e.mQC") + " - sum(" + Units("d.mQC") +
                   ") from PM_ItemQC e join PM_ItemQCsub d using (iEleVid) group by e.iEleVid "
                   "having " +
                   Units("e.mQC") + " <> sum(" + Units("d.mQC") + ")"),
              Lines{"12|10000000"});
}

// What an entry amounts to once its detail lines have been summed again.
const std::string kTotals =
    "with t as (select e.cItemCode, e.cElementCode, sum(ifnull((select sum(" + Units("d.mQC") +
    ") from PM_ItemQCsub d where d.iEleVid = e.iEleVid), " + Units("e.mQC") +
    ")) as total from PM_ItemQC e group by 1, 2) ";
const std::string kLines =
    " from t left join pm_budget b on b.citemCode = t.cItemCode and b.cElementCode = "
    "t.cElementCode and b.iVerID = (select iverid from pm_BudgetVer where bControl = 1) ";

TEST_P(SampleTest, TheBudgetCoversWhatIsRecorded) {
    EXPECT_EQ(One("select count(*) from pm_BudgetVer where bControl = 1"), "1");
    EXPECT_EQ(Rows("select iVerID, citemCode, cElementCode from pm_budget group by 1, 2, 3 having "
                   "count(*) > 1"),
              Lines{});
    EXPECT_EQ(Rows(kTotals + "select t.*" + kLines + "where " + Units("b.iBudget") + " > 0 and " +
                   Units("b.iMoneysum") + " < total"),
              Lines{});
    EXPECT_EQ(Rows("with t as (select e.cItemCode, e.cElementCode, d.cCodeMx, sum(d.iNum) as num, "
                   "sum(" +
                   Units("d.mQC") +
                   ") as total from PM_ItemQC e join PM_ItemQCsub d "
                   "using (iEleVid) group by 1, 2, 3) select t.* from t join pm_budgetsub b on "
                   "b.citemCode = t.cItemCode and b.cElementCode = t.cElementCode and b.cCodeMx = "
                   "t.cCodeMx where b.inumberSum < num or " +
                   Units("b.imoneysum") + " < total"),
              Lines{});
    EXPECT_EQ(One("select count(*) > 0 from pm_budgetsub"), "1");
}

TEST_P(SampleTest, TheBudgetHasTightAndUncontrolledAndMissingLines) {
    EXPECT_NE(One(kTotals + "select count(*)" + kLines + "where " + Units("b.iBudget") +
                  " > 0 and " + Units("b.iMoneysum") + " = total"),
              "0");
    EXPECT_NE(One(kTotals + "select count(*)" + kLines + "where " + Units("b.iBudget") + " = 0"),
              "0");
    EXPECT_NE(One(kTotals + "select count(*)" + kLines + "where b.iBudget is null"), "0");
    EXPECT_NE(One("select count(*) from pm_budget where iVerID <> "
                  "(select iverid from pm_BudgetVer where bControl = 1)"),
              "0");
}

INSTANTIATE_TEST_SUITE_P(Samples, SampleTest,
                         ::testing::Values(Sample{0, 25, 1}, Sample{1, 25, 1}, Sample{2, 25, 1},
                                           Sample{1, 25, 2}, Sample{1, 25, 3}, Sample{2, 25, 99},
                                           Sample{0, 3000, 4}, Sample{1, 3000, 1},
                                           Sample{2, 3000, 12345}));

}  // namespace
}  // namespace kelvane::host_test
