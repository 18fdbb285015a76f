// A connection in front of a real one in which every call can fail: statements, transactions, and
// what is done with the rows of a query.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/connection_wrapper.h"
#include "tests/faults/failing_calls.h"

namespace kelvane::faults {

// What a connection and its record sets share.
struct FailingLink {
    FailingLink(std::shared_ptr<platform::Connection> real, FailingCalls& counted)
        : inner(std::move(real)), calls(counted) {}

    // Throws what befalls a call, if anything, before or after `work` is done.
    template <typename Work>
    void Do(Call call, const Work& work) {
        if (isGone) throw platform::ConnectionLost("模拟的连接断开");
        const auto fault = calls.Next(call);
        if (fault && fault != Fault::AnswerLost) Refuse(*fault);
        work();
        if (fault) Refuse(Fault::Lost);
    }
    void Commit();
    void RollBack();
    // A change outside a transaction, which is one of its own.
    template <typename Work>
    void Change(const Work& work) {
        if (inTransaction) return Do(Call::Statement, work);
        const auto doubt = calls.Next(Call::Commit);
        if (doubt && *doubt != Fault::DoubtSaved && *doubt != Fault::DoubtNotSaved) Refuse(*doubt);
        if (doubt != Fault::DoubtNotSaved) work();
        if (doubt) throw platform::CommitInDoubt("模拟的没有答复");
    }
    [[noreturn]] void Refuse(Fault fault);

    std::shared_ptr<platform::Connection> inner;
    FailingCalls& calls;
    bool inTransaction = false;
    bool isGone = false;  // in the middle of a transaction: until that is given up
};

// `calls` outlives the connection and its record sets. Under platform::ConnectionDataAccess it is
// the host's data access.
class FailingConnection : public platform::ConnectionWrapper {
public:
    FailingConnection(std::shared_ptr<platform::Connection> inner, FailingCalls& calls)
        : ConnectionWrapper(inner),
          mState(std::make_shared<FailingLink>(std::move(inner), calls)) {}

    void Begin() override {
        mState->Do(Call::Step, [&] { ConnectionWrapper::Begin(); });
        mState->inTransaction = true;
    }
    void BeginSnapshot() override {
        mState->Do(Call::Step, [&] { ConnectionWrapper::BeginSnapshot(); });
        mState->inTransaction = true;
    }
    void Commit() override { mState->Commit(); }
    void RollBack() override { mState->RollBack(); }

protected:
    void DoExecute(const std::string& statement) override {
        mState->Do(Call::Statement, [&] { ConnectionWrapper::DoExecute(statement); });
    }
    std::unique_ptr<platform::RecordSet> DoOpenRecordSet(
        const std::string& statement, const platform::RecordSetOptions& options) override;

private:
    std::shared_ptr<FailingLink> mState;
};

}  // namespace kelvane::faults
