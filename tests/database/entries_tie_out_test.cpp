#include "entries/ledger/tie_out.h"

#include "tests/database/data_fixture.h"

namespace kelvane::entries {
namespace {

using platform::Money;

std::string Joined(const std::vector<std::int64_t>& identities) {
    std::string joined;
    for (const std::int64_t identity : identities) joined += " " + std::to_string(identity);
    return joined;
}

class TieOutTest : public data::DataTest {
protected:
    void SetUp() override {
        DataTest::SetUp();
        Run("insert into PM_ItemElement values('E01','人工费',0,null)");
        Run("insert into PM_ItemElement values('E02','机械费',2,null)");
        Run("insert into PM_ItemQC values(1,'2004-06-01','D01','P01','','','E01','a',100.10)");
        Run("insert into PM_ItemQC values(2,'2004-06-02','D01','P01','','','E02','b',80)");
        Run("insert into PM_ItemQC values(3,'2004-06-02','D02','P02','','','E01','c',-0.0001)");
        Run("insert into PM_ItemQC values(4,'2004-06-02','D02','X01','','','E01','d',5)");
    }

    void Ledger(const std::string& account, const std::string& amount,
                const std::string& name = "") {
        trial.push_back({account, name, ExactSum(Money::FromText(amount))});
    }

    // A row a line, then what is not covered.
    std::string TiedOut() {
        const TieOut result = TieOutAccount(trial, map);
        std::string shown;
        for (const TieOutRow& row : result.rows) {
            shown += row.account + row.name + " " +
                     (row.ledger ? row.ledger->FixedText() : std::string("none")) + " " +
                     row.entriesSum.FixedText() + " " + std::to_string(row.identities.size()) +
                     " " + row.difference.FixedText() + ":" + Joined(row.candidates) + "\n";
        }
        shown += "entries:";
        for (const UnmappedEntry& each : result.unmapped) {
            shown += " " + std::to_string(each.identity) + each.item + each.element + each.center;
        }
        shown += " " + result.unmappedSum.FixedText() + "\n";
        for (const TrialLine& each : result.unmappedAccounts) {
            shown += each.account + each.name + " " + each.amount.FixedText() + "\n";
        }
        agrees = result.Agrees();
        return shown;
    }

    TrialBalance trial;
    LedgerMap map;
    bool agrees = false;
};

TEST_F(TieOutTest, EveryEntryBelongsToTheFirstLineThatCoversIt) {
    map = {{"1604", "P01", "人工费", "*"},
           {"1605", "P*", "*", "*"},
           {"1606", "*", "E01", "D02"},
           {"1604", "*", "*", "*"}};
    Ledger("1605", "79.9999");
    Ledger("1604", "100.10", "在建");
    Ledger("1606", "5");
    EXPECT_EQ(TiedOut(),
              "1605 79.9999 79.9999 2 0.0000:\n"
              "1604在建 100.1000 100.1000 1 0.0000:\n"
              "1606 5.0000 5.0000 1 0.0000:\n"
              "entries: 0.0000\n");
    EXPECT_TRUE(agrees);
}

TEST_F(TieOutTest, ARowKnowsItsEntries) {
    map = {{"1605", "P02", "*", "*"}, {"1604", "*", "*", "*"}};
    const TieOut result = TieOutAccount(trial, map);
    EXPECT_EQ(Joined(result.rows.at(0).identities), " 3");
    EXPECT_EQ(Joined(result.rows.at(1).identities), " 1 2 4");
}

TEST_F(TieOutTest, WhatNoLineCoversIsTold) {
    map = {{"1604", "P*", "*", "D01"}, {"1607", "Z*", "*", "*"}};
    Ledger("1604", "180.10");
    Ledger("1001", "7");
    Ledger("1002", "0");
    EXPECT_EQ(TiedOut(),
              "1604 180.1000 180.1000 2 0.0000:\n"
              "1607 none 0.0000 0 0.0000:\n"
              "entries: 3P02人工费D02 4X01人工费D02 4.9999\n"
              "1001 7.0000\n");
    EXPECT_FALSE(agrees);
    trial.clear();
    map.clear();
    Run("update PM_ItemQC set cElementCode='E07' where iEleVid=4");
    EXPECT_EQ(TiedOut(),
              "entries: 1P01人工费D01 2P01机械费D01 3P02人工费D02 4X01E07D02 185.0999\n");
}

TEST_F(TieOutTest, AnAccountThatTheLedgerLacksDiffersByItsEntries) {
    map = {{"1604", "*", "*", "*"}};
    EXPECT_EQ(TiedOut(), "1604 none 185.0999 4 -185.0999:\nentries: 0.0000\n");
    EXPECT_FALSE(agrees);
}

TEST_F(TieOutTest, EntriesThatAreADifferenceAreHinted) {
    map = {{"1604", "P01", "*", "*"}, {"1605", "P02", "*", "*"}};
    Ledger("1604", "100.10");  // the entry of 80 is too much
    Ledger("1605", "4.9999");  // that of 5 is not covered
    EXPECT_EQ(TiedOut(),
              "1604 100.1000 180.1000 2 -80.0000: 2\n"
              "1605 4.9999 -0.0001 1 5.0000: 4\n"
              "entries: 4X01人工费D02 5.0000\n");
    // Another row's entries are not hinted.
    trial.clear();
    Ledger("1604", "180.10");
    Ledger("1605", "79.9999");
    EXPECT_EQ(TiedOut(),
              "1604 180.1000 180.1000 2 0.0000:\n"
              "1605 79.9999 -0.0001 1 80.0000:\n"
              "entries: 4X01人工费D02 5.0000\n");
}

TEST_F(TieOutTest, CodesAreComparedAsTheAccountComparesThem) {
    Run("update PM_ItemQC set cItemCode='x01' where iEleVid=4");
    map = {{"1604", "X01", "*", "d02"}};
    Ledger("1604", "5");
    EXPECT_EQ(TiedOut(),
              "1604 5.0000 5.0000 1 0.0000:\nentries: 1P01人工费D01 2P01机械费D01 3P02人工费D02 "
              "180.0999\n");
}

TEST_F(TieOutTest, SumsGoBeyondWhatOneAmountCanBe) {
    Run("update PM_ItemQC set mQC=922337203685477.5807 where iEleVid<3");
    map = {{"1604", "*", "*", "*"}};
    Ledger("1604", "922337203685477.5807");
    EXPECT_EQ(TiedOut(),
              "1604 922337203685477.5807 1844674407370960.1613 4 -922337203685482.5806:\n"
              "entries: 0.0000\n");
}

TEST_F(TieOutTest, ReadsWithinASnapshotThatEnds) {
    map = {{"1604", "*", "*", "*"}};
    mLog.statements.clear();
    TiedOut();
    EXPECT_EQ(mLog.Lines().back(), "gConn: roll back");
    const platform::Snapshot another(*data::gConn);
    EXPECT_EQ(TiedOut(), "1604 none 185.0999 4 -185.0999:\nentries: 0.0000\n");
}

}  // namespace
}  // namespace kelvane::entries
