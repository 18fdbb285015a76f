#include "tests/database/account_fixture.h"

#include "data/account_tables.h"

namespace kelvane::database_test {

using platform::RecordSet;
using platform::StatementText;
using platform::Value;

namespace {

Table FromDictionary(const data::AccountTable& known) {
    Table table;
    table.name = known.name;
    for (const data::AccountColumn& column : known.columns) {
        const bool key = column.role == data::ColumnRole::Key;
        table.columns.push_back({std::string(column.name), std::string(column.type), !key});
        if (key) table.key.emplace_back(column.name);
    }
    for (const data::AccountIndex& known_index : known.indexes) {
        std::vector<std::string> index;
        for (const std::string_view column : known_index) {
            if (!column.empty()) index.emplace_back(column);
        }
        table.indexes.push_back(std::move(index));
    }
    return table;
}

}  // namespace

std::vector<Table> TestTables() {
    std::vector<Table> tables;
    for (const data::AccountTable& known : data::AccountTables()) {
        tables.push_back(FromDictionary(known));
        if (known.name != data::kItemKeyTable) continue;
        for (const char* key : {"cKeyA", "cKeyB"}) {
            tables.back().columns.push_back({key, std::string(data::kItemKeyType)});
        }
        tables.back().columns.push_back({"iKeyN", "int"});
    }
    tables.push_back({"Probe",
                      {{"id", "int", false},
                       {"c", "varchar(10)"},
                       {"n", "nvarchar(10)"},
                       {"i", "int"},
                       {"t", "tinyint"},
                       {"s", "smallint"},
                       {"b", "bit"},
                       {"m", "money"},
                       {"f", "float"},
                       {"d", "datetime"}},
                      {"id"},
                      {}});
    tables.push_back(
        {"Coded", {{"code", "varchar(20)"}, {"name", "varchar(40)", false}}, {"code"}, {{"name"}}});
    return tables;
}

AccountTest::AccountTest() : mEngine(MakeEngine(TestTables())), mConnection(Connect()) {}

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

int ErrorOf(const std::function<void()>& action) {
    try {
        action();
    } catch (const platform::DatabaseError& error) {
        return error.NativeCode();
    }
    return 0;
}

std::string TextOfError(const std::function<void()>& action) {
    try {
        action();
    } catch (const platform::DatabaseError& error) {
        return error.what();
    }
    return {};
}

}  // namespace kelvane::database_test
