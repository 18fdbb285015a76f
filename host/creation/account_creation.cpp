#include "host/creation/account_creation.h"

#include "adapters/sqlite/connection.h"
#include "adapters/sqlite/schema.h"
#include "host/account/account_place.h"
#include "host/account/host_tables.h"
#include "host/account/new_file.h"
#include "host/creation/base_rows.h"
#include "host/sample/sample_rows.h"
#include "host/surroundings/batch_folder.h"
#include "platform/database.h"
#include "platform/native_path.h"

namespace kelvane::host {

namespace {

// Opening and closing an account that was not closed properly puts it in order again.
void PutInOrder(const std::filesystem::path& path) {
    try {
        const auto connection = OpenAccount(path.string());
        connection->Close();
    } catch (const platform::DatabaseError&) {
        return;  // what is to be replaced need not be an account
    }
}

}  // namespace

void FillAccount(platform::Connection& connection, const NewAccount& account) {
    for (const TableRows& rows : BaseRows(account)) InsertRows(connection, rows);
    if (account.sample) InsertSample(connection, account);
}

void CreateAccountFile(const std::filesystem::path& path, const NewAccount& account) {
    const bool replace = account.replaceExisting;
    if (replace) PutInOrder(path);
    try {
        NewFile file(path, replace ? NewFile::Existing::Replace : NewFile::Existing::Keep);
        const std::string draft = file.Draft().string();
        sqlite::CreateAccount(draft, AccountTables(account.keyFields));
        const auto connection = OpenAccount(draft);
        platform::Transaction transaction(*connection);
        FillAccount(*connection, account);
        transaction.Commit();
        connection->Close();
        file.Finish();
        if (replace) SetBatchesAside(platform::Utf8Of(path));
    } catch (const FileRefused& refused) {
        throw CreationError(refused.what());
    } catch (const std::filesystem::filesystem_error& failed) {
        throw CreationError(failed.what());
    } catch (const platform::DatabaseError& failed) {
        throw CreationError(path.string() + ": " + failed.what());
    }
}

}  // namespace kelvane::host
