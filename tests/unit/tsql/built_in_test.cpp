#include "adapters/tsql/language/built_in.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/unit/tsql/postgres_account.h"
#include "tests/unit/tsql/small_catalog.h"

namespace kelvane::tsql {
namespace {

// A call of every function on a column of texts or of amounts; whoever adds a function to the
// enumeration is asked for its call here.
std::string CallOf(BuiltIn builtIn, const std::string& text, const std::string& amount) {
    switch (builtIn) {
        case BuiltIn::IsNull:
            return "isnull(" + text + ",'')";
        case BuiltIn::LTrim:
            return "ltrim(" + text + ")";
        case BuiltIn::RTrim:
            return "rtrim(" + text + ")";
        case BuiltIn::Len:
            return "len(" + text + ")";
        case BuiltIn::Count:
            return "count(" + text + ")";
        case BuiltIn::Sum:
            return "sum(" + amount + ")";
        case BuiltIn::Avg:
            return "avg(" + amount + ")";
        case BuiltIn::Min:
            return "min(" + text + ")";
        case BuiltIn::Max:
            return "max(" + text + ")";
    }
    return {};
}

// All functions' calls, in the order of the enumeration.
std::vector<std::string> Calls(const std::string& text, const std::string& amount) {
    std::vector<std::string> calls;
    for (int id = 0; id <= static_cast<int>(BuiltIn::Max); ++id) {
        calls.push_back(CallOf(static_cast<BuiltIn>(id), text, amount));
    }
    return calls;
}

TEST(BuiltIns, EachIsFoundByItsName) {
    int id = 0;
    for (const std::string& call : Calls("c", "m")) {
        const BuiltInInfo* found = FindBuiltIn(call.substr(0, call.find('(')));
        ASSERT_NE(found, nullptr) << call;
        EXPECT_EQ(static_cast<int>(found->id), id++) << call;
    }
    EXPECT_EQ(FindBuiltIn("getdate"), nullptr);
    EXPECT_EQ(FindBuiltIn(""), nullptr);
}

TEST(BuiltIns, EachIsWrittenForEveryEngine) {
    for (const std::string& call : Calls("code", "amount")) {
        EXPECT_TRUE(Written("select " + call + " from Entry").starts_with("select ")) << call;
    }
    for (const std::string& call : Calls("c", "m")) {
        EXPECT_TRUE(ForPostgres("select " + call + " from Probe").starts_with("select ")) << call;
    }
}

TEST(BuiltIns, AnAggregateIsOneOverRows) {
    for (const char* name : {"count", "sum", "avg", "min", "max"}) {
        EXPECT_TRUE(FindBuiltIn(name)->isAggregate) << name;
    }
    for (const char* name : {"isnull", "ltrim", "rtrim", "len"}) {
        EXPECT_FALSE(FindBuiltIn(name)->isAggregate) << name;
    }
}

}  // namespace
}  // namespace kelvane::tsql
