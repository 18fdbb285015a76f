// What a connection string to an embedded account says.
#pragma once

#include <string>
#include <string_view>

namespace kelvane::sqlite {

struct ConnectionTarget {
    std::string path;
    int timeout = 5000;  // milliseconds
};

// Reads "Data Source=PATH;Timeout=MILLISECONDS" in any order and letter case, or a plain path. A
// path may stand in double quotes, in which a quote is doubled.
// Throws DatabaseError naming the part that is wrong, never its value.
ConnectionTarget ParseConnectionString(std::string_view text);

}  // namespace kelvane::sqlite
