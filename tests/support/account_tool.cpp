// A test's account for a script: makes the place, on the engine that the tests are run for, and
// does to it what it reads on standard input, a line at a time:
//
//   run STATEMENT       a statement of the dialect
//   begin, commit       what is run between them is one transaction
//   rollback            in place of commit: nothing of it is left
//   rows SELECT ...     its rows, each behind "row ", fields joined by "|"
//   hide TABLE          the table is gone, as far as others see
//   restore TABLE       the table as it was, with its rows
//   key TABLE A,B       the table with the columns A and B as its key, which refuses rows
//
// Every answer ends with the line "done" or "error TEXT". The first answer, to nothing, says where
// the account is: "engine NAME", and the program's words for it behind "word ".
//
//   kelvane_account_tool FILE     FILE: the account, when it is one
#include <algorithm>
#include <functional>
#include <iostream>
#include <map>
#include <sstream>
#include <utility>

#include "data/account_tables.h"
#include "host/account/host_tables.h"
#include "host/account/item_class.h"
#include "host/account/table_rows.h"
#include "tests/support/plain_text_connection.h"
#include "tests/support/test_place.h"

namespace {

using namespace kelvane;
using platform::Value;

constexpr int kTimeout = 5000;
const std::map<support::EngineKind, std::string> kEngineNames = {
    {support::EngineKind::Sqlite, "sqlite"},
    {support::EngineKind::PostgreSql, "postgresql"},
    {support::EngineKind::SqlServer, "sqlserver"}};

// Each kind of value in a form of its own: amounts with four decimals, doubles with at least one,
// dates with their time.
std::string ShownText(const Value& value) {
    if (value.IsNull()) return "NULL";
    if (const auto* date = value.As<platform::DateTime>()) return date->FullText();
    std::string text = value.ToText();
    const bool isMoney = value.As<platform::Money>() != nullptr;
    if (!isMoney && value.As<double>() == nullptr) return text;
    if (text.find('.') == std::string::npos) text += ".0";
    constexpr std::size_t kMoneyDecimals = 4;
    while (isMoney && text.size() - text.find('.') <= kMoneyDecimals) text += '0';
    return text;
}

class Account {
public:
    explicit Account(const std::string& file) : mPlace(support::MakeTestPlace(file)) {}

    void Describe() const {
        std::cout << "engine " << kEngineNames.at(mPlace->Engine()) << '\n';
        for (const auto& word : mPlace->ProgramWords()) std::cout << "word " << word << '\n';
    }

    void Do(const std::string& line) {
        std::istringstream words(line);
        std::string command;
        std::string table;
        std::string columns;
        words >> command;
        const std::string rest = line.substr(std::min(line.size(), command.size() + 1));
        words >> table >> columns;
        if (command == "begin") {
            mTransaction = Connect();
            mTransaction->Begin();
        } else if (command == "commit") {
            std::exchange(mTransaction, nullptr)->Commit();
        } else if (command == "rollback") {
            std::exchange(mTransaction, nullptr)->RollBack();
        } else if (command == "run") {
            support::RunText(*Connect(), rest);
        } else if (command == "rows") {
            ShowRows(*support::QueryText(*Connect(), rest));
        } else if (command == "hide") {
            Hide(table);
        } else if (command == "restore") {
            Restore(table, {});
        } else if (command == "key") {
            Restore(table, columns);
        } else {
            throw std::runtime_error("unknown command " + command);
        }
    }

private:
    std::shared_ptr<platform::Connection> Connect() const {
        if (mTransaction) return mTransaction;
        auto connection = mPlace->NewConnection(kTimeout, {});
        connection->Open("", "", -1);
        return connection;
    }

    static void ShowRows(platform::RecordSet& rows) {
        for (; !rows.EndOfFile(); rows.MoveNext()) {
            std::cout << "row ";
            for (int i = 0; i < rows.FieldCount(); ++i) {
                std::cout << (i == 0 ? "" : "|") << ShownText(rows.Field(i));
            }
            std::cout << '\n';
        }
    }

    static tsql::TableDescription Described(const std::string& table) {
        for (auto& known : host::AccountTables(host::kMaxKeyFields)) {
            if (known.name == table && table != data::kItemKeyTable) return known;
        }
        throw std::runtime_error("no table that can be restored: " + table);
    }

    void Hide(const std::string& table) {
        std::vector<std::string> columns;
        for (const auto& column : Described(table).columns) columns.push_back(column.name);
        host::TableRows kept{table, columns, {}};
        const auto rows = support::QueryText(*Connect(), "select * from " + table);
        for (; !rows->EndOfFile(); rows->MoveNext()) {
            auto& row = kept.rows.emplace_back();
            for (int i = 0; i < rows->FieldCount(); ++i) row.push_back(rows->Field(i));
        }
        mPlace->DropTable(table);
        mHidden[table] = std::move(kept);
    }

    // `key`: other columns than usual, separated by commas; empty: the usual ones.
    void Restore(const std::string& table, const std::string& key) {
        if (!mHidden.contains(table)) Hide(table);
        auto description = Described(table);
        if (!key.empty()) {
            description.key.clear();
            std::istringstream columns(key);
            for (std::string column; std::getline(columns, column, ',');) {
                description.key.push_back(column);
            }
        }
        mPlace->CreateTables({description});
        host::InsertRows(*Connect(), mHidden.at(table));
        mHidden.erase(table);
    }

    std::unique_ptr<support::TestPlace> mPlace;
    std::shared_ptr<platform::Connection> mTransaction;
    std::map<std::string, host::TableRows> mHidden;
};

void Answer(const std::function<void()>& action) {
    try {
        action();
        std::cout << "done" << std::endl;
    } catch (const std::exception& failed) {
        std::string text = failed.what();
        std::ranges::replace(text, '\n', ' ');
        std::cout << "error " << text << std::endl;
    }
}

}  // namespace

int main(int argc, char** argv) {
    std::unique_ptr<Account> account;
    Answer([&] {
        account = std::make_unique<Account>(argc > 1 ? argv[1] : "");
        account->Describe();
    });
    if (!account) return 1;
    for (std::string line; std::getline(std::cin, line);) {
        Answer([&] { account->Do(line); });
    }
    return 0;
}
