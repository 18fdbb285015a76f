// A snapshot: whoever checks or sums up the account sees it as of one moment, on every engine, and
// changes nothing.
#include <gtest/gtest.h>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {
namespace {

using platform::DatabaseBusy;
using platform::DatabaseError;
using platform::LockType;
using platform::Snapshot;
using platform::StatementText;
using platform::Value;

class Snapshots : public AccountTest {
protected:
    Snapshots() : mOther(Connect()) {
        Execute(
            "insert into PM_SettingInf(cName,cValue) values('NumMax_EleQc','7')"
            " insert into PM_ItemQC(iEleVid,cDigest,mQC) values(1,'a',10)");
    }

    // A save by another operator; one who is kept out until the reader has finished has not saved.
    void SaveByAnother(const StatementText& statement) {
        try {
            mOther->Execute(statement);
        } catch (const DatabaseBusy&) {
            EXPECT_EQ(Engine(), EngineKind::SqlServer) << "a reader kept a writer out";
        }
    }
    std::string Entries() { return Rows("select iEleVid,mQC from PM_ItemQC order by iEleVid"); }

private:
    std::shared_ptr<platform::Connection> mOther;
};

TEST_F(Snapshots, DoNotSeeWhatIsSavedInBetween) {
    {
        const Snapshot snapshot(Account());
        EXPECT_EQ(Entries(), "1|10\n");
        SaveByAnother(StatementText("update PM_ItemQC set mQC = 11"));
        SaveByAnother(StatementText("insert into PM_ItemQC(iEleVid,mQC) values(2,20)"));
        EXPECT_EQ(Entries(), "1|10\n");
        {
            const Snapshot within(Account());
            EXPECT_EQ(Entries(), "1|10\n");
        }
        EXPECT_EQ(Entries(), "1|10\n");
    }
    SaveByAnother(StatementText("update PM_ItemQC set mQC = 12 where iEleVid=1"));
    EXPECT_EQ(One("select mQC from PM_ItemQC where iEleVid=1").ToText(), "12");
}

// Other tables than the one that was read first are of the same moment too.
TEST_F(Snapshots, DoNotSeeWhatIsSavedInAnotherTable) {
    const Snapshot snapshot(Account());
    EXPECT_EQ(Entries(), "1|10\n");
    SaveByAnother(StatementText(
        "insert into PM_ItemQC(iEleVid,mQC) values(2,20)"
        " insert into PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(2,'A',10,2,20)"));
    EXPECT_EQ(One("select count(*) from PM_ItemQCsub where iEleVid in (select iEleVid from "
                  "PM_ItemQC)"),
              One("select count(*) from PM_ItemQC where iEleVid = 2"));
}

TEST_F(Snapshots, RefuseChanges) {
    const auto before = Open("select * from PM_ItemQC where iEleVid=1", LockType::Optimistic);
    {
        const Snapshot snapshot(Account());
        EXPECT_EQ(Entries(), "1|10\n");
        EXPECT_THROW(Execute("update PM_ItemQC set mQC = 12"), DatabaseError);
        EXPECT_THROW(Execute("delete from PM_ItemQC"), DatabaseError);
        EXPECT_THROW(Account().Begin(), DatabaseError);
        EXPECT_THROW(Open("select cValue from PM_SettingInf where cName='NumMax_EleQc'",
                          LockType::Pessimistic),
                     DatabaseError);
        const auto row = Open("select * from PM_ItemQC where iEleVid=1", LockType::Optimistic);
        EXPECT_THROW(row->SetField("mQC", Value(std::int64_t{13})), DatabaseError);
        before->SetField("mQC", Value(std::int64_t{14}));
        EXPECT_THROW(before->Update(), DatabaseError);
        EXPECT_EQ(Entries(), "1|10\n");
    }
    EXPECT_EQ(Entries(), "1|10\n");
    Execute("update PM_ItemQC set mQC = 15");
    EXPECT_EQ(Entries(), "1|15\n");
}

TEST_F(Snapshots, GoOnAfterAFailedQuery) {
    const Snapshot snapshot(Account());
    EXPECT_EQ(Entries(), "1|10\n");
    EXPECT_THROW(Open("select cNone from PM_ItemQC"), DatabaseError);
    EXPECT_EQ(Entries(), "1|10\n");
}

TEST_F(Snapshots, DoNotBeginInATransaction) {
    {
        platform::Transaction transaction(Account());
        EXPECT_THROW(Snapshot snapshot(Account()), DatabaseError);
        Execute("update PM_ItemQC set mQC = 16");
        transaction.Commit();
    }
    EXPECT_EQ(Entries(), "1|16\n");
}

}  // namespace
}  // namespace kelvane::database_test
