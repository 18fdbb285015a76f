#include "tests/database/account_fixture.h"

#include "tests/support/test_tables.h"

namespace kelvane::database_test {

using platform::RecordSet;
using platform::StatementText;
using platform::Value;

AccountTest::AccountTest() : mPlace(support::MakeTestPlace()) {
    mPlace->CreateTables(support::ProbingTables());
    mConnection = Connect();
}

std::shared_ptr<platform::Connection> AccountTest::Connect(int timeout) const {
    auto connection = mPlace->NewConnection(timeout, support::ProbingTables());
    connection->Open("", "", -1);
    return connection;
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

std::string AccountTest::Rows(const StatementText& statement) {
    std::string text;
    const auto set = Open(statement);
    for (set->MoveFirst(); !set->EndOfFile(); set->MoveNext()) {
        for (int i = 0; i < set->FieldCount(); ++i) {
            if (i > 0) text += '|';
            const Value value = set->Field(i);
            text += value.IsNull() ? "NULL" : value.ToText();
        }
        text += '\n';
    }
    return text;
}

}  // namespace kelvane::database_test
