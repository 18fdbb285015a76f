#include "tests/windows/ado_server/fields.h"

namespace kelvane::ado_server {

std::span<const Member<Field>> Field::Members() {
    static constexpr Member<Field> kMembers[] = {
        {L"Value", DISPATCH_PROPERTYGET, &Field::GetValue},
        {L"Value", DISPATCH_PROPERTYPUT, &Field::PutValue},
        {L"Name", DISPATCH_PROPERTYGET, &Field::Name},
        {L"Type", DISPATCH_PROPERTYGET, &Field::Type},
    };
    return kMembers;
}

Variant Field::PutValue(const Arguments& arguments) {
    const VARIANT* value = arguments.At(0);
    if (value == nullptr) throw MakeError(ErrorNumber::DataConversion);
    mRows->SetValue(mIndex, *value);
    return {};
}

Variant Field::Name(const Arguments&) {
    return Variant(std::string_view(mRows->Column(mIndex).name));
}

std::span<const Member<Fields>> Fields::Members() {
    static constexpr Member<Fields> kMembers[] = {
        {L"Count", DISPATCH_PROPERTYGET, &Fields::Count},
        {L"Item", DISPATCH_PROPERTYGET, &Fields::Item},
    };
    return kMembers;
}

// Of a record set that is closed there are none, which is no error.
Variant Fields::Count(const Arguments&) {
    return Variant(mRows->IsOpen() ? mRows->FieldCount() : 0L);
}

Variant Fields::Item(const Arguments& arguments) {
    if (!mRows->IsOpen()) throw MakeError(ErrorNumber::ItemNotFound);
    const int index = mRows->IndexOf(arguments.At(0));
    return Variant(new Field(Held<RecordSet>::Share(mRows.Get()), index));
}

}  // namespace kelvane::ado_server
