#include "host/account/item_class.h"

#include <array>
#include <stdexcept>

namespace kelvane::host {

namespace {

constexpr std::array<ItemKeyField, kMaxKeyFields> kKeyFields = {{
    {"标段", FieldType::Text, "varchar(60)"},
    {"期次", FieldType::Integer, "int"},
}};

}  // namespace

std::span<const ItemKeyField> ItemKeyFields(int count) {
    if (count < 0 || count > kMaxKeyFields) {
        throw std::out_of_range("an item class has none, one or two key fields");
    }
    return std::span(kKeyFields).first(static_cast<std::size_t>(count));
}

}  // namespace kelvane::host
