// Stands in front of a real connection: keeps every statement with the path it took, and can make a
// statement fail, which a real database does not do on request.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/connection_wrapper.h"

namespace kelvane::support {

struct RecordedStatement {
    std::string path;  // "gConn" or "gEnv"
    std::string text;  // a statement, or "begin", "begin snapshot", "commit", "roll back"
    platform::RecordSetOptions options = {};
};

struct StatementLog {
    std::vector<RecordedStatement> statements;
    // The queries of every announcement, by their texts; an empty one ended one.
    std::vector<std::vector<std::string>> announcements;
    // A statement that contains this text fails before it reaches the database; empty: none.
    std::string failing;
    bool losesConnection = false;  // what fails does so because the server is gone
    // The answer to a commit does not come; the transaction was saved, or it was not.
    enum class LostAnswer { None, Saved, NotSaved };
    LostAnswer lostAnswer = LostAnswer::None;

    // Another operator does this, once, right before a statement that contains the text.
    std::string meets;
    std::function<void()> meeting;

    void Add(RecordedStatement statement) {
        if (meeting && statement.text.find(meets) != std::string::npos) {
            std::exchange(meeting, nullptr)();
        }
        const bool fails = !failing.empty() && statement.text.find(failing) != std::string::npos;
        statements.push_back(std::move(statement));
        if (fails && losesConnection) throw platform::ConnectionLost("模拟的连接断开");
        if (fails) throw platform::DatabaseError("模拟的数据库错误");
    }

    // Every statement as "path: text".
    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (const RecordedStatement& statement : statements)
            lines.push_back(statement.path + ": " + statement.text);
        return lines;
    }
};

// Under platform::ConnectionDataAccess, with "gEnv" as its path, it records the host's data access.
class RecordingConnection : public platform::ConnectionWrapper {
public:
    RecordingConnection(std::shared_ptr<platform::Connection> inner, StatementLog& log,
                        std::string path = "gConn")
        : ConnectionWrapper(std::move(inner)), mLog(log), mPath(std::move(path)) {}

    void Begin() override {
        mLog.Add({mPath, "begin"});
        ConnectionWrapper::Begin();
    }
    void Commit() override {
        mLog.Add({mPath, "commit"});
        using Lost = StatementLog::LostAnswer;
        if (mLog.lostAnswer != Lost::NotSaved) ConnectionWrapper::Commit();
        if (mLog.lostAnswer != Lost::None) throw platform::CommitInDoubt("没有收到答复");
    }
    void BeginSnapshot() override {
        mLog.Add({mPath, "begin snapshot"});
        ConnectionWrapper::BeginSnapshot();
    }
    void RollBack() override {
        mLog.Add({mPath, "roll back"});
        ConnectionWrapper::RollBack();
    }
    void ReadAhead(std::span<const platform::StatementText> queries,
                   const platform::RecordSetOptions& options) override {
        auto& announcement = mLog.announcements.emplace_back();
        for (const platform::StatementText& query : queries) announcement.push_back(query.Text());
        ConnectionWrapper::ReadAhead(queries, options);
    }

protected:
    void DoExecute(const std::string& statement) override {
        mLog.Add({mPath, statement});
        ConnectionWrapper::DoExecute(statement);
    }
    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override {
        mLog.Add({mPath, statement, options});
        return ConnectionWrapper::DoOpenRecordSet(statement, options);
    }

private:
    StatementLog& mLog;
    std::string mPath;
};

}  // namespace kelvane::support
