#include "adapters/com/ado_session.h"

#include <utility>

#include "adapters/com/ado_failure.h"
#include "adapters/com/automation_value.h"
#include "platform/connection_string.h"
#include "platform/database.h"

namespace kelvane::com {

namespace {

using platform::DatabaseError;

constexpr int kNoTransaction = 3902;
constexpr int kTransactionOpen = 3901;
constexpr int kTransactionUndone = 3930;
constexpr int kOnlyReading = 3906;

// Of the property IsolationLevel, which counts from the next transaction on.
constexpr long kReadCommitted = 0x1000;
constexpr long kSerializable = 0x100000;

DatabaseError NotOpen() {
    return DatabaseError("没有打开的事务", kNoTransaction);
}

DatabaseError Undone() {
    return DatabaseError("事务已被先前的错误撤消", kTransactionUndone);
}

}  // namespace

std::shared_ptr<AdoSession> AdoSession::Create() {
    try {
        return std::make_shared<AdoSession>(DispatchObject::Create("ADODB.Connection"));
    } catch (const DispatchError& error) {
        throw DatabaseError(error.what());
    }
}

void AdoSession::Open(std::string_view user, std::string_view password, int options) {
    mUser = user;
    mPassword = password;
    mOptions = options;
    ForgetTransaction();
    OpenNow();
}

void AdoSession::OpenNow() {
    try {
        mConnection.Put("ConnectionString", Variant::OfText(mConnectionString));
        mConnection.Call("Open", {Variant::Missing(), Variant::OfText(mUser),
                                  Variant::OfText(mPassword), Variant::OfInteger(mOptions)});
    } catch (const DispatchError& error) {
        const AdoFailure failure = FailureOf(error, mConnection);
        throw DatabaseError("不能连接帐套数据库：" + ShownText(failure), failure.nativeCode);
    }
    mLost = false;
}

void AdoSession::Close() {
    ForgetTransaction();
    const bool gone = std::exchange(mLost, false);
    try {
        mConnection.Call("Close");
    } catch (const DispatchError& error) {
        if (!gone) Fail(error);
    }
}

int AdoSession::State() const {
    try {
        return static_cast<int>(ToValue(mConnection.Get("State").Get()).ToInteger());
    } catch (const DispatchError& error) {
        throw DatabaseError(error.what());
    }
}

void AdoSession::ForgetTransaction() {
    mInTransaction = false;
    mUndone = false;
    mSnapshot = false;
}

void AdoSession::Ready() {
    if (mLost && mInTransaction) throw platform::ConnectionLost("与帐套数据库的连接已断开");
    if (mUndone) throw Undone();
    if (mLost) {
        try {
            mConnection.Call("Close");
        } catch (const DispatchError&) {
            // It is closed already, as far as it can be.
            mLost = true;
        }
        OpenNow();
    }
    try {
        mConnection.Object("Errors").Call("Clear");
    } catch (const DispatchError& error) {
        Fail(error);
    }
}

void AdoSession::Begin() {
    if (mInTransaction) throw DatabaseError("已经有一个事务", kTransactionOpen);
    Ready();
    try {
        mConnection.Call("BeginTrans");
    } catch (const DispatchError& error) {
        Fail(error);
    }
    mInTransaction = true;
}

void AdoSession::SetIsolation(long level) {
    try {
        mConnection.Put("IsolationLevel", Variant::OfInteger(level));
    } catch (const DispatchError& error) {
        Fail(error);
    }
}

void AdoSession::BeginSnapshot() {
    if (mInTransaction) throw DatabaseError("已经有一个事务", kTransactionOpen);
    Ready();
    SetIsolation(kSerializable);
    try {
        Begin();
    } catch (...) {
        SetIsolation(kReadCommitted);
        throw;
    }
    mSnapshot = true;
}

void AdoSession::RequireChangeable() const {
    if (mSnapshot) throw DatabaseError("此事务只能读取，不能修改", kOnlyReading);
}

void AdoSession::Commit() {
    if (!mInTransaction) throw NotOpen();
    const bool undone = mUndone;
    if (undone || mLost) {
        RollBack();
        if (undone) throw Undone();
        throw platform::ConnectionLost("与帐套数据库的连接已断开");
    }
    try {
        mConnection.Object("Errors").Call("Clear");
        mConnection.Call("CommitTrans");
        ForgetTransaction();
    } catch (const DispatchError& error) {
        const AdoFailure failure = FailureOf(error, mConnection);
        if (failure.IsLost()) {
            ForgetTransaction();
            mLost = true;
            throw platform::CommitInDoubt("保存结果无法确认：" + ShownText(failure),
                                          failure.nativeCode);
        }
        mUndone = true;
        RollBack();
        Throw(failure);
    }
}

void AdoSession::RollBack() {
    if (!mInTransaction) throw NotOpen();
    const bool gone = mUndone || mLost;
    const bool lowersIsolation = mSnapshot;
    ForgetTransaction();
    try {
        // What is set outlasts the connection, which is opened again.
        if (lowersIsolation) mConnection.Put("IsolationLevel", Variant::OfInteger(kReadCommitted));
        mConnection.Call("RollbackTrans");
    } catch (const DispatchError& error) {
        if (!gone) Fail(error);
    }
}

void AdoSession::Fail(const DispatchError& error) {
    Throw(FailureOf(error, mConnection));
}

std::string AdoSession::ShownText(const AdoFailure& failure) const {
    return platform::WithoutSecrets(failure.description,
                                    platform::SecretsOf(mConnectionString, mPassword));
}

void AdoSession::Throw(const AdoFailure& failure) {
    const std::string text = ShownText(failure);
    if (failure.EndsTransaction()) mUndone = mInTransaction;
    if (failure.IsBusy()) throw platform::DatabaseBusy(text, failure.nativeCode);
    if (failure.IsLost()) {
        mLost = true;
        throw platform::ConnectionLost(text, failure.nativeCode);
    }
    throw DatabaseError(text, failure.nativeCode);
}

}  // namespace kelvane::com
