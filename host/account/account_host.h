// A login on an account: the host's two objects, read from the account's own tables.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "host/account/account_environment.h"
#include "platform/database.h"
#include "platform/host.h"

namespace kelvane::host {

// Who logs in. What is not given is the account's own: its usual operator, that operator's
// exemption, its usual year.
struct LoginRequest {
    std::optional<std::string> user = {};
    std::optional<bool> exempt = {};
    std::optional<int> year = {};
};

// Where a login takes place.
struct LoginPlace {
    std::function<std::shared_ptr<platform::Connection>()> createConnection;
    std::string connectionString;
    std::string hostPath;  // the host program's folder
};

class AccountLogin : public platform::HostLogin {
public:
    std::string ConnectionString() const override { return connectionString; }
    std::string UserId() const override { return userId; }
    bool IsExemptFromCenterAuth() const override { return exempt; }
    int Year() const override { return year; }

    std::string connectionString;
    std::string userId;
    bool exempt = false;
    int year = 0;
};

class AccountHost {
public:
    // Opens a connection to the account and logs in. Throws platform::DatabaseError, and
    // platform::HostError with a text in Chinese for an operator that the account does not know
    // and a year that its calendar does not have.
    AccountHost(const LoginPlace& place, const LoginRequest& request);

    AccountLogin& Login() { return mLogin; }
    AccountEnvironment& Environment() { return *mEnvironment; }

private:
    AccountLogin mLogin;
    std::unique_ptr<AccountEnvironment> mEnvironment;
};

}  // namespace kelvane::host
