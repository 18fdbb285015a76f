// The Errors collection of a connection: what the database said of the call that failed last.
#pragma once

#include <vector>

#include "platform/database.h"
#include "tests/windows/ado_server/field_value.h"
#include "tests/windows/automation/late_bound.h"

namespace kelvane::ado_server {

struct ErrorRecord {
    HRESULT number = E_FAIL;
    std::string description;
    std::string state;  // SQLSTATE
    int native = 0;
};

// What a provider reports for a failure of the database.
ErrorRecord RecordOf(const platform::DatabaseError& error);

class ErrorItem final : public LateBound<ErrorItem> {
public:
    static constexpr const wchar_t* kSource = L"ADODB.Error";
    static constexpr const wchar_t* kDefault = L"Description";
    static constexpr IID kPrivateInterface{
        0x6d1c2f5e, 0x9a34, 0x4c0b, {0x8e, 0x57, 0x21, 0xb0, 0x6d, 0xf3, 0x4a, 0x01}};
    static std::span<const Member<ErrorItem>> Members();

    explicit ErrorItem(ErrorRecord record) : mRecord(std::move(record)) {}

private:
    Variant Description(const Arguments&) { return Variant(mRecord.description); }
    Variant Number(const Arguments&) { return Variant(static_cast<long>(mRecord.number)); }
    Variant NativeError(const Arguments&) { return Variant(static_cast<long>(mRecord.native)); }
    Variant SqlState(const Arguments&) { return Variant(mRecord.state); }
    Variant Source(const Arguments&) { return Variant(std::string_view("Kelvane test provider")); }

    ErrorRecord mRecord;
};

class Errors final : public LateBound<Errors> {
public:
    static constexpr const wchar_t* kSource = L"ADODB.Errors";
    static constexpr const wchar_t* kDefault = L"Item";
    static constexpr IID kPrivateInterface{
        0x6d1c2f5e, 0x9a34, 0x4c0b, {0x8e, 0x57, 0x21, 0xb0, 0x6d, 0xf3, 0x4a, 0x02}};
    static std::span<const Member<Errors>> Members();

    void Replace(ErrorRecord record);

private:
    Variant Count(const Arguments&) { return Variant(static_cast<long>(mRecords.size())); }
    Variant Item(const Arguments& arguments);
    Variant Clear(const Arguments&);

    std::vector<ErrorRecord> mRecords;
};

}  // namespace kelvane::ado_server
