// AdoSession: an ADO connection object together with what is known of its state, shared by the
// connection and the record sets that were opened on it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "adapters/com/ado_failure.h"
#include "adapters/com/dispatch_object.h"

namespace kelvane::com {

class AdoSession {
public:
    explicit AdoSession(DispatchObject connection) : mConnection(std::move(connection)) {}

    // One on a new "ADODB.Connection". Throws platform::DatabaseError when it is not installed.
    static std::shared_ptr<AdoSession> Create();

    const DispatchObject& Connection() const { return mConnection; }

    // What is opened, and opened again after a loss.
    void SetConnectionString(std::string_view text) { mConnectionString = text; }
    void Open(std::string_view user, std::string_view password, int options);
    void Close();
    int State() const;

    // Before a statement: opens a lost connection again unless a transaction was lost with it.
    // Throws platform::ConnectionLost and platform::DatabaseError.
    void Ready();

    void Begin();
    // What is read in it stays locked against other writers, who wait.
    void BeginSnapshot();
    bool IsSnapshot() const { return mSnapshot; }
    // Before a change or a lock: throws platform::DatabaseError in a snapshot.
    void RequireChangeable() const;
    void Commit();
    void RollBack();

    // Throws what the failure of a call on this connection, or on a record set of it, means:
    // platform::DatabaseBusy, ConnectionLost or DatabaseError.
    [[noreturn]] void Fail(const DispatchError& error);

private:
    // The failure's description without the passwords that this session knows.
    std::string ShownText(const AdoFailure& failure) const;
    [[noreturn]] void Throw(const AdoFailure& failure);
    void OpenNow();
    void ForgetTransaction();
    void SetIsolation(long level);

    DispatchObject mConnection;
    std::string mConnectionString;
    std::string mUser;
    std::string mPassword;
    int mOptions = -1;
    bool mInTransaction = false;
    bool mSnapshot = false;
    bool mUndone = false;  // the database has rolled the transaction back by itself
    bool mLost = false;
};

}  // namespace kelvane::com
