// A connection that stands in front of another one and hands everything on: what derives from it
// overrides only what it has to say about.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "platform/database.h"

namespace kelvane::platform {

class ConnectionWrapper : public Connection {
public:
    // `inner`: not null.
    explicit ConnectionWrapper(std::shared_ptr<Connection> inner) : mInner(std::move(inner)) {}

    void SetConnectionString(std::string_view text) override { mInner->SetConnectionString(text); }
    void SetCursorLocation(CursorLocation location) override {
        mInner->SetCursorLocation(location);
    }
    void Open(std::string_view user, std::string_view password, int options) override {
        mInner->Open(user, password, options);
    }
    void Close() override { mInner->Close(); }
    int State() const override { return mInner->State(); }
    void ReadAhead(std::span<const StatementText> queries,
                   const RecordSetOptions& options) override {
        mInner->ReadAhead(queries, options);
    }
    void AnnounceChanges(ChangeBehind changeOf) override {
        mInner->AnnounceChanges(std::move(changeOf));
    }
    void Begin() override { mInner->Begin(); }
    void Commit() override { mInner->Commit(); }
    void RollBack() override { mInner->RollBack(); }
    void BeginSnapshot() override { mInner->BeginSnapshot(); }

protected:
    void DoExecute(const std::string& statement) override { ForwardExecute(*mInner, statement); }
    std::unique_ptr<RecordSet> DoOpenRecordSet(const std::string& statement,
                                               const RecordSetOptions& options) override {
        return ForwardOpenRecordSet(*mInner, statement, options);
    }

private:
    std::shared_ptr<Connection> mInner;
};

}  // namespace kelvane::platform
