// Two operators at one account, each with the statements of the component's own saves in their
// order, so that a test says which step of whom comes next. An operator who has to wait for the
// other gives up after kTimeout: that is how a test sees a blocked step, whatever the machine does.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tests/database/account_fixture.h"

namespace kelvane::database_test {

struct DetailLine {
    const char* code;
    int amount;
};

class Operator {
public:
    explicit Operator(std::shared_ptr<platform::Connection> connection)
        : mConnection(std::move(connection)) {}

    platform::Connection& Connection() { return *mConnection; }

    // Saving an entry, step by step; false when it is not there any more. What throws DatabaseBusy
    // leaves no transaction behind.
    bool BeginSave(int entry);
    // The digest that the save has read.
    std::string StoredDigest() const { return mRow->Field("cDigest").ToText(); }
    void WriteRow(const char* digest, int amount);
    void WriteLines(int entry, const std::vector<DetailLine>& lines);
    void EndSave();
    // All of them; false as BeginSave().
    bool Save(int entry, const char* digest, const std::vector<DetailLine>& lines);

    void BeginDelete(int entry);
    void EndDelete() { EndSave(); }

    // The number behind the counter's, which it then is; nothing when another one has it locked.
    std::optional<int> TakeNumber();

    std::unique_ptr<platform::RecordSet> Query(const platform::StatementText& statement) {
        return mConnection->OpenRecordSet(statement);
    }

private:
    void Begin();

    std::shared_ptr<platform::Connection> mConnection;
    std::optional<platform::Transaction> mTransaction;
    std::unique_ptr<platform::RecordSet> mRow;
};

class IsolationTest : public AccountTest {
protected:
    IsolationTest();

    // The entry's digest and amount, and the codes of its lines: "digest 30 A B"; "-" without it.
    std::string Entry(int entry);

    Operator mFirst;
    Operator mSecond;
};

}  // namespace kelvane::database_test
