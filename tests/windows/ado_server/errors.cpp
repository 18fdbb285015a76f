#include "tests/windows/ado_server/errors.h"

namespace kelvane::ado_server {
namespace {

constexpr auto kErrorsInCommand = static_cast<HRESULT>(0x80040E14);
constexpr auto kIntegrityViolation = static_cast<HRESULT>(0x80040E2F);
constexpr auto kAbortLimitReached = static_cast<HRESULT>(0x80040E31);

struct KnownCode {
    int native;
    HRESULT number;
    const char* state;
};

// The dialect's numbers whose SQLSTATE is not that of a statement in error.
constexpr KnownCode kKnownCodes[] = {
    {512, kErrorsInCommand, "21000"},
    {515, kIntegrityViolation, "23000"},
    {1205, E_FAIL, "40001"},
    {1222, E_FAIL, "HYT00"},
    {2601, kIntegrityViolation, "23000"},
    {2627, kIntegrityViolation, "23000"},
    {8152, kErrorsInCommand, "22001"},
};

}  // namespace

ErrorRecord RecordOf(const platform::DatabaseError& error) {
    ErrorRecord record{kErrorsInCommand, error.what(), "42000", error.NativeCode()};
    if (dynamic_cast<const platform::ConnectionLost*>(&error) != nullptr) {
        record.number = E_FAIL;
        record.state = "08S01";
        return record;
    }
    if (dynamic_cast<const platform::CommitInDoubt*>(&error) != nullptr) {
        record.number = E_FAIL;
        record.state = "08007";
        return record;
    }
    if (dynamic_cast<const platform::DatabaseBusy*>(&error) != nullptr) {
        record.number = kAbortLimitReached;
        record.state = "HYT00";
    }
    for (const KnownCode& known : kKnownCodes) {
        if (known.native != error.NativeCode()) continue;
        record.number = known.number;
        record.state = known.state;
    }
    return record;
}

std::span<const Member<ErrorItem>> ErrorItem::Members() {
    static constexpr Member<ErrorItem> kMembers[] = {
        {L"Description", DISPATCH_PROPERTYGET, &ErrorItem::Description},
        {L"Number", DISPATCH_PROPERTYGET, &ErrorItem::Number},
        {L"NativeError", DISPATCH_PROPERTYGET, &ErrorItem::NativeError},
        {L"SQLState", DISPATCH_PROPERTYGET, &ErrorItem::SqlState},
        {L"Source", DISPATCH_PROPERTYGET, &ErrorItem::Source},
    };
    return kMembers;
}

std::span<const Member<Errors>> Errors::Members() {
    static constexpr Member<Errors> kMembers[] = {
        {L"Count", DISPATCH_PROPERTYGET, &Errors::Count},
        {L"Item", DISPATCH_PROPERTYGET, &Errors::Item},
        {L"Clear", DISPATCH_METHOD, &Errors::Clear},
    };
    return kMembers;
}

void Errors::Replace(ErrorRecord record) {
    mRecords.clear();
    mRecords.push_back(std::move(record));
}

Variant Errors::Item(const Arguments& arguments) {
    const long index = arguments.Number(0, -1);
    if (index < 0 || static_cast<std::size_t>(index) >= mRecords.size()) {
        throw MakeError(ErrorNumber::ItemNotFound);
    }
    return Variant(new ErrorItem(mRecords[static_cast<std::size_t>(index)]));
}

Variant Errors::Clear(const Arguments&) {
    mRecords.clear();
    return {};
}

}  // namespace kelvane::ado_server
