// The statements that reach the account database, noted on their way: a connection and a data
// access that stand in front of the real ones.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/database.h"
#include "platform/host.h"

namespace kelvane::drive {

class StatementLog {
public:
    // `path`: "gConn" or "gEnv".
    void Add(std::string_view path, const std::string& statement) {
        mLines.push_back(std::string(path) + " " + statement);
    }

    // The statements since the last call, each behind its path and a blank.
    std::vector<std::string> Take() { return std::exchange(mLines, {}); }

private:
    std::vector<std::string> mLines;
};

// Notes every statement of `inner` with path "gConn"; the rest goes straight to it. A malformed
// statement never gets here.
class RecordingConnection : public platform::Connection {
public:
    // `log` must outlive the connection.
    RecordingConnection(std::shared_ptr<platform::Connection> inner, StatementLog& log)
        : mInner(std::move(inner)), mLog(log) {}

    void SetConnectionString(std::string_view text) override { mInner->SetConnectionString(text); }
    void SetCursorLocation(platform::CursorLocation location) override {
        mInner->SetCursorLocation(location);
    }
    void Open(std::string_view user, std::string_view password, int options) override {
        mInner->Open(user, password, options);
    }
    void Close() override { mInner->Close(); }
    int State() const override { return mInner->State(); }
    void Begin() override { mInner->Begin(); }
    void Commit() override { mInner->Commit(); }
    void RollBack() override { mInner->RollBack(); }
    // Not noted: what is announced is noted when it is asked.
    void ReadAhead(std::span<const platform::StatementText> queries,
                   const platform::RecordSetOptions& options) override {
        mInner->ReadAhead(queries, options);
    }

protected:
    void DoExecute(const std::string& statement) override {
        mLog.Add("gConn", statement);
        ForwardExecute(*mInner, statement);
    }
    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override {
        mLog.Add("gConn", statement);
        return ForwardOpenRecordSet(*mInner, statement, options);
    }

private:
    std::shared_ptr<platform::Connection> mInner;
    StatementLog& mLog;
};

// Notes every query of `inner` with path "gEnv".
class RecordingDataAccess : public platform::HostDataAccess {
public:
    // Both must outlive the data access.
    RecordingDataAccess(platform::HostDataAccess& inner, StatementLog& log)
        : mInner(inner), mLog(log) {}

    void ReadAhead(std::span<const platform::StatementText> queries) override {
        mInner.ReadAhead(queries);
    }

protected:
    std::unique_ptr<platform::RecordSet> DoQuery(const std::string& statement,
                                                 int option) override {
        mLog.Add("gEnv", statement);
        return ForwardQuery(mInner, statement, option);
    }

private:
    platform::HostDataAccess& mInner;
    StatementLog& mLog;
};

}  // namespace kelvane::drive
