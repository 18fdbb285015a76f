#include "entries/stored_entry.h"

#include <gtest/gtest.h>

#include "data/login_context.h"
#include "tests/support/memory_record_set.h"

namespace kelvane::entries {
namespace {

using platform::Money;
using platform::Value;

class StoredEntryTest : public testing::Test {
protected:
    StoredEntryTest() { data::gNumPointMoney = 2; }

    // What the account holds, with one column otherwise.
    static StoredEntry Stored(const char* column = "", const Value& value = {}) {
        std::vector<std::string> names{"iEleVid",      "dDate",     "cCenterCode",
                                       "cItemCode",    "cKeyCode1", "cKeyCode2",
                                       "cElementCode", "cDigest",   "mQC"};
        support::MemoryRecordSet::Row row{Value(std::int64_t{7}),
                                          Value(platform::DateTime{2004, 6, 1}),
                                          Value("D01"),
                                          Value("P01"),
                                          Value("一标段"),
                                          Value(),
                                          Value("E01"),
                                          Value("人工"),
                                          Value(Money::FromText("1234.5"))};
        for (std::size_t i = 0; i < names.size(); ++i) {
            if (names[i] == column) row[i] = value;
        }
        const support::MemoryRecordSet rows(names, {row});
        return StoredEntryOf(rows);
    }
    static EntryTexts Shown() {
        EntryTexts texts{.identity = 7, .cells = {}};
        texts[kDateColumn] = "2004-06-01";
        texts[kCenterColumn] = "D01";
        texts[kItemColumn] = "P01";
        texts[kItemNameColumn] = "一号楼";
        texts[kKey1Column] = "一标段";
        texts[kElementColumn] = "人工费";
        texts[kDigestColumn] = "人工";
        texts[kAmountColumn] = "1,234.50";
        return texts;
    }
    static EntryTexts ShownWith(EntryColumn column, const char* text) {
        EntryTexts texts = Shown();
        texts[column] = text;
        return texts;
    }
};

TEST_F(StoredEntryTest, HasTheTextsOfAList) {
    const StoredEntry stored = Stored();
    EXPECT_EQ(stored.texts[kDateColumn], "2004-06-01");
    EXPECT_EQ(stored.texts[kKey2Column], "");
    EXPECT_EQ(stored.texts[kAmountColumn], "1,234.50");
    EXPECT_EQ(stored.elementCode, "E01");
    EXPECT_EQ(stored.amount, Money::FromText("1234.5"));
}

TEST_F(StoredEntryTest, EveryColumnThatReadsOtherwiseIsADifference) {
    EXPECT_TRUE(IsAsShown(Shown(), Stored()));
    for (const char* column : {"cCenterCode", "cItemCode", "cKeyCode1", "cKeyCode2", "cDigest"}) {
        EXPECT_FALSE(IsAsShown(Shown(), Stored(column, Value("X")))) << column;
    }
    EXPECT_FALSE(IsAsShown(Shown(), Stored("dDate", Value(platform::DateTime{2004, 6, 2}))));
    EXPECT_FALSE(IsAsShown(Shown(), Stored("dDate")));
    EXPECT_FALSE(IsAsShown(Shown(), Stored("mQC", Value(Money::FromText("1234.51")))));
    EXPECT_FALSE(IsAsShown(Shown(), Stored("mQC")));
    // In another letter case it is another text.
    EXPECT_FALSE(IsAsShown(Shown(), Stored("cItemCode", Value("p01"))));
}

TEST_F(StoredEntryTest, BlanksAndTabsReadAsTheyWereShown) {
    EXPECT_TRUE(IsAsShown(Shown(), Stored("cDigest", Value("人工   "))));
    EXPECT_TRUE(IsAsShown(Shown(), Stored("cDigest", Value(" 人工\t"))));
    EXPECT_TRUE(IsAsShown(Shown(), Stored("cKeyCode2", Value(""))));
    EXPECT_TRUE(IsAsShown(Shown(), Stored("cKeyCode2", Value(" "))));
    EXPECT_TRUE(IsAsShown(ShownWith(kDigestColumn, "人 工 "), Stored("cDigest", Value("人\t工"))));
    EXPECT_FALSE(IsAsShown(ShownWith(kDigestColumn, "人 工"), Stored("cDigest", Value("人  工"))));
}

TEST_F(StoredEntryTest, AmountsAreComparedAsFarAsTheyAreShown) {
    EXPECT_TRUE(IsAsShown(Shown(), Stored("mQC", Value(Money::FromText("1234.4951")))));
    EXPECT_TRUE(IsAsShown(Shown(), Stored("mQC", Value("1234.5"))));
    EXPECT_TRUE(IsAsShown(Shown(), Stored("mQC", Value(1234.5))));
    EXPECT_TRUE(IsAsShown(ShownWith(kAmountColumn, "0.00"), Stored("mQC")));
    const char* const nearlyNothing = "-0.001";
    const StoredEntry small = Stored("mQC", Value(Money::FromText(nearlyNothing)));
    EXPECT_TRUE(IsAsShown(ShownWith(kAmountColumn, small.texts[kAmountColumn].c_str()), small));
    EXPECT_TRUE(IsAsShown(ShownWith(kAmountColumn, "0.00"), small));
}

// With no decimals a text ends in the point, with many it has more than an amount keeps.
TEST_F(StoredEntryTest, AnyNumberOfDecimalsReadsBackAsItWasSaved) {
    for (const int places : {0, 1, 3, 4, 6}) {
        data::gNumPointMoney = static_cast<std::int16_t>(places);
        for (const char* amount : {"0", "0.5", "-0.5", "1234.5678", "1234.5", "-1.00005"}) {
            const StoredEntry stored = Stored("mQC", Value(Money::FromText(amount)));
            const std::string shown = stored.texts[kAmountColumn];
            EXPECT_TRUE(IsAsShown(ShownWith(kAmountColumn, shown.c_str()), stored))
                << shown << " of " << amount << " with " << places;
            // And after a save of what is shown.
            const StoredEntry saved = Stored("mQC", Value(Money::FromText(shown)));
            EXPECT_TRUE(IsAsShown(ShownWith(kAmountColumn, shown.c_str()), saved))
                << shown << " with " << places;
        }
    }
    data::gNumPointMoney = 6;
    EXPECT_TRUE(IsAsShown(ShownWith(kAmountColumn, "1.123456"),
                          Stored("mQC", Value(Money::FromText("1.123456")))));
}

TEST_F(StoredEntryTest, ADateIsComparedWithoutItsTime) {
    EXPECT_TRUE(IsAsShown(Shown(), Stored("dDate", Value(platform::DateTime{2004, 6, 1, 13, 5}))));
    EXPECT_TRUE(IsAsShown(Shown(), Stored("dDate", Value("2004.6.1"))));
    EXPECT_TRUE(IsAsShown(ShownWith(kDateColumn, ""), Stored("dDate")));
}

TEST_F(StoredEntryTest, WhatIsNoDateOrAmountKeepsItsText) {
    const StoredEntry date = Stored("dDate", Value("昨天"));
    EXPECT_EQ(date.texts[kDateColumn], "昨天");
    EXPECT_FALSE(IsAsShown(Shown(), date));
    const StoredEntry amount = Stored("mQC", Value("很多"));
    EXPECT_EQ(amount.texts[kAmountColumn], "很多");
    EXPECT_EQ(amount.amount, Money());
    EXPECT_FALSE(IsAsShown(Shown(), amount));
    EXPECT_FALSE(IsAsShown(Shown(), Stored("mQC", Value("9999999999999999"))));
}

TEST(SameText, ALetterThatTheCodePageDoesNotHaveIsAQuestionMark) {
    EXPECT_TRUE(IsSameText("人€工", "人?工"));
    EXPECT_TRUE(IsSameText("人𠮷工", "人??工"));
    EXPECT_TRUE(IsSameText("人𠮷工", "人?工"));
    EXPECT_TRUE(IsSameText("人𠮷?", "人???"));
    EXPECT_TRUE(IsSameText("a?", "a?"));
    EXPECT_FALSE(IsSameText("ab", "a?"));
    EXPECT_FALSE(IsSameText("人工", "人??"));
    EXPECT_FALSE(IsSameText("人?", "人工"));
    EXPECT_FALSE(IsSameText("人工", "人"));
    EXPECT_FALSE(IsSameText("人", "人工"));
}

}  // namespace
}  // namespace kelvane::entries
