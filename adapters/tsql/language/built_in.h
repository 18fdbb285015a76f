// The dialect's functions that are known here, in one enumeration: a switch over it without a
// default does not compile when it has forgotten one. Conversions are syntax of their own.
#pragma once

#include <cstddef>
#include <string_view>

namespace kelvane::tsql {

enum class BuiltIn { IsNull, LTrim, RTrim, Len, Count, Sum, Avg, Min, Max };

struct BuiltInInfo {
    BuiltIn id;
    std::string_view name;  // in lower case
    std::size_t arguments;
    bool isAggregate;  // over the rows of a group
};

// The function of that name, which is in lower case; null when there is none.
const BuiltInInfo* FindBuiltIn(std::string_view name);

}  // namespace kelvane::tsql
