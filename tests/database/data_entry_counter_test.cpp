#include "data/entry_counter.h"

#include "tests/database/data_fixture.h"

namespace kelvane::data {
namespace {

class EntryCounter : public DataTest {
protected:
    std::int32_t Next(std::optional<std::int32_t> largest = std::nullopt) {
        return NextSettingNumber("NumMax_EleQc", *gConn, largest);
    }
    std::string Stored() {
        return Read("select cValue from PM_SettingInf where cName='NumMax_EleQc'");
    }
    void ExpectConflict(std::int32_t number) {
        EXPECT_EQ(number, -1);
        EXPECT_EQ(Messages(), Lines{"[提示信息|information] 出现冲突，请稍后再试！"});
        EXPECT_EQ(mDiagnostics.places, Lines{"NextSettingNumber"});
    }
};

TEST_F(EntryCounter, CountsOn) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','41')");
    EXPECT_EQ(Next(), 42);
    EXPECT_EQ(Stored(), "42");
    EXPECT_EQ(Next(), 43);
    EXPECT_EQ(Stored(), "43");
    EXPECT_EQ(mLog.Lines(),
              Lines(2, "gConn: select cValue from PM_SettingInf where cName='NumMax_EleQc'"));
    const auto options = mLog.statements.front().options;
    EXPECT_EQ(options.location, platform::CursorLocation::Server);
    EXPECT_EQ(options.cursor, platform::CursorType::Static);
    EXPECT_EQ(options.lock, platform::LockType::Pessimistic);
    EXPECT_EQ(options.command, platform::CommandType::Unspecified);
    EXPECT_EQ(Messages(), Lines{});
}

TEST_F(EntryCounter, StartsAt1FromNull) {
    Run("insert into PM_SettingInf values('NumMax_EleQc',null)");
    EXPECT_EQ(Next(), 1);
    EXPECT_EQ(Stored(), "1");
}

TEST_F(EntryCounter, StartsAt1FromATextWithoutANumber) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','无')");
    EXPECT_EQ(Next(), 1);
}

TEST_F(EntryCounter, AMissingCounterIsAConflict) {
    ExpectConflict(Next());
}

TEST_F(EntryCounter, AnotherOperatorHoldingTheCounterIsAConflict) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','41')");
    {
        const platform::Transaction other(*mOther);
        Run("update PM_SettingInf set cValue='50' where cName='NumMax_EleQc'");
        ExpectConflict(Next());
    }
    EXPECT_EQ(Stored(), "41");
    EXPECT_EQ(Next(), 42);
}

TEST_F(EntryCounter, TwoOperatorsNeverGetTheSame) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','0')");
    for (std::int32_t expected = 1; expected <= 20; expected += 2) {
        EXPECT_EQ(Next(), expected);
        EXPECT_EQ(NextSettingNumber("NumMax_EleQc", *mOther), expected + 1);
    }
    EXPECT_EQ(Stored(), "20");
}

TEST_F(EntryCounter, ANumberRolledBackIsGivenOutAgain) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','41')");
    {
        const platform::Transaction transaction(*gConn);
        EXPECT_EQ(Next(), 42);
    }
    EXPECT_EQ(Stored(), "41");
    EXPECT_EQ(Next(), 42);
}

TEST_F(EntryCounter, PastTheLargestNothingIsWritten) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','32766')");
    EXPECT_EQ(Next(32767), 32767);
    EXPECT_THROW(Next(32767), CounterExhausted);
    EXPECT_EQ(Stored(), "32767");
    EXPECT_EQ(Messages(), Lines{});
    EXPECT_EQ(Next(), 32768);
}

TEST_F(EntryCounter, Past32BitsIsAConflict) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','2147483647')");
    ExpectConflict(Next());
    EXPECT_EQ(Stored(), "2147483647");
}

TEST_F(EntryCounter, ANameThatBreaksTheStatementIsAConflict) {
    ExpectConflict(NextSettingNumber("x' or '1'='1", *gConn));
    EXPECT_EQ(mLog.Lines(), Lines{});
}

}  // namespace
}  // namespace kelvane::data
