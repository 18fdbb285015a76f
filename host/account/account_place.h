// Where an account is, and how the host reaches it: a file, or a database on a server.
#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "adapters/database/secret.h"
#include "adapters/sqlite/account_copy.h"
#include "platform/database.h"

namespace kelvane::host {

// How long a server is waited for, in seconds.
struct ServerTimeouts {
    int connect = 15;
    int query = 60;
    int lock = 5;
};

class AccountPlace {
public:
    static AccountPlace File(const std::string& path);
    // `connectionString`: any ODBC connection string. `password`: what it lacks; null when it is
    // complete.
    static AccountPlace Database(const std::string& connectionString,
                                 const ServerTimeouts& timeouts = {},
                                 database::SharedSecret password = {});

    // The same for who only wants to know what is in it: of a file that cannot be written, or whose
    // folder cannot, or whose last writer died in the middle of its changes, a copy that goes with
    // the last of these places, under the file's name. Throws
    // platform::DatabaseError.
    AccountPlace ForReading() const;

    bool IsOnServer() const { return mOnServer; }
    // The file's path; of a server, what ServerNameOf() says. Fit to be shown.
    const std::string& Name() const { return mName; }
    // What it is called wherever its file lies.
    std::string ShortName() const;
    // May have been given with a password in it: for the account's own connections alone, never for
    // anything that is shown or written.
    const std::string& ConnectionString() const { return mConnectionString; }

    // An error's text with this account's name in it, whatever file is read in its place.
    std::string AboutAccount(const std::string& text) const;

    // A connection that is not open yet. One to a file refuses a file without the account's tables.
    std::shared_ptr<platform::Connection> NewConnection() const;
    // An open connection. Throws platform::DatabaseError.
    std::shared_ptr<platform::Connection> Open() const;

private:
    AccountPlace(bool onServer, std::string name, std::string connectionString);

    bool mOnServer;
    std::string mName;
    std::string mConnectionString;
    ServerTimeouts mTimeouts;
    database::SharedSecret mPassword;
    std::shared_ptr<const sqlite::AccountCopy> mCopy;
};

// The same for an account file alone.
std::string ConnectionStringOf(const std::string& path);
std::shared_ptr<platform::Connection> NewConnection();
std::shared_ptr<platform::Connection> OpenAccount(const std::string& path);

// The folder of the account's batches (docs/batches.md). Throws std::runtime_error where it is not
// known.
std::filesystem::path BatchFolderOf(const AccountPlace& account);

// The mapping that is kept for the account (docs/tie-out.md): beside its file, of a database on a
// server among the user's own files. Throws std::runtime_error where that place is not known.
std::string MapFileOf(const AccountPlace& account);

}  // namespace kelvane::host
