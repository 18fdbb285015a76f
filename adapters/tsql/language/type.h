// The dialect's column types, as far as the account's tables use them. Every expression of a
// statement has one, and the writer of a target engine chooses its representation by it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvane::tsql {

struct Type {
    // In the order of the dialect's precedence: of two operands the lower one is converted.
    enum class Kind {
        Null,  // the literal NULL before it meets a type
        VarChar,
        NVarChar,
        Bit,
        TinyInt,
        SmallInt,
        Int,
        BigInt,
        Money,
        Float,
        DateTime,
    };

    Kind kind = Kind::Null;
    // Of VarChar in bytes of the dialect's code page, of NVarChar in UTF-16 units; 0: any length.
    int length = 0;

    bool IsText() const { return kind == Kind::VarChar || kind == Kind::NVarChar; }
    bool IsInteger() const { return kind >= Kind::Bit && kind <= Kind::BigInt; }
    bool IsNumber() const { return kind >= Kind::Bit && kind <= Kind::Float; }

    friend bool operator==(const Type&, const Type&) = default;
};

// Reads a type as the dialect declares it, in any letter case: "varchar(60)", "nvarchar(20)",
// "int", "tinyint", "bit", "money", "float", "datetime" … ("char" counts as "varchar", "text" and
// "ntext" as varchar and nvarchar of any length). Returns nothing for any other text.
std::optional<Type> ParseType(std::string_view text);

// Whether the type of that name is declared with a length, as "varchar" is and "text" is not.
bool TakesLength(std::string_view name);

// The type as messages name it: "varchar", "int", "money".
std::string_view TypeName(Type type);

}  // namespace kelvane::tsql
