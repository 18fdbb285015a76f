// The account database through ADO. Statements reach the provider as the component wrote them.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "adapters/com/ado_session.h"
#include "platform/database.h"

namespace kelvane::com {

// A connection that was lost is opened again by the next statement outside a transaction.
class AdoConnection final : public platform::Connection {
public:
    // Throws platform::DatabaseError when ADO is not installed.
    AdoConnection() : AdoConnection(AdoSession::Create()) {}
    explicit AdoConnection(std::shared_ptr<AdoSession> session) : mSession(std::move(session)) {}
    ~AdoConnection() override;

    void SetConnectionString(std::string_view text) override {
        mSession->SetConnectionString(text);
    }
    void SetCursorLocation(platform::CursorLocation location) override;
    void Open(std::string_view user, std::string_view password, int options) override {
        mSession->Open(user, password, options);
    }
    void Close() override { mSession->Close(); }
    int State() const override { return mSession->State(); }
    void Begin() override { mSession->Begin(); }
    void Commit() override { mSession->Commit(); }
    void RollBack() override { mSession->RollBack(); }
    void BeginSnapshot() override { mSession->BeginSnapshot(); }

protected:
    void DoExecute(const std::string& statement) override;
    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override;

private:
    std::shared_ptr<AdoSession> mSession;
};

}  // namespace kelvane::com
