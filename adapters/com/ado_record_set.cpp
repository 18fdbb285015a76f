#include "adapters/com/ado_record_set.h"

#include <utility>

#include "adapters/com/ado_failure.h"
#include "adapters/com/automation_value.h"
#include "adapters/com/rowless_set.h"

namespace kelvane::com {

using platform::DatabaseError;
using platform::Value;

namespace {

constexpr const char* kRecordSet = "Recordset";

}  // namespace

template <typename Work>
auto AdoRecordSet::On(Work work) const {
    try {
        return work(mRecords);
    } catch (const DispatchError& error) {
        if (mSession) mSession->Fail(error);
        const AdoFailure failure = FailureOf(error, {});
        throw DatabaseError(failure.description, failure.nativeCode);
    } catch (const std::invalid_argument& error) {
        throw DatabaseError(error.what());
    }
}

AdoRecordSet::AdoRecordSet(DispatchObject records, std::shared_ptr<AdoSession> session)
    : mRecords(std::move(records)),
      mSession(std::move(session)),
      mFields(On([](const DispatchObject& set) { return set.Object("Fields"); })) {}

AdoRecordSet::~AdoRecordSet() {
    try {
        if (AdoRecordSet::State() != 0) AdoRecordSet::Close();
    } catch (const std::exception&) {
        return;  // the object goes all the same
    }
}

bool AdoRecordSet::Flag(const char* property) const {
    return On([property](const DispatchObject& set) {
        return ToValue(set.Get(property).Get()).ToInteger() != 0;
    });
}

bool AdoRecordSet::EndOfFile() const {
    return Flag("EOF");
}

// ADO writes a changed row when the record set moves to another one. A change that Update() was not
// called for is taken back before.
void AdoRecordSet::DropChange() {
    if (!std::exchange(mChanged, false)) return;
    On([](const DispatchObject& set) { set.Call("CancelUpdate"); });
}

void AdoRecordSet::MoveFirst() {
    DropChange();
    if (EndOfFile() && Flag("BOF")) return;
    On([](const DispatchObject& set) { set.Call("MoveFirst"); });
}

void AdoRecordSet::MoveNext() {
    DropChange();
    if (EndOfFile()) return;
    On([](const DispatchObject& set) { set.Call("MoveNext"); });
}

long AdoRecordSet::RecordCount() const {
    const auto count = On([](const DispatchObject& set) {
        return ToValue(set.Get("RecordCount").Get()).ToInteger();
    });
    if (count < 0) throw DatabaseError("记录集不能给出记录数");
    return static_cast<long>(count);
}

int AdoRecordSet::FieldCount() const {
    return On([this](const DispatchObject&) {
        return static_cast<int>(ToValue(mFields.Get("Count").Get()).ToInteger());
    });
}

const DispatchObject& AdoRecordSet::FieldAt(int index) const {
    if (const auto known = mByIndex.find(index); known != mByIndex.end()) return known->second;
    auto field = On(
        [&](const DispatchObject&) { return mFields.Object("Item", {Variant::OfInteger(index)}); });
    return mByIndex.emplace(index, std::move(field)).first->second;
}

const DispatchObject& AdoRecordSet::FieldNamed(std::string_view name) const {
    if (const auto known = mByName.find(name); known != mByName.end()) return known->second;
    auto field =
        On([&](const DispatchObject&) { return mFields.Object("Item", {Variant::OfText(name)}); });
    return mByName.emplace(name, std::move(field)).first->second;
}

Value AdoRecordSet::ValueOf(const DispatchObject& field) const {
    return On([&](const DispatchObject&) { return ToValue(field.Get("Value").Get()); });
}

Value AdoRecordSet::Field(int index) const {
    return ValueOf(FieldAt(index));
}

Value AdoRecordSet::Field(std::string_view name) const {
    return ValueOf(FieldNamed(name));
}

void AdoRecordSet::SetField(std::string_view name, const Value& value) {
    const DispatchObject& field = FieldNamed(name);
    On([&](const DispatchObject&) { field.Put("Value", ToVariant(value)); });
    mChanged = true;
}

void AdoRecordSet::Update() {
    if (!mChanged) return;
    On([](const DispatchObject& set) { set.Call("Update"); });
    mChanged = false;
}

void AdoRecordSet::Close() {
    DropChange();
    On([](const DispatchObject& set) { set.Call("Close"); });
}

int AdoRecordSet::State() const {
    return static_cast<int>(
        On([](const DispatchObject& set) { return ToValue(set.Get("State").Get()).ToInteger(); }));
}

std::unique_ptr<platform::RecordSet> TakeRecordSet(const Variant& answer,
                                                   std::shared_ptr<AdoSession> session,
                                                   const std::string& source) {
    if (answer.Type() == VT_EMPTY || answer.Type() == VT_NULL)
        return std::make_unique<RowlessSet>();
    auto object = answer.Object();
    if (!object) {
        const bool isObject = answer.Type() == VT_DISPATCH || answer.Type() == VT_UNKNOWN;
        if (isObject) return std::make_unique<RowlessSet>();
        throw DatabaseError(source + "：查询的结果不是记录集");
    }
    DispatchObject records(std::move(object), kRecordSet);
    bool open = false;
    try {
        open = (ToValue(records.Get("State").Get()).ToInteger() & platform::kStateOpen) != 0;
    } catch (const std::exception& error) {
        throw DatabaseError(source + "：" + error.what());
    }
    if (!open) return std::make_unique<RowlessSet>();
    return std::make_unique<AdoRecordSet>(std::move(records), std::move(session));
}

}  // namespace kelvane::com
