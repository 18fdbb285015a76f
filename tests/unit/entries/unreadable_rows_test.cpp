#include "entries/unreadable_rows.h"

#include <gtest/gtest.h>

#include "tests/support/memory_record_set.h"

namespace kelvane::entries {
namespace {

using platform::Money;
using platform::Value;
using support::MemoryRecordSet;

MemoryRecordSet Rows(std::vector<MemoryRecordSet::Row> rows) {
    return {{"iEleVid", "mQC", "dDate"}, std::move(rows)};
}

Value Identity(std::int64_t number) {
    return Value(number);
}

TEST(UnreadableRows, AreNoneWhereEveryValueIsOne) {
    auto rows = Rows({{Identity(1), Value(Money::FromText("1.5")), Value("2004-06-30")},
                      {Identity(2), Value(), Value()}});
    EXPECT_EQ(FindUnreadableRows(rows, {"mQC"}, {"dDate"}).count, 0);
}

TEST(UnreadableRows, AreCountedFromTheCurrentRowOn) {
    auto rows = Rows({{Identity(1), Value("nan"), Value()},
                      {Identity(2), Value("1.5"), Value()},
                      {Identity(3), Value("1.5"), Value("soon")},
                      {Identity(4), Value("nan"), Value("soon")}});
    rows.MoveNext();
    const UnreadableRows found = FindUnreadableRows(rows, {"mQC"}, {"dDate"});
    EXPECT_EQ(found.count, 2);
    EXPECT_EQ(found.firstIdentity, "3");
}

TEST(UnreadableRows, OnlyTheColumnsAskedForCount) {
    auto rows = Rows({{Identity(1), Value("nan"), Value()}, {Identity(2), Value(), Value("soon")}});
    EXPECT_EQ(FindUnreadableRows(rows, {"mQC"}, {}).firstIdentity, "1");
    rows.MoveFirst();
    EXPECT_EQ(FindUnreadableRows(rows, {}, {"dDate"}).firstIdentity, "2");
}

}  // namespace
}  // namespace kelvane::entries
