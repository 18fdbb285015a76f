#include "host/creation/server_account.h"

#include <string>
#include <vector>

#include "adapters/tsql/language/table_statements.h"
#include "host/account/host_tables.h"
#include "host/creation/base_rows.h"
#include "host/sample/sample_rows.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

using platform::Connection;
using platform::StatementText;

// The plainest question there is: a server that has no such table fails it.
bool HasTable(Connection& connection, const std::string& table) {
    StatementText query("select count(*) from ");
    query.Identifier(table);
    try {
        connection.OpenRecordSet(query);
        return true;
    } catch (const platform::ConnectionLost&) {
        throw;
    } catch (const platform::DatabaseBusy&) {
        return true;
    } catch (const platform::DatabaseError&) {
        return false;
    }
}

std::vector<std::string> PresentTables(Connection& connection,
                                       const std::vector<tsql::TableDescription>& tables) {
    std::vector<std::string> present;
    for (const auto& table : tables) {
        if (HasTable(connection, table.name)) present.push_back(table.name);
    }
    return present;
}

void Create(Connection& connection, const NewAccount& account) {
    const auto tables = AccountTables(account.keyFields);
    const auto present = PresentTables(connection, tables);
    if (!present.empty() && !account.replaceExisting) {
        throw CreationError(
            Told("there is a table %1 already; --force replaces the account's tables",
                 {present.front()}));
    }
    platform::Transaction transaction(connection);
    for (const auto& table : present) connection.Execute(tsql::DropStatement(table));
    for (const auto& table : tables) {
        for (const auto& statement : tsql::CreateStatements(table)) connection.Execute(statement);
    }
    FillAccount(connection, account);
    transaction.Commit();
}

}  // namespace

void CreateAccountDatabase(const AccountPlace& place, const NewAccount& account) {
    try {
        const auto connection = place.Open();
        Create(*connection, account);
        connection->Close();
    } catch (const CreationError& refused) {
        throw CreationError(place.Name() + ": " + refused.what());
    } catch (const platform::DatabaseError& failed) {
        throw CreationError(place.Name() + ": " + failed.what());
    }
}

}  // namespace kelvane::host
