// An ADO connection as a test wants it to fail: every method succeeds until it is told otherwise.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "tests/windows/unit/fake_object.h"

namespace kelvane::windows_test {

struct FakeError {
    std::string description;
    int nativeCode = 0;
    std::string sqlState;
    HRESULT code = E_FAIL;
};

class FakeAdo {
public:
    FakeAdo() {
        for (const char* method : {"Open", "Close", "BeginTrans", "CommitTrans", "RollbackTrans"}) {
            connection.Add(method, DISPATCH_METHOD, [this, method](auto&) { return Do(method); });
        }
        connection.Add("Execute", DISPATCH_METHOD, [this](const FakeObject::Arguments& arguments) {
            statements.push_back(com::TextOf(V_BSTR(&arguments.at(0).Get())));
            return Do("Execute");
        });
        result.Add("NextRecordset", DISPATCH_METHOD, [this](auto&) { return Do("NextRecordset"); });
        connection.Add("State", DISPATCH_PROPERTYGET,
                       [this](auto&) { return Variant::OfInteger(state); });
        connection.Add("ConnectionString", DISPATCH_PROPERTYPUT, [](auto&) { return Variant(); });
        connection.Add(
            "IsolationLevel", DISPATCH_PROPERTYPUT, [this](const FakeObject::Arguments& arguments) {
                done.push_back("isolation " + std::to_string(V_I4(&arguments.at(0).Get())));
                return Variant();
            });
        connection.AddProperty("Errors", Variant::OfObject(&mErrors));
        mErrors.Add("Clear", DISPATCH_METHOD, [this](auto&) {
            mReported = false;
            return Variant();
        });
        mErrors.Add("Count", DISPATCH_PROPERTYGET,
                    [this](auto&) { return Variant::OfInteger(mReported ? 1 : 0); });
        mErrors.Add("Item", DISPATCH_PROPERTYGET,
                    [this](auto&) { return Variant::OfObject(&mError); });
        mError.AddProperty("Number", Variant::OfInteger(E_FAIL));
        mError.Add("Description", DISPATCH_PROPERTYGET,
                   [this](auto&) { return Variant::OfText(mLast.description); });
        mError.Add("NativeError", DISPATCH_PROPERTYGET,
                   [this](auto&) { return Variant::OfInteger(mLast.nativeCode); });
        mError.Add("SQLState", DISPATCH_PROPERTYGET,
                   [this](auto&) { return Variant::OfText(mLast.sqlState); });
    }

    // The next call of `method` fails like this; with a code of ADO's own it is not in Errors.
    void Fail(const std::string& method, FakeError error) { mFailures[method] = std::move(error); }

    FakeObject connection;
    FakeObject result;
    int results = 0;  // how many a statement gives
    long state = 0;
    std::vector<std::string> done;
    std::vector<std::string> statements;

private:
    Variant Do(const std::string& method) {
        done.push_back(method);
        const auto failure = mFailures.find(method);
        if (failure != mFailures.end()) {
            mLast = failure->second;
            mFailures.erase(failure);
            mReported = mLast.code == E_FAIL;
            throw Refusal{mLast.code, mLast.description};
        }
        if (method == "Open") state = 1;
        if (method == "Close") state = 0;
        if (method != "Execute" && method != "NextRecordset") return {};
        return Variant::OfObject(results-- > 0 ? &result : nullptr);
    }

    FakeObject mErrors;
    FakeObject mError;
    FakeError mLast;
    bool mReported = false;
    std::map<std::string, FakeError> mFailures;
};

}  // namespace kelvane::windows_test
