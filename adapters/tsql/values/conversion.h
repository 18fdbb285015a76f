// Values while a statement runs, and how the dialect converts them from type to type.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "adapters/tsql/language/lexer.h"
#include "adapters/tsql/language/type.h"

namespace kelvane::tsql {

// No datum is one. GCC's library takes a variant of the other alternatives alone for one that
// always has a value, and destroys a text that a copy without memory has not made; beside this one
// it looks.
struct NeverHeld {
    NeverHeld() = delete;
    NeverHeld(const NeverHeld& /*other*/) noexcept {}
    NeverHeld& operator=(const NeverHeld& /*other*/) noexcept { return *this; }
    friend bool operator==(const NeverHeld& /*a*/, const NeverHeld& /*b*/) { return true; }
};

// A value by its type: bit and integers as integers, money as an integer of ten-thousandths, float
// as a double, datetime as "yyyy-mm-dd hh:mm:ss.mmm", texts as they are.
using Datum = std::variant<std::monostate, std::int64_t, double, std::string, NeverHeld>;

// Converts `value` of type `from`. Texts are cut at `to.length`. `style` is that of an explicit
// conversion to text (0 when none is given). Throws DatabaseError (235, 241, 242, 245, 248, 8115 …)
// when the value has no equal of that type and 257 when the types have no conversion.
Datum Convert(const Datum& value, Type from, Type to, int style = 0);

// The value of a literal, with a minus sign before it when `negated`, as `to`.
Datum ConvertLiteral(const Literal& literal, bool negated, Type to);

}  // namespace kelvane::tsql
