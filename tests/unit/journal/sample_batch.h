// Batches for the journal's tests, and what they are compared by.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/batch_journal.h"

namespace kelvane::journal_test {

inline platform::RowImage RowOf(const std::string& amount) {
    return {.fields = {{"iID", "7"}, {"cDigest", "期初 \"一\"\n二"}, {"mMoney", amount}},
            .lines = {{{"cCode", "S01"}, {"fQuantity", "2"}}, {}}};
}

// An import of a new, a changed and a deleted row.
inline platform::BatchIntent SampleIntent() {
    platform::BatchIntent intent;
    intent.kind = "import";
    intent.user = "张三";
    intent.time = {.year = 2026, .month = 11, .day = 22, .hour = 9, .minute = 30, .millisecond = 5};
    intent.file = "期初.xlsx";
    intent.hash = "aa";
    intent.linesFile = "lines.csv";
    intent.linesHash = "bb";
    intent.changes = {{.identity = 7, .before = {}, .after = RowOf("1.00")},
                      {.identity = -8, .before = RowOf("2.00"), .after = RowOf("3.00")},
                      {.identity = 9'000'000'000, .before = RowOf("4.00"), .after = {}}};
    return intent;
}

inline void ExpectSame(const platform::BatchIntent& read, const platform::BatchIntent& written) {
    EXPECT_EQ(read.kind, written.kind);
    EXPECT_EQ(read.undoes, written.undoes);
    EXPECT_EQ(read.user, written.user);
    EXPECT_EQ(read.time, written.time);
    EXPECT_EQ(read.file, written.file);
    EXPECT_EQ(read.hash, written.hash);
    EXPECT_EQ(read.linesFile, written.linesFile);
    EXPECT_EQ(read.linesHash, written.linesHash);
    EXPECT_EQ(read.changes, written.changes);
}

}  // namespace kelvane::journal_test
