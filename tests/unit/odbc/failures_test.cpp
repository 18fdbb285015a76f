#include "adapters/odbc/failures.h"

#include <gtest/gtest.h>

namespace kelvane::odbc {
namespace {

std::string Meaning(const Diagnostic& diagnostic) {
    const Failure failure = FailureOf(diagnostic);
    EXPECT_EQ(failure.text, diagnostic.text);
    const char* kinds[] = {"statement", "busy", "undone", "lost"};
    return kinds[static_cast<int>(failure.kind)] + (' ' + std::to_string(failure.code));
}

TEST(Failures, AreToldBySqlState) {
    EXPECT_EQ(Meaning({"HYT00", 0, "Timeout expired"}), "busy 0");
    EXPECT_EQ(Meaning({"S1T00", 0, "Timeout expired"}), "busy 0");
    EXPECT_EQ(Meaning({"HYT01", 0, "Timeout expired"}), "lost 0");
    EXPECT_EQ(Meaning({"55P03", 1, "x"}), "busy 1222");
    EXPECT_EQ(Meaning({"40001", 1205, "x"}), "undone 1205");
    EXPECT_EQ(Meaning({"40P01", 1, "x"}), "undone 1205");
    EXPECT_EQ(Meaning({"08S01", 20006, "x"}), "lost 20006");
    EXPECT_EQ(Meaning({"57P01", 1, "x"}), "lost 1");
    EXPECT_EQ(Meaning({"42000", 102, "x"}), "statement 102");
}

TEST(Failures, AreToldByTheirNumberWhereTheStateSaysNothing) {
    for (const char* state : {"HY000", "42000", "S1000", ""}) {
        EXPECT_EQ(Meaning({state, 1222, "x"}), "busy 1222");
        EXPECT_EQ(Meaning({state, 1205, "x"}), "undone 1205");
    }
}

TEST(Failures, AreToldByTheirWordsWhereTheNumberSaysNothing) {
    EXPECT_EQ(Meaning({"HY000", 33557097, "canceling statement due to lock timeout"}), "busy 1222");
    EXPECT_EQ(Meaning({"42000", 50000, "could not obtain lock on row in relation \"S\""}),
              "busy 1222");
    EXPECT_EQ(Meaning({"HY000", 7, "canceling statement due to statement timeout"}), "busy 7");
    EXPECT_EQ(Meaning({"HY000", 33557097, "deadlock detected"}), "undone 1205");
    EXPECT_EQ(Meaning({"HY000", 7, "could not serialize access due to read/write dependencies"}),
              "undone 1205");
    // Words that a statement brought with it.
    EXPECT_EQ(Meaning({"42000", 208, "Invalid object name 'deadlock detected'."}), "statement 208");
}

TEST(Failures, TheEarlierSignDecides) {
    EXPECT_EQ(Meaning({"HYT00", 1205, "deadlock detected"}), "busy 1205");
    EXPECT_EQ(Meaning({"08S01", 1222, "canceling statement due to lock timeout"}), "lost 1222");
    EXPECT_EQ(Meaning({"HY000", 1222, "deadlock detected"}), "busy 1222");
}

}  // namespace
}  // namespace kelvane::odbc
