// The dictionary of the account database's tables that the component reads and writes: a host
// creates an account from it, and whoever reads the component's statements finds every column here.
#pragma once

#include <array>
#include <cstddef>
#include <span>
#include <string_view>

namespace kelvane::data {

enum class ColumnRole { Plain, Key };

// A column with its type in the dialect. Key columns take no Null.
struct AccountColumn {
    std::string_view name;
    std::string_view type;
    ColumnRole role = ColumnRole::Plain;
};

// Columns that the component looks rows up by, in order; unused places are empty.
using AccountIndex = std::array<std::string_view, 3>;

struct AccountTable {
    std::string_view name;
    std::span<const AccountColumn> columns;
    std::span<const AccountIndex> indexes = {};
};

// All tables. The item class's key columns are not among those of fitemss97sub: an account has the
// ones that its fitemstructure rows name, each of type kItemKeyType.
std::span<const AccountTable> AccountTables();

// The table of that name, in any letter case. Throws std::out_of_range.
const AccountTable& AccountTableNamed(std::string_view name);

// How many bytes of the account's code page a text column takes (platform::CodePageLength()).
// Throws std::out_of_range for a column that is not there or takes no text.
std::size_t TextLengthOf(std::string_view table, std::string_view column);

inline constexpr std::string_view kItemKeyTable = "fitemss97sub";
inline constexpr std::string_view kItemKeyType = "varchar(60)";

}  // namespace kelvane::data
