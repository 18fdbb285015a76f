#include "ui/common/entry_number.h"

#include "tests/database/data_fixture.h"

namespace kelvane::entries {
namespace {

using data::gConn;
using data::Lines;

class EntryCounter : public data::DataTest {
protected:
    static constexpr NumberRange kShort{-32768, 32767};

    std::int32_t Next(std::optional<NumberRange> range = std::nullopt) {
        return ui::NextSettingNumber("NumMax_EleQc", *gConn, range);
    }
    std::string Stored() {
        return Read("select cValue from PM_SettingInf where cName='NumMax_EleQc'");
    }
    void Forget() {
        mWindows.messages.clear();
        mDiagnostics.places.clear();
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
        EXPECT_EQ(ui::NextSettingNumber("NumMax_EleQc", *mOther), expected + 1);
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
    EXPECT_EQ(Next(kShort), 32767);
    EXPECT_THROW(Next(kShort), CounterExhausted);
    EXPECT_EQ(Stored(), "32767");
    EXPECT_EQ(Messages(), Lines{});
    EXPECT_EQ(Next(), 32768);
}

TEST_F(EntryCounter, BelowTheSmallestNothingIsWritten) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','-32769')");
    EXPECT_EQ(Next(kShort), -32768);
    Run("update PM_SettingInf set cValue='-32770'");
    EXPECT_THROW(Next(kShort), CounterBelowRange);
    EXPECT_EQ(Stored(), "-32770");
    EXPECT_EQ(Messages(), Lines{});
}

// The range is for numbers: what is none of 32 bits is a conflict, with a range as without.
TEST_F(EntryCounter, AValueThatDoesNotFitIsAConflict) {
    Run("insert into PM_SettingInf values('NumMax_EleQc','0')");
    const platform::FixedText values[] = {
        "update PM_SettingInf set cValue='2147483647'",
        "update PM_SettingInf set cValue='2147483648'",
        "update PM_SettingInf set cValue='-2147483649'",
        "update PM_SettingInf set cValue='9223372036854775807'",
        "update PM_SettingInf set cValue='9223372036854775808'",
        "update PM_SettingInf set cValue='-99999999999999999999'",
        "update PM_SettingInf set cValue='1e40'",
    };
    for (const platform::FixedText& value : values) {
        Run(value);
        const std::string stored = Stored();
        ExpectConflict(Next());
        Forget();
        ExpectConflict(Next(kShort));
        Forget();
        EXPECT_EQ(Stored(), stored);
    }
}

TEST_F(EntryCounter, ANameThatBreaksTheStatementIsAConflict) {
    ExpectConflict(ui::NextSettingNumber("x' or '1'='1", *gConn));
    EXPECT_EQ(mLog.Lines(), Lines{});
}

}  // namespace
}  // namespace kelvane::entries
