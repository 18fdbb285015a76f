#include "tests/windows/ado_server/record_set.h"

#include "adapters/database/buffered_record_set.h"
#include "tests/support/plain_text_connection.h"
#include "tests/windows/ado_server/fields.h"

namespace kelvane::ado_server {
namespace {

constexpr long kForwardOnly = 0;
constexpr long kStatic = 3;
constexpr long kServer = 2;
constexpr long kClient = 3;
constexpr long kReadOnly = 1;
constexpr long kPessimistic = 2;
constexpr long kOptimistic = 3;

}  // namespace

std::span<const Member<RecordSet>> RecordSet::Members() {
    using R = RecordSet;
    static constexpr Member<R> kMembers[] = {
        {L"State", DISPATCH_PROPERTYGET, &R::State},
        {L"EOF", DISPATCH_PROPERTYGET, &R::AtEnd},
        {L"BOF", DISPATCH_PROPERTYGET, &R::AtBegin},
        {L"RecordCount", DISPATCH_PROPERTYGET, &R::RecordCount},
        {L"Fields", DISPATCH_PROPERTYGET, &R::Fields, true},
        {L"EditMode", DISPATCH_PROPERTYGET, &R::EditMode},
        {L"CursorLocation", DISPATCH_PROPERTYGET, &R::GetCursorLocation},
        {L"CursorLocation", DISPATCH_PROPERTYPUT, &R::PutCursorLocation},
        {L"CursorType", DISPATCH_PROPERTYGET, &R::GetCursorType},
        {L"CursorType", DISPATCH_PROPERTYPUT, &R::PutCursorType},
        {L"LockType", DISPATCH_PROPERTYGET, &R::GetLockType},
        {L"LockType", DISPATCH_PROPERTYPUT, &R::PutLockType},
        {L"ActiveConnection", DISPATCH_PROPERTYGET, &R::GetConnection},
        {L"ActiveConnection", DISPATCH_PROPERTYPUT, &R::PutConnection},
        {L"Open", DISPATCH_METHOD, &R::Open},
        {L"Close", DISPATCH_METHOD, &R::Close},
        {L"MoveFirst", DISPATCH_METHOD, &R::MoveFirst},
        {L"MoveNext", DISPATCH_METHOD, &R::MoveNext},
        {L"Update", DISPATCH_METHOD, &R::Update},
        {L"NextRecordset", DISPATCH_METHOD, &R::NextRecordset},
    };
    return kMembers;
}

void RecordSet::OpenOn(Held<Connection> connection, const std::string& source,
                       platform::RecordSetOptions options) {
    mConnection = std::move(connection);
    mRows = mConnection->OnDatabase([&](platform::Connection& database) {
        return support::QueryText(database, source, options);
    });
    mOpening = mConnection->Opening();
    if (mLocation == 0) mLocation = mConnection->Location();
}

bool RecordSet::IsOpen() const {
    return mRows != nullptr && mConnection->IsOpen() && mOpening == mConnection->Opening();
}

void RecordSet::RequireOpen() const {
    if (!IsOpen()) throw MakeError(ErrorNumber::ObjectClosed);
}

void RecordSet::RequireClosed() const {
    if (IsOpen()) throw MakeError(ErrorNumber::ObjectOpen);
}

void RecordSet::RequireRow() const {
    RequireOpen();
    if (mRows->EndOfFile()) throw MakeError(ErrorNumber::NoCurrentRecord);
}

const tsql::ResultColumn& RecordSet::Column(int index) const {
    RequireOpen();
    return dynamic_cast<const database::BufferedRecordSet&>(*mRows).Column(index);
}

long RecordSet::FieldCount() const {
    RequireOpen();
    return mRows->FieldCount();
}

int RecordSet::IndexOf(const VARIANT* nameOrNumber) const {
    if (nameOrNumber == nullptr) throw MakeError(ErrorNumber::ItemNotFound);
    Variant key;
    if (nameOrNumber->vt == VT_BSTR || nameOrNumber->vt == (VT_BYREF | VT_BSTR)) {
        VariantCopyInd(&key.Raw(), const_cast<VARIANT*>(nameOrNumber));
        const std::wstring wanted(key.Raw().bstrVal, SysStringLen(key.Raw().bstrVal));
        for (int index = 0; index < FieldCount(); ++index) {
            if (_wcsicmp(ToWide(Column(index).name).c_str(), wanted.c_str()) == 0) return index;
        }
        throw MakeError(ErrorNumber::ItemNotFound);
    }
    if (FAILED(VariantChangeType(&key.Raw(), const_cast<VARIANT*>(nameOrNumber), 0, VT_I4)) ||
        key.Raw().lVal < 0 || key.Raw().lVal >= FieldCount()) {
        throw MakeError(ErrorNumber::ItemNotFound);
    }
    return static_cast<int>(key.Raw().lVal);
}

Variant RecordSet::Value(int index) const {
    RequireRow();
    return FieldVariant(mRows->Field(index), Column(index).type, mConnection->Money());
}

void RecordSet::SetValue(int index, const VARIANT& value) {
    RequireRow();
    if (mLock == kReadOnly) throw MakeError(ErrorNumber::FeatureNotAvailable);
    const std::string& name = Column(index).name;
    mConnection->OnDatabase([&](platform::Connection&) { mRows->SetField(name, ValueOf(value)); });
    mEditing = true;
}

long RecordSet::TypeOf(int index) const {
    return DataTypeOf(Column(index).type, mConnection->Money());
}

Variant RecordSet::AtEnd(const Arguments&) {
    RequireOpen();
    return Variant(mRows->EndOfFile());
}

// There is no way to move before the first row: only an empty set is there.
Variant RecordSet::AtBegin(const Arguments&) {
    RequireOpen();
    return Variant(mRows->RecordCount() == 0);
}

Variant RecordSet::RecordCount(const Arguments&) {
    RequireOpen();
    return Variant(mCursor == kForwardOnly ? -1L : mRows->RecordCount());
}

Variant RecordSet::Fields(const Arguments&) {
    return Variant(new ado_server::Fields(Held<RecordSet>::Share(this)));
}

Variant RecordSet::PutCursorLocation(const Arguments& arguments) {
    RequireClosed();
    const long location = arguments.Number(0, 0);
    if (location != kServer && location != kClient) throw MakeError(ErrorNumber::InvalidArgument);
    mLocation = location;
    return {};
}

Variant RecordSet::PutCursorType(const Arguments& arguments) {
    RequireClosed();
    mCursor = arguments.Number(0, mCursor);
    return {};
}

Variant RecordSet::PutLockType(const Arguments& arguments) {
    RequireClosed();
    mLock = arguments.Number(0, mLock);
    return {};
}

Variant RecordSet::GetConnection(const Arguments&) {
    return mConnection ? Variant(static_cast<IDispatch*>(mConnection.Another())) : Variant();
}

Variant RecordSet::PutConnection(const Arguments& arguments) {
    RequireClosed();
    mConnection = ConnectionOf(arguments, 0);
    return {};
}

Held<Connection> RecordSet::ConnectionOf(const Arguments& arguments, std::size_t index) {
    if (IDispatch* object = arguments.Object(index)) {
        void* connection = nullptr;
        if (FAILED(object->QueryInterface(Connection::kPrivateInterface, &connection))) {
            throw MakeError(ErrorNumber::InvalidArgument);
        }
        return Held<Connection>::Take(static_cast<Connection*>(connection));
    }
    const std::string connectionString = arguments.Text(index);
    if (connectionString.empty()) throw MakeError(ErrorNumber::InvalidConnection);
    auto own = Held<Connection>::Take(new Connection);
    own->OpenWith(connectionString);
    return own;
}

Variant RecordSet::Open(const Arguments& arguments) {
    RequireClosed();
    if (arguments.At(1) != nullptr) mConnection = ConnectionOf(arguments, 1);
    if (!mConnection || !mConnection->IsOpen()) throw MakeError(ErrorNumber::InvalidConnection);
    const long cursor = arguments.Number(2, -1);
    const long lock = arguments.Number(3, -1);
    if (cursor != -1) mCursor = cursor;
    if (lock != -1) mLock = lock;
    if (mLocation == 0) mLocation = mConnection->Location();
    if (mLocation == kClient) {
        // All rows come over at once, and nothing stays locked there.
        mCursor = kStatic;
        if (mLock == kPessimistic) mLock = kOptimistic;
    }
    OpenOn(Held<Connection>::Share(mConnection.Get()), arguments.Text(0),
           {.location = static_cast<platform::CursorLocation>(mLocation),
            .cursor = static_cast<platform::CursorType>(mCursor),
            .lock = static_cast<platform::LockType>(mLock)});
    return {};
}

Variant RecordSet::Close(const Arguments&) {
    RequireOpen();
    if (mEditing) throw MakeError(ErrorNumber::IllegalOperation);
    mRows.reset();
    return {};
}

// Moving away from a row that is being edited writes it.
void RecordSet::FinishEdit() {
    if (!mEditing) return;
    mConnection->OnDatabase([&](platform::Connection&) { mRows->Update(); });
    mEditing = false;
}

Variant RecordSet::MoveFirst(const Arguments&) {
    RequireOpen();
    if (mRows->RecordCount() == 0) throw MakeError(ErrorNumber::NoCurrentRecord);
    FinishEdit();
    mRows->MoveFirst();
    return {};
}

Variant RecordSet::MoveNext(const Arguments&) {
    RequireRow();
    FinishEdit();
    mRows->MoveNext();
    return {};
}

Variant RecordSet::Update(const Arguments&) {
    RequireRow();
    if (mLock == kReadOnly) throw MakeError(ErrorNumber::FeatureNotAvailable);
    FinishEdit();
    return {};
}

// Every batch has run to its end by now, and gave the rows of its first query alone.
Variant RecordSet::NextRecordset(const Arguments&) {
    mRows.reset();
    return Variant(static_cast<IDispatch*>(nullptr));
}

}  // namespace kelvane::ado_server
