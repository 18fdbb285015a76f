// Changing rows, and keeping them locked.
#include "tests/unit/odbc/server_fixture.h"

namespace kelvane::odbc {
namespace {

using platform::DatabaseBusy;
using platform::DatabaseError;
using platform::DateTime;
using platform::LockType;
using platform::Money;
using platform::Value;

class RecordSets : public ServerTest {
protected:
    OdbcSettings Keyed() const { return {.keys = {{"PM_ItemQC", {"iEleVid"}}}}; }
};

constexpr const char* kCounterPlay = R"(run update PM_SettingInf set cValue = cValue where cName='N'
count 1
run select cValue from PM_SettingInf where cName='N'
columns cValue VARCHAR 60
row 7)";
constexpr const char* kCounterLog =
    "autocommit off\nrun update PM_SettingInf set cValue = cValue where cName='N'\n"
    "run select cValue from PM_SettingInf where cName='N'\n";

TEST_F(RecordSets, LockedOnesTakeTheRowBeforeTheyReadIt) {
    Open(kCounterPlay);
    {
        const auto set =
            Query("select cValue from PM_SettingInf where cName='N'", LockType::Pessimistic);
        EXPECT_EQ(set->Field("cValue"), Value("7"));
        EXPECT_EQ(Log(), kCounterLog);
    }
    EXPECT_EQ(Log(), std::string(kCounterLog) + "rollback\nautocommit on\n");
}

TEST_F(RecordSets, LockedOnesSaveAtOnceAndKeepTheLock) {
    Open(std::string(kCounterPlay) +
         "\nrun update PM_SettingInf set cValue = '8' where (cName='N') and cValue = '7'\ncount 1\n"
         "run update PM_SettingInf set cValue = cValue where cName='N'\ncount 1\n"
         "run update PM_SettingInf set cValue = '9' where (cName='N') and cValue = '8'\ncount 1\n"
         "run update PM_SettingInf set cValue = cValue where cName='N'\ncount 1");
    const auto set =
        Query("select cValue from PM_SettingInf where cName='N'", LockType::Pessimistic);
    set->SetField("cvalue", Value("8"));
    EXPECT_EQ(set->Field("cValue"), Value("8"));
    set->Update();
    set->SetField("cValue", Value(std::int64_t{9}));
    set->Update();
    set->Close();
    EXPECT_EQ(Driver().Left(), 0);
    const std::string again =
        "commit\nautocommit on\nautocommit off\n"
        "run update PM_SettingInf set cValue = cValue where cName='N'\n";
    EXPECT_EQ(
        Log(),
        kCounterLog +
            std::string("run update PM_SettingInf set cValue = '8' where (cName='N') and cValue = "
                        "'7'\n") +
            again +
            "run update PM_SettingInf set cValue = '9' where (cName='N') and cValue = '8'\n" +
            again + "rollback\nautocommit on\n");
}

TEST_F(RecordSets, LockedOnesOfOthersAreBusy) {
    Open(
        "run update PM_SettingInf set cValue = cValue where cName='N'\n"
        "error HY000 1222 [A]Lock request time out period exceeded.\n"
        "run select @@trancount\ncolumns - INTEGER\nrow 1\nrun after\ncount 1");
    EXPECT_EQ(TextOf<DatabaseBusy>([&] {
                  Query("select cValue from PM_SettingInf where cName='N'", LockType::Pessimistic);
              }),
              "数据库正被其他操作员使用，请稍后再试（Lock request time out period exceeded.）");
    EXPECT_NO_THROW(Execute("after"));
    EXPECT_THAT(Log(), testing::EndsWith("rollback\nautocommit on\nrun after\n"));
}

TEST_F(RecordSets, InATransactionTheLockLastsToItsEnd) {
    Open(std::string(kCounterPlay) +
         "\nrun update PM_SettingInf set cValue = '8' where (cName='N') and cValue = '7'\ncount 1");
    Server().Begin();
    const auto set =
        Query("select cValue from PM_SettingInf where cName='N'", LockType::Pessimistic);
    set->SetField("cValue", Value("8"));
    set->Update();
    set->Close();
    EXPECT_THAT(Log(), testing::EndsWith("and cValue = '7'\n"));
    Server().Commit();
}

TEST_F(RecordSets, StatementsBesideALockAreDurableAtOnce) {
    Open(std::string(kCounterPlay) +
         "\nrun delete from T\ncount 1\n"
         "run update PM_SettingInf set cValue = cValue where cName='N'\ncount 1\n"
         "run select a from T\ncolumns a INTEGER");
    const auto set =
        Query("select cValue from PM_SettingInf where cName='N'", LockType::Pessimistic);
    Execute("delete from T");
    Query("select a from T");
    set->Close();
    EXPECT_EQ(Log(), kCounterLog +
                         std::string("run delete from T\ncommit\nautocommit on\nautocommit off\n"
                                     "run update PM_SettingInf set cValue = cValue where "
                                     "cName='N'\nrun select a from T\nrollback\nautocommit on\n"));
}

TEST_F(RecordSets, ATransactionTakesTheLockOver) {
    Open(std::string(kCounterPlay) +
         "\nrun x\ncount 1\n"
         "run update PM_SettingInf set cValue = cValue where cName='N'\ncount 1");
    const auto set =
        Query("select cValue from PM_SettingInf where cName='N'", LockType::Pessimistic);
    Server().Begin();
    Execute("x");
    Server().Commit();
    set->Close();
    EXPECT_EQ(Log(), kCounterLog + std::string("run x\ncommit\nautocommit on\nautocommit off\n"
                                               "run update PM_SettingInf set cValue = cValue where "
                                               "cName='N'\nrollback\nautocommit on\n"));
}

// A lock that is lost to another operator is taken again, and what was read is compared.
TEST_F(RecordSets, ALostLockIsTakenAgain) {
    const std::string lock = "run update PM_SettingInf set cValue = cValue where cName='N'\n";
    Open(std::string(kCounterPlay) + "\nrun x\ncount 1\n" + lock + "error HY000 1222 busy\n" +
         "run select @@trancount\ncolumns - INTEGER\nrow 1\n" + lock + "count 1\n" +
         "run update PM_SettingInf set cValue = '8' where (cName='N') and cValue = '7'\ncount 0\n" +
         lock + "count 1");
    const auto set =
        Query("select cValue from PM_SettingInf where cName='N'", LockType::Pessimistic);
    Execute("x");
    set->SetField("cValue", Value("8"));
    EXPECT_EQ(TextOf<DatabaseError>([&] { set->Update(); }),
              "Row cannot be located for updating. Some values may have been changed since it was "
              "last read.");
    set->Close();
    EXPECT_EQ(Driver().Left(), 0);
}

constexpr const char* kEntryPlay =
    R"(run update PM_ItemQC set iEleVid = iEleVid where iEleVid=12
count 1
run select * from PM_ItemQC with (HOLDLOCK) where iEleVid=12
columns iEleVid INTEGER|dDate TIMESTAMP 23 3|cDigest VARCHAR 60|mQC DECIMAL 19 4
row 12|2004-06-30 00:00:00.0|old|1.5000
run update PM_ItemQC set )";

TEST_F(RecordSets, HeldReadsInATransactionQueueInsteadOfMeetingInADeadlock) {
    Open(kEntryPlay +
             std::string("dDate = '2004-07-01', cDigest = N'期初''s', mQC = 12345.6789 where "
                         "iEleVid = 12\ncount 1"),
         Keyed());
    Server().Begin();
    const auto row =
        Query("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=12", LockType::Optimistic);
    row->SetField("dDate", Value(DateTime{2004, 7, 1}));
    row->SetField("CDIGEST", Value("期初's"));
    row->SetField("mQC", Value(Money::FromText("12345.6789")));
    row->Update();
    row->Close();
    Server().Commit();
    EXPECT_EQ(Driver().Left(), 0);
}

TEST_F(RecordSets, WithoutAKnownKeyTheWholeRowFindsItself) {
    Open(kEntryPlay + std::string("mQC = 2.0000 where (iEleVid=12) and iEleVid = 12 and dDate = "
                                  "'2004-06-30' and cDigest = 'old' and mQC = 1.5000\ncount 1"));
    Server().Begin();
    const auto row =
        Query("select * from PM_ItemQC with (HOLDLOCK) where iEleVid=12", LockType::Optimistic);
    row->SetField("mQC", Value(std::int64_t{2}));
    row->Update();
    EXPECT_EQ(row->Field("mQC"), Value(Money::FromInteger(2)));
    Server().RollBack();
}

TEST_F(RecordSets, UnlockedRowsAreComparedWithWhatWasRead) {
    Open(
        "run select iEleVid,mQC,cDigest from PM_ItemQC\n"
        "columns iEleVid INTEGER|mQC DECIMAL 19 4|cDigest VARCHAR 60\nrow 1|1.0000|NULL\n"
        "run update PM_ItemQC set mQC = 5.0000, cDigest = 'x' where iEleVid = 1 and mQC = 1.0000 "
        "and cDigest is null\ncount 0",
        Keyed());
    const auto row = Query("select iEleVid,mQC,cDigest from PM_ItemQC", LockType::Optimistic);
    row->SetField("mQC", Value(std::int64_t{5}));
    row->SetField("cDigest", Value("x"));
    EXPECT_THROW(row->Update(), DatabaseError);
    EXPECT_THAT(Log(), testing::EndsWith("rollback\nautocommit on\n"));
}

TEST_F(RecordSets, NeverChangeMoreThanOneRow) {
    Open(
        "run select mQC from PM_ItemQC where cDigest='a'\n"
        "columns mQC DECIMAL 19 4\nrow 1.0000\nrow 1.0000\n"
        "run update PM_ItemQC set mQC = 5.0000 where (cDigest='a') and mQC = 1.0000\ncount 2");
    const auto row = Query("select mQC from PM_ItemQC where cDigest='a'", LockType::Optimistic);
    row->SetField("mQC", Value(std::int64_t{5}));
    EXPECT_EQ(TextOf<DatabaseError>([&] { row->Update(); }),
              "Key column information is insufficient or incorrect. Too many rows were affected by "
              "update.");
    EXPECT_EQ(Log(),
              "run select mQC from PM_ItemQC where cDigest='a'\nautocommit off\n"
              "run update PM_ItemQC set mQC = 5.0000 where (cDigest='a') and mQC = 1.0000\n"
              "rollback\nautocommit on\n");
}

TEST_F(RecordSets, RefuseWhatCannotBeChanged) {
    Open(
        "run select i,i+1 as j from Probe\ncolumns i INTEGER|j INTEGER\nrow 1|2\n"
        "run select a.i from Probe a, Probe b\ncolumns i INTEGER\nrow 1\n"
        "run select i from Probe\ncolumns i INTEGER\nrow 1");
    const auto computed = Query("select i,i+1 as j from Probe", LockType::Optimistic);
    EXPECT_THROW(computed->SetField("j", Value("3")), DatabaseError);
    EXPECT_NO_THROW(computed->SetField("i", Value("3")));
    const auto joined = Query("select a.i from Probe a, Probe b", LockType::Optimistic);
    EXPECT_THROW(joined->SetField("i", Value("3")), DatabaseError);
    const auto readOnly = Query("select i from Probe", LockType::ReadOnly);
    EXPECT_THROW(readOnly->SetField("i", Value("3")), DatabaseError);
    EXPECT_THROW(readOnly->SetField("none", Value("3")), DatabaseError);
}

TEST_F(RecordSets, RefuseWhatAColumnCannotHold) {
    Open(
        "run select * from Probe\n"
        "columns i INTEGER|t TINYINT|c VARCHAR 10|n WVARCHAR 3|d TIMESTAMP 23 3|m DECIMAL 19 4\n"
        "row 1|2|x|y|2004-06-30 00:00:00.0|1.0000");
    const auto set = Query("select * from Probe", LockType::Optimistic);
    const auto numberOf = [&](const char* field, const Value& value) {
        try {
            set->SetField(field, value);
        } catch (const DatabaseError& error) {
            return error.NativeCode();
        }
        return 0;
    };
    EXPECT_EQ(numberOf("i", Value("x")), 245);
    EXPECT_EQ(numberOf("t", Value(std::int64_t{256})), 8115);
    EXPECT_EQ(numberOf("c", Value("一二三四五六")), 8152);
    EXPECT_EQ(numberOf("n", Value("一二三")), 0);
    EXPECT_EQ(numberOf("n", Value("一二三四")), 8152);
    EXPECT_EQ(numberOf("d", Value(DateTime{100, 1, 1})), 242);
    EXPECT_EQ(numberOf("m", Value("1.2.3")), 235);
}

TEST_F(RecordSets, OutliveTheirConnectionForReading) {
    Open("run select i from Probe\ncolumns i INTEGER\nrow 1");
    const auto set = Query("select i from Probe", LockType::Optimistic);
    Server().Close();
    EXPECT_EQ(set->Field("i"), Value(std::int64_t{1}));
    set->SetField("i", Value(std::int64_t{2}));
    EXPECT_EQ(TextOf<DatabaseError>([&] { set->Update(); }), "The connection is closed.");
    set->Close();
    EXPECT_THROW(set->Close(), DatabaseError);
    EXPECT_THROW(set->EndOfFile(), DatabaseError);
}

TEST_F(RecordSets, LockedOnesSurviveALoss) {
    Open(std::string(kCounterPlay) + "\nrun x\nerror 08S01 20006 gone\ndies\nrun after\ncount 1");
    const auto set =
        Query("select cValue from PM_SettingInf where cName='N'", LockType::Pessimistic);
    EXPECT_THROW(Execute("x"), platform::ConnectionLost);
    EXPECT_NO_THROW(Execute("after"));
    EXPECT_NO_THROW(set->Close());
}

}  // namespace
}  // namespace kelvane::odbc
