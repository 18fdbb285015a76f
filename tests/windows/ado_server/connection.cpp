#include "tests/windows/ado_server/connection.h"

#include "adapters/odbc/odbc_connection.h"
#include "tests/support/plain_text_connection.h"
#include "tests/windows/ado_server/provider.h"
#include "tests/windows/ado_server/record_set.h"

namespace kelvane::ado_server {
namespace {

// Codes that providers give for transactions.
constexpr auto kNoTransaction = static_cast<HRESULT>(0x8004D00E);
constexpr auto kTransactionExists = static_cast<HRESULT>(0x8004D013);

constexpr long kExecuteNoRecords = 128;
constexpr long kSerializable = 0x100000;

}  // namespace

std::span<const Member<Connection>> Connection::Members() {
    using C = Connection;
    static constexpr Member<C> kMembers[] = {
        {L"ConnectionString", DISPATCH_PROPERTYGET, &C::GetConnectionString},
        {L"ConnectionString", DISPATCH_PROPERTYPUT, &C::PutConnectionString},
        {L"CursorLocation", DISPATCH_PROPERTYGET, &C::GetCursorLocation},
        {L"CursorLocation", DISPATCH_PROPERTYPUT, &C::PutCursorLocation},
        {L"ConnectionTimeout", DISPATCH_PROPERTYGET, &C::GetConnectionTimeout},
        {L"ConnectionTimeout", DISPATCH_PROPERTYPUT, &C::PutConnectionTimeout},
        {L"CommandTimeout", DISPATCH_PROPERTYGET, &C::GetCommandTimeout},
        {L"CommandTimeout", DISPATCH_PROPERTYPUT, &C::PutCommandTimeout},
        {L"IsolationLevel", DISPATCH_PROPERTYGET, &C::GetIsolationLevel},
        {L"IsolationLevel", DISPATCH_PROPERTYPUT, &C::PutIsolationLevel},
        {L"State", DISPATCH_PROPERTYGET, &C::State},
        {L"Version", DISPATCH_PROPERTYGET, &C::Version},
        {L"Errors", DISPATCH_PROPERTYGET, &C::GetErrors, true},
        {L"Open", DISPATCH_METHOD, &C::Open},
        {L"Close", DISPATCH_METHOD, &C::Close},
        {L"Execute", DISPATCH_METHOD, &C::Execute},
        {L"BeginTrans", DISPATCH_METHOD, &C::BeginTrans},
        {L"CommitTrans", DISPATCH_METHOD, &C::CommitTrans},
        {L"RollbackTrans", DISPATCH_METHOD, &C::RollbackTrans},
    };
    return kMembers;
}

platform::Connection& Connection::Database() {
    if (!IsOpen()) throw MakeError(ErrorNumber::ObjectClosed);
    return *mDatabase;
}

void Connection::Fail(const platform::DatabaseError& error) {
    ErrorRecord record = RecordOf(error);
    const HRESULT number = record.number;
    mErrors->Replace(std::move(record));
    throw AutomationError(number, error.what());
}

void Connection::OpenWith(const std::string& connectionString) {
    if (IsOpen()) throw MakeError(ErrorNumber::ObjectOpen);
    const Provider provider = ProviderOf(connectionString);
    odbc::OdbcSettings settings;
    settings.connectTimeout = static_cast<int>(mConnectTimeout);
    settings.queryTimeout = static_cast<int>(mCommandTimeout);
    auto database = std::make_unique<odbc::OdbcConnection>(settings);
    database->SetConnectionString(provider.rest);
    database->SetCursorLocation(static_cast<platform::CursorLocation>(mLocation));
    try {
        database->Open({}, {}, -1);
    } catch (const platform::DatabaseError& error) {
        mErrors->Replace({E_FAIL, error.what(), "08001", error.NativeCode()});
        throw AutomationError(E_FAIL, error.what());
    }
    mConnectionString = connectionString;
    mMoney = provider.money;
    mDatabase = std::move(database);
    ++mOpening;
}

Variant Connection::PutConnectionString(const Arguments& arguments) {
    if (IsOpen()) throw MakeError(ErrorNumber::ObjectOpen);
    mConnectionString = arguments.Text(0);
    return {};
}

Variant Connection::PutCursorLocation(const Arguments& arguments) {
    const long location = arguments.Number(0, 0);
    if (location != 2 && location != 3) throw MakeError(ErrorNumber::InvalidArgument);
    mLocation = location;
    return {};
}

Variant Connection::PutConnectionTimeout(const Arguments& arguments) {
    if (IsOpen()) throw MakeError(ErrorNumber::ObjectOpen);
    mConnectTimeout = arguments.Number(0, mConnectTimeout);
    return {};
}

Variant Connection::PutCommandTimeout(const Arguments& arguments) {
    mCommandTimeout = arguments.Number(0, mCommandTimeout);
    return {};
}

Variant Connection::PutIsolationLevel(const Arguments& arguments) {
    mIsolation = arguments.Number(0, mIsolation);
    return {};
}

Variant Connection::GetErrors(const Arguments&) {
    return Variant(mErrors.Another());
}

Variant Connection::Open(const Arguments& arguments) {
    std::string text = arguments.At(0) == nullptr ? mConnectionString : arguments.Text(0);
    // What the string has itself, it has first: the driver takes the first.
    const std::string user = arguments.Text(1);
    const std::string password = arguments.Text(2);
    if (!user.empty()) text += ";UID=" + user;
    if (!password.empty()) text += ";PWD={" + password + "}";
    OpenWith(text);
    return {};
}

Variant Connection::Close(const Arguments&) {
    Database();
    if (mInTransaction) throw MakeError(ErrorNumber::InTransaction);
    mDatabase.reset();
    return {};
}

Variant Connection::Execute(const Arguments& arguments) {
    const std::string text = arguments.Text(0);
    const bool wantsRows =
        (arguments.Number(2, -1) & kExecuteNoRecords) == 0 || arguments.Number(2, -1) == -1;
    auto rows = Held<RecordSet>::Take(new RecordSet);
    if (wantsRows && GivesRows(text)) {
        // Whatever the record sets' own options are, these rows are forward-only and read-only.
        rows->OpenOn(Held<Connection>::Share(this), text, {});
    } else {
        OnDatabase([&](platform::Connection& database) { support::RunText(database, text); });
    }
    arguments.Store(1, -1);
    return Variant(rows.Another());
}

Variant Connection::BeginTrans(const Arguments&) {
    Database();
    if (mInTransaction) {
        throw AutomationError(kTransactionExists,
                              "Only one transaction can be active on this session.");
    }
    // Who asks for the highest level wants to read what nobody changes meanwhile.
    OnDatabase([this](platform::Connection& database) {
        if (mIsolation == kSerializable) {
            database.BeginSnapshot();
        } else {
            database.Begin();
        }
    });
    mInTransaction = true;
    return Variant(1L);
}

void Connection::RequireTransaction() const {
    if (!IsOpen()) throw MakeError(ErrorNumber::ObjectClosed);
    if (!mInTransaction) throw AutomationError(kNoTransaction, "No transaction is active.");
}

Variant Connection::CommitTrans(const Arguments&) {
    RequireTransaction();
    mInTransaction = false;
    OnDatabase([](platform::Connection& database) { database.Commit(); });
    return {};
}

Variant Connection::RollbackTrans(const Arguments&) {
    RequireTransaction();
    mInTransaction = false;
    OnDatabase([](platform::Connection& database) { database.RollBack(); });
    return {};
}

}  // namespace kelvane::ado_server
