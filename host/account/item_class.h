// The project item class "97" as this host sets it up: the key fields that a project's parts are
// told apart by.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace kelvane::host {

inline constexpr std::string_view kProjectClass = "97";

// Type codes of an item class's fields; 1 and 2 are the numeric ones.
enum class FieldType : std::int16_t { Integer = 1, Amount = 2, Text = 3, Date = 4, Flag = 5 };

struct ItemKeyField {
    std::string_view name;  // of the column, and the caption
    FieldType type;
    std::string_view columnType;  // in the database's dialect
};

inline constexpr int kMaxKeyFields = 2;

// The first `count` key fields: none, one or two. Throws std::out_of_range for another count.
std::span<const ItemKeyField> ItemKeyFields(int count);

}  // namespace kelvane::host
