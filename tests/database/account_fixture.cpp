#include "tests/database/account_fixture.h"

#include <algorithm>
#include <iterator>
#include <numeric>

#include "tests/support/test_tables.h"

namespace kelvane::database_test {

using platform::RecordSet;
using platform::StatementText;
using platform::Value;

namespace {

// Numbers that every server of the dialect gives, and what newer ones give in their place.
struct CertainNumber {
    int number;
    int newer;
};
constexpr CertainNumber kCertainNumbers[] = {{512, 512}, {515, 515}, {2627, 2627}, {8152, 2628}};

}  // namespace

AccountTest::AccountTest() : mPlace(support::MakeTestPlace()) {
    mPlace->CreateTables(support::ProbingTables());
    mConnection = Connect();
}

std::shared_ptr<platform::Connection> AccountTest::Connect(int timeout) const {
    auto connection = mPlace->NewConnection(timeout, support::ProbingTables());
    connection->Open("", "", -1);
    return connection;
}

void AccountTest::ExpectFailure(int number, const std::function<void()>& action) const {
    const auto failure = FailureOf(action);
    ASSERT_TRUE(failure) << number;
    const auto* certain = std::find_if(std::begin(kCertainNumbers), std::end(kCertainNumbers),
                                       [&](const auto& known) { return known.number == number; });
    if (!IsNative()) {
        EXPECT_EQ(failure->NativeCode(), number);
    } else if (certain != std::end(kCertainNumbers) && failure->NativeCode() != certain->newer) {
        EXPECT_EQ(failure->NativeCode(), number) << failure->what();
    }
}

void AccountTest::ExpectFailure(std::string_view text, const std::function<void()>& action) const {
    const auto failure = FailureOf(action);
    ASSERT_TRUE(failure) << text;
    if (!IsNative()) {
        EXPECT_EQ(failure->what(), text);
    }
}

std::unique_ptr<RecordSet> AccountTest::Open(const StatementText& statement,
                                             platform::LockType lock) {
    return mConnection->OpenRecordSet(statement, {.lock = lock});
}

Value AccountTest::One(const StatementText& statement) {
    const auto set = Open(statement);
    EXPECT_EQ(set->RecordCount(), 1) << statement.Text();
    return set->Field(0);
}

std::vector<std::string> AccountTest::Lines(const StatementText& statement) {
    std::vector<std::string> lines;
    const auto set = Open(statement);
    for (set->MoveFirst(); !set->EndOfFile(); set->MoveNext()) {
        std::string& line = lines.emplace_back();
        for (int i = 0; i < set->FieldCount(); ++i) {
            if (i > 0) line += '|';
            const Value value = set->Field(i);
            line += value.IsNull() ? "NULL" : value.ToText();
        }
        line += '\n';
    }
    return lines;
}

std::string AccountTest::Rows(const StatementText& statement) {
    const std::vector<std::string> lines = Lines(statement);
    const bool ordered = statement.Text().find("order by") != std::string::npos;
    EXPECT_TRUE(lines.size() < 2 || ordered) << "rows in no order: " << statement.Text();
    return std::accumulate(lines.begin(), lines.end(), std::string());
}

std::string AccountTest::SortedRows(const StatementText& statement) {
    std::vector<std::string> lines = Lines(statement);
    std::sort(lines.begin(), lines.end());
    return std::accumulate(lines.begin(), lines.end(), std::string());
}

}  // namespace kelvane::database_test
