#include "adapters/com/ado_connection.h"

#include <algorithm>
#include <array>

#include "adapters/com/ado_record_set.h"

namespace kelvane::com {

using platform::CursorLocation;
using platform::LockType;

namespace {

// How NextRecordset is refused when a batch is at its end: 3251 by a provider that gives one result
// a batch, 3704 after a last result that has no rows.
constexpr std::array kNoFurtherResult{static_cast<HRESULT>(0x800A0CB3),
                                      static_cast<HRESULT>(0x800A0E78)};

Variant Number(auto option) {
    return Variant::OfInteger(static_cast<long>(option));
}

// Goes through the results of a batch, so that a later statement's error is seen.
void FinishBatch(DispatchObject result) {
    while (result) {
        try {
            result = {result.Call("NextRecordset").Object(), result.Name()};
        } catch (const DispatchError& error) {
            if (std::ranges::find(kNoFurtherResult, error.Code()) == kNoFurtherResult.end()) throw;
            return;
        }
    }
}

}  // namespace

AdoConnection::~AdoConnection() {
    try {
        if (AdoConnection::State() != 0) AdoConnection::Close();
    } catch (const std::exception&) {
        return;  // the object goes all the same
    }
}

void AdoConnection::SetCursorLocation(CursorLocation location) {
    if (location == CursorLocation::Unspecified) return;
    try {
        mSession->Connection().Put("CursorLocation", Number(location));
    } catch (const DispatchError& error) {
        mSession->Fail(error);
    }
}

void AdoConnection::DoExecute(const std::string& statement) {
    mSession->RequireChangeable();
    mSession->Ready();
    try {
        FinishBatch(mSession->Connection().Object(
            "Execute",
            {Variant::OfText(statement), Variant::Missing(), Number(platform::CommandType::Text)}));
    } catch (const DispatchError& error) {
        mSession->Fail(error);
    }
}

std::unique_ptr<platform::RecordSet> AdoConnection::DoOpenRecordSet(
    const std::string& statement, const platform::RecordSetOptions& options) {
    if (options.lock == LockType::Pessimistic) mSession->RequireChangeable();
    const LockType lock = mSession->IsSnapshot() ? LockType::ReadOnly : options.lock;
    mSession->Ready();
    try {
        DispatchObject records = DispatchObject::Create("ADODB.Recordset");
        if (options.location != CursorLocation::Unspecified) {
            records.Put("CursorLocation", Number(options.location));
        }
        records.Call("Open",
                     {Variant::OfText(statement), Variant::OfObject(mSession->Connection().Get()),
                      Number(options.cursor), Number(lock), Number(options.command)});
        return TakeRecordSet(Variant::OfObject(records.Get()), mSession, records.Name());
    } catch (const DispatchError& error) {
        mSession->Fail(error);
    }
}

}  // namespace kelvane::com
