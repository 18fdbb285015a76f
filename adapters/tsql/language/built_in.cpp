#include "adapters/tsql/language/built_in.h"

#include <algorithm>
#include <iterator>

namespace kelvane::tsql {

namespace {

constexpr BuiltInInfo kBuiltIns[] = {
    {BuiltIn::IsNull, "isnull", 2, false}, {BuiltIn::LTrim, "ltrim", 1, false},
    {BuiltIn::RTrim, "rtrim", 1, false},   {BuiltIn::Len, "len", 1, false},
    {BuiltIn::Count, "count", 1, true},    {BuiltIn::Sum, "sum", 1, true},
    {BuiltIn::Avg, "avg", 1, true},        {BuiltIn::Min, "min", 1, true},
    {BuiltIn::Max, "max", 1, true},
};

}  // namespace

const BuiltInInfo* FindBuiltIn(std::string_view name) {
    const auto* found =
        std::find_if(std::begin(kBuiltIns), std::end(kBuiltIns),
                     [&](const BuiltInInfo& builtIn) { return builtIn.name == name; });
    return found == std::end(kBuiltIns) ? nullptr : found;
}

}  // namespace kelvane::tsql
