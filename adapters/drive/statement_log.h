// The statements that reach the account database, noted on their way: a connection and a data
// access that stand in front of the real ones.
#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/aside.h"
#include "platform/connection_wrapper.h"
#include "platform/host.h"

namespace kelvane::drive {

class StatementLog {
public:
    // `path`: "gConn" or "gEnv".
    void Add(std::string_view path, const std::string& statement) {
        if (platform::Aside::IsActive()) return;
        mLines.push_back(std::string(path) + " " + statement);
    }

    // The statements since the last call, each behind its path and a blank.
    std::vector<std::string> Take() { return std::exchange(mLines, {}); }

private:
    std::vector<std::string> mLines;
};

// Notes every statement of `inner` with path "gConn"; the rest goes straight to it. What is
// announced is noted when it is asked. A malformed statement never gets here.
class RecordingConnection : public platform::ConnectionWrapper {
public:
    // `log` must outlive the connection.
    RecordingConnection(std::shared_ptr<platform::Connection> inner, StatementLog& log)
        : ConnectionWrapper(std::move(inner)), mLog(log) {}

protected:
    void DoExecute(const std::string& statement) override {
        mLog.Add("gConn", statement);
        ConnectionWrapper::DoExecute(statement);
    }
    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override {
        mLog.Add("gConn", statement);
        return ConnectionWrapper::DoOpenRecordSet(statement, options);
    }

private:
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
    void AnnounceChanges(platform::ChangeBehind changeOf) override {
        mInner.AnnounceChanges(std::move(changeOf));
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
