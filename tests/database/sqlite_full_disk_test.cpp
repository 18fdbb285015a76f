// A save on a disk that is full or breaks, at every write and every sync that it makes: the
// operator is told, and the account holds the whole save or nothing of it.
#include <gtest/gtest.h>

#include "tests/database/sqlite_account.h"
#include "tests/database/sqlite_failing_files.h"

namespace kelvane::database_test {
namespace {

using platform::StatementText;

constexpr const char* kBefore = "old 30 A B ";
constexpr const char* kAfter = "new 7 C D ";
constexpr int kTimeout = 50;

class SqliteFullDisk : public testing::Test {
protected:
    // An account of its own for each disk that fails.
    struct Account {
        Account() : path(folder.Path("account.kelvane")) {
            CreateSqliteAccount(path);
            connection = ConnectToSqlite(path, kTimeout);
            connection->Execute(StatementText(
                "insert into PM_ItemQC(iEleVid,cDigest,mQC) values(1,'old',30) insert into "
                "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(1,'A',10,1,10) insert into "
                "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(1,'B',20,1,20)"));
        }

        void Save() const {
            platform::Transaction transaction(*connection);
            const auto row = connection->OpenRecordSet(
                StatementText("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=1"),
                {.lock = platform::LockType::Optimistic});
            row->SetField("cDigest", platform::Value("new"));
            row->SetField("mQC", platform::Value("7"));
            row->Update();
            connection->Execute(StatementText(
                "delete from PM_ItemQCsub where iEleVid=1 insert into "
                "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(1,'C',3,1,3) insert into "
                "PM_ItemQCsub(iEleVid,cCodeMx,iUprice,iNum,mQC) values(1,'D',4,1,4)"));
            transaction.Commit();
        }

        // The entry as another operator finds it.
        std::string Content() const {
            const auto other = ConnectToSqlite(path, kTimeout);
            std::string text;
            for (const auto& query :
                 {StatementText("select cDigest,mQC from PM_ItemQC where iEleVid=1"),
                  StatementText(
                      "select cCodeMx from PM_ItemQCsub where iEleVid=1 order by cCodeMx")}) {
                const auto rows = other->OpenRecordSet(query);
                for (; !rows->EndOfFile(); rows->MoveNext()) {
                    for (int i = 0; i < rows->FieldCount(); ++i) {
                        text += rows->Field(i).ToText() + ' ';
                    }
                }
            }
            return text;
        }

        ScratchFolder folder;
        std::string path;
        std::shared_ptr<platform::Connection> connection;
    };

    FailingFiles mDisk;
};

TEST_F(SqliteFullDisk, LosesNothingAndSavesNothingByHalves) {
    int allowed = 0;
    for (bool failed = true; failed; ++allowed) {
        const Account account;
        std::string told;
        mDisk.FillDisk(allowed);
        try {
            account.Save();
        } catch (const platform::DatabaseError& error) {
            told = error.what();
        }
        failed = mDisk.Heal() > 0;
        ASSERT_EQ(account.Content(), failed ? kBefore : kAfter) << allowed;
        if (!failed) break;
        EXPECT_EQ(told, "账套文件 " + account.path + " 所在的磁盘已满（database or disk is full）");
        EXPECT_NO_THROW(account.Save()) << allowed;
        EXPECT_EQ(account.Content(), kAfter) << allowed;
    }
    EXPECT_GE(allowed, 3);
}

TEST_F(SqliteFullDisk, WhatIsNotSurelyOnTheDiskIsInDoubt) {
    int doubts = 0;
    bool failed = true;
    for (int allowed = 0; failed; ++allowed) {
        const Account account;
        bool inDoubt = false;
        mDisk.BreakSync(allowed);
        try {
            account.Save();
        } catch (const platform::CommitInDoubt&) {
            inDoubt = true;
        }
        failed = mDisk.Heal() > 0;
        EXPECT_EQ(inDoubt, failed) << allowed;
        doubts += static_cast<int>(inDoubt);
        const std::string content = account.Content();
        EXPECT_TRUE(content == kAfter || (failed && content == kBefore)) << content;
        EXPECT_NO_THROW(account.Save()) << allowed;
        EXPECT_EQ(account.Content(), kAfter) << allowed;
    }
    EXPECT_GE(doubts, 1);
}

}  // namespace
}  // namespace kelvane::database_test
