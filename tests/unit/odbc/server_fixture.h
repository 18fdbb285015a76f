// A connection through the real driver manager to a server that plays a script.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "adapters/odbc/odbc_connection.h"
#include "tests/support/scripted_odbc/scripted_odbc.h"

namespace kelvane::odbc {

class ServerTest : public ::testing::Test {
protected:
    explicit ServerTest(const char* driver = KELVANE_SCRIPTED_ODBC_WIDE) : mDriver(driver) {}

    // Opens a connection to a server that plays `script`. The log is that of what comes after.
    void Open(const std::string& script, const OdbcSettings& settings = {}) {
        mDriver.Play("always set lock_timeout " + std::to_string(settings.lockTimeout) + '\n' +
                     script);
        mConnection = std::make_unique<OdbcConnection>(settings);
        mConnection->SetConnectionString(mDriver.ConnectionString() + mMore);
        mConnection->Open(mUser, mPassword, -1);
        mOpening = mDriver.Log().size();
    }

    OdbcConnection& Server() { return *mConnection; }
    support::ScriptedOdbc& Driver() { return mDriver; }
    void Forget() { mConnection.reset(); }

    // What the server was asked since it was opened.
    std::string Log() const { return mDriver.Log().substr(mOpening); }

    void Execute(platform::FixedText text) { Server().Execute(text); }
    std::unique_ptr<platform::RecordSet> Query(
        platform::FixedText text, platform::LockType lock = platform::LockType::ReadOnly) {
        return Server().OpenRecordSet(text, {.lock = lock});
    }

    std::string mMore;
    std::string mUser;
    std::string mPassword;

private:
    support::ScriptedOdbc mDriver;
    std::unique_ptr<OdbcConnection> mConnection;
    std::size_t mOpening = 0;
};

// The text of the error of that kind which `action` throws; empty when it throws none.
template <typename Error, typename Action>
std::string TextOf(Action action) {
    try {
        action();
    } catch (const Error& error) {
        return error.what();
    }
    return {};
}

}  // namespace kelvane::odbc
