#include "adapters/odbc/server.h"

#include <utility>

#include "platform/connection_string.h"

namespace kelvane::odbc {

Server::Server(const OdbcSettings& settings, std::string_view connectionString)
    : mSettings(settings), mConnectionString(connectionString), mLink(mSettings) {
    try {
        Connect();
    } catch (const DriverFailure& failure) {
        const Failure meaning = Meaning(failure);
        throw platform::DatabaseError("无法连接数据库服务器（" + meaning.text + "）", meaning.code);
    }
}

void Server::ConnectLink() {
    const std::string_view given = mConnectionString.Text();
    if (mDialectKeywords.empty()) return mLink.Connect(given);
    std::string text = platform::WithEnd(given, mDialectKeywords);
    const database::WipedAfterwards wiped(text);
    mLink.Connect(text);
}

void Server::Connect() {
    ConnectLink();
    if (!mDialect) {
        mEngine = EngineNamed(mLink.EngineName());
        mDialect = MakeDialect(mEngine, mSettings);
        mDialectKeywords = mDialect->ConnectionKeywords();
        if (!mDialectKeywords.empty()) ConnectLink();
    }
    try {
        mDialect->Prepare(*this);
    } catch (...) {
        Disconnect();
        throw;
    }
}

void Server::Disconnect() noexcept {
    mLink.Disconnect();
    mInTransaction = false;
    mInSnapshot = false;
}

void Server::RequireConnected() {
    if (mInTransaction || (mLink.IsConnected() && !mLink.IsDead())) return;
    try {
        Connect();
    } catch (const DriverFailure& failure) {
        const Failure meaning = Meaning(failure);
        throw platform::ConnectionLost(
            "与数据库服务器的连接已经断开，暂时无法重新连接（" + meaning.text + "）", meaning.code);
    }
}

Failure Server::Meaning(const DriverFailure& failure) const {
    Failure meaning =
        mDialect ? mDialect->Judge(failure.Reported()) : FailureOf(failure.Reported());
    auto secrets = platform::SecretsOf(mConnectionString.Text());
    // Once connected, nobody has a reason to speak of the connection string any more.
    meaning.text = platform::WithoutSecrets(std::move(meaning.text), secrets, mLink.IsConnected());
    for (std::string& secret : secrets) database::Wipe(secret);
    return meaning;
}

void Server::Settle(const Failure& failure) {
    if (failure.kind == FailureKind::ConnectionLost) {
        mWasLost = true;
        Disconnect();
    } else if (failure.kind == FailureKind::TransactionUndone && mInTransaction) {
        RollBack();
    }
}

ResultRows Server::Run(const std::string& text) {
    const WantedRows wanted;
    try {
        return mLink.Run(text, &wanted);
    } catch (const DriverFailure& reported) {
        Fail(reported);
    }
}

void Server::Fail(const DriverFailure& reported) {
    Failure failure = Meaning(reported);
    if (mLink.IsDead()) failure.kind = FailureKind::ConnectionLost;
    Settle(failure);
    Throw(failure);
}

std::vector<ResultRows> Server::RunTogether(const std::vector<RunStep>& steps) {
    std::string text;
    std::vector<WantedRows> wanted;
    for (const RunStep& step : steps) {
        if (!text.empty()) text += ';';
        text += step.text;
        wanted.push_back({step.columns, step.hiddenColumns});
    }
    try {
        auto answers = mLink.RunQueries(text, wanted);
        if (answers.size() != steps.size()) answers.clear();
        return answers;
    } catch (const DriverFailure& reported) {
        Fail(reported);
    }
}

ResultRows Server::RunOne(const RunStep& step, bool wantsRows) {
    if (step.error) throw *step.error;
    const WantedRows wanted{step.columns, step.hiddenColumns};
    try {
        return mLink.Run(step.text, wantsRows && step.givesRows ? &wanted : nullptr);
    } catch (const DriverFailure& reported) {
        Failure failure = Meaning(reported);
        if (mLink.IsDead()) failure.kind = FailureKind::ConnectionLost;
        Settle(failure);
        if (mInTransaction && !mDialect->KeepTransaction(*this)) RollBack();
        Throw(failure);
    }
}

void Server::StartTransaction() {
    try {
        mLink.SetAutoCommit(false);
    } catch (const DriverFailure& reported) {
        const Failure failure = Meaning(reported);
        Disconnect();
        Throw(failure);
    }
    mInTransaction = true;
    mWasLost = false;
}

void Server::StartSnapshot() {
    mInSnapshot = true;
    try {
        mDialect->BeforeSnapshot(*this);
        StartTransaction();
        mDialect->AtSnapshot(*this);
    } catch (...) {
        RollBack();
        throw;
    }
}

void Server::LeaveSnapshot() {
    if (std::exchange(mInSnapshot, false)) mDialect->AfterSnapshot(*this);
}

void Server::Commit() {
    if (mLink.IsDead()) {
        Disconnect();
        Throw({FailureKind::ConnectionLost, 0, "没有提交，未保存任何更改"});
    }
    try {
        mLink.EndTransaction(true);
    } catch (const DriverFailure& reported) {
        const Failure failure = Meaning(reported);
        const bool unanswered = failure.kind == FailureKind::ConnectionLost ||
                                reported.Reported().state.starts_with("HYT") || mLink.IsDead();
        if (!unanswered) {
            RollBack();
            Throw(failure);
        }
        Disconnect();
        throw platform::CommitInDoubt(
            "保存时与数据库服务器的连接断开，保存结果无法确认（" + failure.text + "）",
            failure.code);
    }
    mInTransaction = false;
    try {
        mLink.SetAutoCommit(true);
        LeaveSnapshot();
    } catch (...) {
        // What was committed stays so; the next statement connects again.
        Disconnect();
    }
}

void Server::RollBack() noexcept {
    mInTransaction = false;
    try {
        mLink.EndTransaction(false);
        mLink.SetAutoCommit(true);
        LeaveSnapshot();
    } catch (...) {
        Disconnect();
    }
}

}  // namespace kelvane::odbc
