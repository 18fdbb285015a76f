// "ADODB.Recordset" as a host and the component use it: the rows of a query, one of them current.
#pragma once

#include "adapters/tsql/translation.h"
#include "tests/windows/ado_server/connection.h"

namespace kelvane::ado_server {

class RecordSet final : public LateBound<RecordSet> {
public:
    static constexpr const wchar_t* kSource = L"ADODB.Recordset";
    static constexpr const wchar_t* kDefault = L"Fields";
    static constexpr IID kPrivateInterface{
        0x6d1c2f5e, 0x9a34, 0x4c0b, {0x8e, 0x57, 0x21, 0xb0, 0x6d, 0xf3, 0x4a, 0x04}};
    static std::span<const Member<RecordSet>> Members();

    void OpenOn(Held<Connection> connection, const std::string& source,
                platform::RecordSetOptions options);

    bool IsOpen() const;
    const tsql::ResultColumn& Column(int index) const;
    long FieldCount() const;
    // The place of a column by name, in any letter case, or by number. Throws AutomationError 3265.
    int IndexOf(const VARIANT* nameOrNumber) const;
    Variant Value(int index) const;
    void SetValue(int index, const VARIANT& value);
    long TypeOf(int index) const;

private:
    Variant State(const Arguments&) { return Variant(IsOpen() ? 1L : 0L); }
    Variant AtEnd(const Arguments&);
    Variant AtBegin(const Arguments&);
    Variant RecordCount(const Arguments&);
    Variant Fields(const Arguments&);
    Variant EditMode(const Arguments&) { return Variant(mEditing ? 1L : 0L); }
    Variant GetCursorLocation(const Arguments&) { return Variant(mLocation); }
    Variant PutCursorLocation(const Arguments& arguments);
    Variant GetCursorType(const Arguments&) { return Variant(mCursor); }
    Variant PutCursorType(const Arguments& arguments);
    Variant GetLockType(const Arguments&) { return Variant(mLock); }
    Variant PutLockType(const Arguments& arguments);
    Variant GetConnection(const Arguments&);
    Variant PutConnection(const Arguments& arguments);
    Variant Open(const Arguments& arguments);
    Variant Close(const Arguments&);
    Variant MoveFirst(const Arguments&);
    Variant MoveNext(const Arguments&);
    Variant Update(const Arguments&);
    Variant NextRecordset(const Arguments&);

    void RequireOpen() const;
    void RequireClosed() const;
    void RequireRow() const;
    void FinishEdit();
    // The connection an argument names: a connection object, or a connection string.
    static Held<Connection> ConnectionOf(const Arguments& arguments, std::size_t index);

    Held<Connection> mConnection;
    int mOpening = 0;  // the connection's, when the rows were read
    std::unique_ptr<platform::RecordSet> mRows;
    long mLocation = 0;  // 0: the connection's
    long mCursor = 0;
    long mLock = 1;
    bool mEditing = false;
};

}  // namespace kelvane::ado_server
