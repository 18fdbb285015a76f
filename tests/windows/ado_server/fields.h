// The Fields of a record set, and one field of its current row.
#pragma once

#include "tests/windows/ado_server/record_set.h"

namespace kelvane::ado_server {

class Field final : public LateBound<Field> {
public:
    static constexpr const wchar_t* kSource = L"ADODB.Field";
    static constexpr const wchar_t* kDefault = L"Value";
    static constexpr IID kPrivateInterface{
        0x6d1c2f5e, 0x9a34, 0x4c0b, {0x8e, 0x57, 0x21, 0xb0, 0x6d, 0xf3, 0x4a, 0x05}};
    static std::span<const Member<Field>> Members();

    Field(Held<RecordSet> rows, int index) : mRows(std::move(rows)), mIndex(index) {}

private:
    Variant GetValue(const Arguments&) { return mRows->Value(mIndex); }
    Variant PutValue(const Arguments& arguments);
    Variant Name(const Arguments&);
    Variant Type(const Arguments&) { return Variant(mRows->TypeOf(mIndex)); }

    Held<RecordSet> mRows;
    int mIndex;
};

class Fields final : public LateBound<Fields> {
public:
    static constexpr const wchar_t* kSource = L"ADODB.Fields";
    static constexpr const wchar_t* kDefault = L"Item";
    static constexpr IID kPrivateInterface{
        0x6d1c2f5e, 0x9a34, 0x4c0b, {0x8e, 0x57, 0x21, 0xb0, 0x6d, 0xf3, 0x4a, 0x06}};
    static std::span<const Member<Fields>> Members();

    explicit Fields(Held<RecordSet> rows) : mRows(std::move(rows)) {}

private:
    Variant Count(const Arguments&);
    Variant Item(const Arguments& arguments);

    Held<RecordSet> mRows;
};

}  // namespace kelvane::ado_server
