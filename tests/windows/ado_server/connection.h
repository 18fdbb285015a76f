// "ADODB.Connection" as a host and the component use it: late bound, in front of a connection
// through the system's ODBC.
#pragma once

#include <memory>

#include "tests/windows/ado_server/errors.h"
#include "tests/windows/automation/held.h"

namespace kelvane::ado_server {

class Connection final : public LateBound<Connection> {
public:
    static constexpr const wchar_t* kSource = L"ADODB.Connection";
    static constexpr const wchar_t* kDefault = L"ConnectionString";
    static constexpr IID kPrivateInterface{
        0x6d1c2f5e, 0x9a34, 0x4c0b, {0x8e, 0x57, 0x21, 0xb0, 0x6d, 0xf3, 0x4a, 0x03}};
    static std::span<const Member<Connection>> Members();

    Connection() : mErrors(Held<Errors>::Take(new Errors)) {}

    void OpenWith(const std::string& connectionString);
    bool IsOpen() const { return mDatabase != nullptr; }
    // A number for each opening: what an earlier one gave is closed.
    int Opening() const { return mOpening; }
    long Location() const { return mLocation; }
    MoneyForm Money() const { return mMoney; }
    platform::Connection& Database();

    // Keeps what the database said and turns it into the caller's error.
    [[noreturn]] void Fail(const platform::DatabaseError& error);

    // Runs `work` on the database; its failures go the way of Fail().
    template <typename Work>
    auto OnDatabase(const Work& work) {
        platform::Connection& database = Database();
        try {
            return work(database);
        } catch (const platform::DatabaseError& error) {
            Fail(error);
        }
    }

private:
    Variant GetConnectionString(const Arguments&) { return Variant(mConnectionString); }
    Variant PutConnectionString(const Arguments& arguments);
    Variant GetCursorLocation(const Arguments&) { return Variant(mLocation); }
    Variant PutCursorLocation(const Arguments& arguments);
    Variant GetConnectionTimeout(const Arguments&) { return Variant(mConnectTimeout); }
    Variant PutConnectionTimeout(const Arguments& arguments);
    Variant GetCommandTimeout(const Arguments&) { return Variant(mCommandTimeout); }
    Variant PutCommandTimeout(const Arguments& arguments);
    Variant GetIsolationLevel(const Arguments&) { return Variant(mIsolation); }
    Variant PutIsolationLevel(const Arguments& arguments);
    Variant State(const Arguments&) { return Variant(IsOpen() ? 1L : 0L); }
    Variant Version(const Arguments&) { return Variant(std::string_view("6.1")); }
    Variant GetErrors(const Arguments&);
    Variant Open(const Arguments& arguments);
    Variant Close(const Arguments&);
    Variant Execute(const Arguments& arguments);
    Variant BeginTrans(const Arguments&);
    Variant CommitTrans(const Arguments&);
    Variant RollbackTrans(const Arguments&);

    void RequireTransaction() const;

    Held<Errors> mErrors;
    std::string mConnectionString;
    std::unique_ptr<platform::Connection> mDatabase;
    MoneyForm mMoney = MoneyForm::Decimal;
    int mOpening = 0;
    long mLocation = 2;
    long mIsolation = 0x1000;
    long mConnectTimeout = 15;
    long mCommandTimeout = 30;
    bool mInTransaction = false;
};

}  // namespace kelvane::ado_server
