#include "tests/faults/failing_connection.h"

namespace kelvane::faults {

using platform::RecordSet;
using platform::Value;

namespace {

class FailingRecordSet : public RecordSet {
public:
    FailingRecordSet(std::unique_ptr<RecordSet> inner, std::shared_ptr<FailingLink> state)
        : mState(std::move(state)), mInner(std::move(inner)) {}

    bool EndOfFile() const override { return mInner->EndOfFile(); }
    void MoveFirst() override {
        mState->Do(Call::Step, [&] { mInner->MoveFirst(); });
    }
    void MoveNext() override {
        mState->Do(Call::Step, [&] { mInner->MoveNext(); });
    }
    long RecordCount() const override { return mInner->RecordCount(); }
    int FieldCount() const override { return mInner->FieldCount(); }
    Value Field(int index) const override { return Read(index); }
    Value Field(std::string_view name) const override { return Read(name); }
    void SetField(std::string_view name, const Value& value) override {
        mState->Do(Call::Step, [&] { mInner->SetField(name, value); });
    }
    void Update() override {
        mState->Change([&] { mInner->Update(); });
    }
    void Close() override {
        mState->Do(Call::Step, [&] { mInner->Close(); });
    }
    int State() const override { return mInner->State(); }

private:
    template <typename Which>
    Value Read(const Which& which) const {
        Value value;
        mState->Do(Call::Step, [&] { value = mInner->Field(which); });
        return value;
    }

    std::shared_ptr<FailingLink> mState;
    std::unique_ptr<RecordSet> mInner;
};

}  // namespace

void FailingLink::Refuse(Fault fault) {
    if (fault == Fault::Error) throw platform::DatabaseError("模拟的数据库错误");
    if (fault == Fault::Busy) throw platform::DatabaseBusy("模拟的占用");
    if (inTransaction) {
        inner->RollBack();
        inTransaction = false;
        isGone = true;
    }
    throw platform::ConnectionLost("模拟的连接断开");
}

void FailingLink::Commit() {
    if (isGone) throw platform::ConnectionLost("模拟的连接断开");
    const auto fault = calls.Next(Call::Commit);
    inTransaction = false;
    if (!fault || fault == Fault::DoubtSaved) {
        inner->Commit();
    } else {
        inner->RollBack();
    }
    if (fault == Fault::DoubtSaved || fault == Fault::DoubtNotSaved) {
        throw platform::CommitInDoubt("模拟的没有答复");
    }
    if (fault) Refuse(*fault);
}

void FailingLink::RollBack() {
    if (std::exchange(isGone, false)) return;
    const auto fault = calls.Next(Call::Step);
    inTransaction = false;
    inner->RollBack();
    if (fault) Refuse(*fault);
}

std::unique_ptr<RecordSet> FailingConnection::DoOpenRecordSet(
    const std::string& statement, const platform::RecordSetOptions& options) {
    std::unique_ptr<RecordSet> rows;
    mState->Do(Call::Statement,
               [&] { rows = ConnectionWrapper::DoOpenRecordSet(statement, options); });
    return std::make_unique<FailingRecordSet>(std::move(rows), mState);
}

}  // namespace kelvane::faults
