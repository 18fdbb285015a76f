#include "adapters/tsql/language/errors.h"

namespace kelvane::tsql {

namespace {

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}
std::string Name(Type type) {
    return std::string(TypeName(type));
}

}  // namespace

DatabaseError SyntaxError(std::string_view near) {
    return DatabaseError("Incorrect syntax near " + Quoted(near) + ".", error::kSyntax);
}

DatabaseError UnclosedQuote(std::string_view rest) {
    return DatabaseError("Unclosed quotation mark after the character string " + Quoted(rest) + ".",
                         error::kUnclosedQuote);
}

DatabaseError NotTranslated(std::string_view construct) {
    return DatabaseError("This account's database does not know " + Quoted(construct) + ".",
                         error::kNotTranslated);
}

DatabaseError NestedTooDeeply() {
    return DatabaseError("Some part of the statement is nested too deeply.",
                         error::kNestedTooDeeply);
}

DatabaseError UnknownTable(std::string_view name) {
    return DatabaseError("Invalid object name " + Quoted(name) + ".", error::kUnknownTable);
}

DatabaseError UnknownColumn(std::string_view name) {
    return DatabaseError("Invalid column name " + Quoted(name) + ".", error::kUnknownColumn);
}

DatabaseError UnboundName(std::string_view name) {
    return DatabaseError(
        "The multi-part identifier \"" + std::string(name) + "\" could not be bound.", 4104);
}

DatabaseError AmbiguousColumn(std::string_view name) {
    return DatabaseError("Ambiguous column name " + Quoted(name) + ".", 209);
}

DatabaseError UnknownFunction(std::string_view name) {
    return DatabaseError(Quoted(name) + " is not a recognized built-in function name.",
                         error::kUnknownFunction);
}

DatabaseError ArgumentCount(std::string_view function, int wanted) {
    return DatabaseError("The " + std::string(function) + " function requires " +
                             std::to_string(wanted) + " argument(s).",
                         174);
}

DatabaseError ConversionFailed(std::string_view value, Type from, Type to) {
    switch (to.kind) {
        case Type::Kind::DateTime:
            return DatabaseError(
                "Conversion failed when converting date and/or time from character string.", 241);
        case Type::Kind::Money:
            return DatabaseError("Cannot convert the text " + Quoted(value) +
                                     " to money. The text has incorrect syntax.",
                                 235);
        case Type::Kind::Float:
            return DatabaseError("Error converting data type " + Name(from) + " to float.", 8114);
        default:
            return DatabaseError("Conversion failed when converting the " + Name(from) + " value " +
                                     Quoted(value) + " to data type " + Name(to) + ".",
                                 error::kConversion);
    }
}

DatabaseError NotConvertible(Type from, Type to) {
    return DatabaseError(
        "Implicit conversion from data type " + Name(from) + " to " + Name(to) + " is not allowed.",
        257);
}

DatabaseError ValueOverflow(std::string_view value, Type to) {
    const bool small = to.kind == Type::Kind::TinyInt || to.kind == Type::Kind::SmallInt;
    return DatabaseError("The value " + Quoted(value) + " overflowed data type " + Name(to) + ".",
                         to.kind == Type::Kind::Int ? 248 : (small ? 244 : error::kOverflow));
}

DatabaseError ArithmeticOverflow(Type to) {
    return DatabaseError(
        "Arithmetic overflow error converting expression to data type " + Name(to) + ".",
        error::kOverflow);
}

DatabaseError DivisionByZero() {
    return DatabaseError("Divide by zero error encountered.", 8134);
}

DatabaseError OutOfRangeDate() {
    return DatabaseError(
        "The conversion of a varchar data type to a datetime data type resulted in an out-of-range "
        "value.",
        error::kOutOfRangeDate);
}

DatabaseError TextTooLong(std::string_view column) {
    return DatabaseError(
        "String or binary data would be truncated in column " + Quoted(column) + ".",
        error::kTextTooLong);
}

DatabaseError ManyRows() {
    return DatabaseError(
        "Subquery returned more than 1 value. This is not permitted when the subquery follows =, "
        "!=, <, <=, >, >= or when the subquery is used as an expression.",
        error::kManyRows);
}

DatabaseError NullRefused(std::string_view table, std::string_view column) {
    return DatabaseError("Cannot insert the value NULL into column " + Quoted(column) + ", table " +
                             Quoted(table) + "; column does not allow nulls.",
                         error::kNullRefused);
}

DatabaseError DuplicateKey(std::string_view table) {
    return DatabaseError(
        "Violation of the key of table " + Quoted(table) + ". Cannot insert duplicate key.",
        error::kDuplicateKey);
}

}  // namespace kelvane::tsql
