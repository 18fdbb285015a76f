#include "adapters/tsql/language/errors.h"

namespace kelvane::tsql {

namespace {

std::string Quoted(std::string_view text) {
    return "'" + std::string(text) + "'";
}
std::string Name(Type type) {
    return std::string(TypeName(type));
}
DatabaseError InvalidOperand(Type type, const std::string& operation) {
    return DatabaseError("Operand data type " + Name(type) + " is invalid for " + operation + ".",
                         8117);
}

}  // namespace

DatabaseError SyntaxError(std::string_view near) {
    return DatabaseError("Incorrect syntax near " + Quoted(near) + ".", error::kSyntax);
}

DatabaseError UnclosedQuote(std::string_view rest) {
    return DatabaseError("Unclosed quotation mark after the character string " + Quoted(rest) + ".",
                         error::kUnclosedQuote);
}

DatabaseError UnclosedComment() {
    return DatabaseError("Missing end comment mark '*/'.", 113);
}

DatabaseError NotTranslated(std::string_view construct) {
    return DatabaseError("This account's database does not know " + Quoted(construct) + ".",
                         error::kNotTranslated);
}

DatabaseError NestedTooDeeply() {
    return DatabaseError("Some part of the statement is nested too deeply.",
                         error::kNestedTooDeeply);
}

DatabaseError ConditionExpected() {
    return DatabaseError(
        "An expression of non-boolean type specified in a context where a condition is expected.",
        4145);
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

DatabaseError UnknownColumnType(std::string_view table, std::string_view column,
                                std::string_view declared) {
    return DatabaseError("Column " + Quoted(column) + " of table " + Quoted(table) +
                             ": cannot find data type " + Quoted(declared) + ".",
                         2715);
}

DatabaseError NoTableToSelectFrom() {
    return DatabaseError("Must specify table to select from.", 263);
}

DatabaseError NameWithoutTable(std::string_view name) {
    return DatabaseError("The name \"" + std::string(name) +
                             "\" is not permitted in this context. Valid expressions are "
                             "constants, constant expressions, and (in some contexts) variables. "
                             "Column names are not permitted.",
                         128);
}

DatabaseError SameExposedNames(std::string_view name) {
    return DatabaseError("The objects " + Quoted(name) +
                             " in the FROM clause have the same exposed names. Use correlation "
                             "names to distinguish them.",
                         1013);
}

DatabaseError OrderOutOfRange(std::size_t position) {
    return DatabaseError("The ORDER BY position number " + std::to_string(position) +
                             " is out of range of the number of items in the select list.",
                         108);
}

DatabaseError OrderNotSelected() {
    return DatabaseError(
        "ORDER BY items must appear in the select list if SELECT DISTINCT is specified.", 145);
}

DatabaseError OrderInSubQuery() {
    return DatabaseError("The ORDER BY clause is invalid in subqueries unless TOP is specified.",
                         1033);
}

DatabaseError ManySubQueryColumns() {
    return DatabaseError(
        "Only one expression can be specified in the select list when the subquery is not "
        "introduced with EXISTS.",
        116);
}

DatabaseError NotGrouped(std::string_view column) {
    return DatabaseError("Column " + Quoted(column) +
                             " is invalid in the select list because it is not contained in "
                             "either an aggregate function or the GROUP BY clause.",
                         8120);
}

DatabaseError AggregateInWhere() {
    return DatabaseError("An aggregate may not appear in the WHERE clause.", 147);
}

DatabaseError ColumnNamedTwice(std::string_view name) {
    return DatabaseError("The column name " + Quoted(name) +
                             " is specified more than once in the column list of an INSERT.",
                         264);
}

DatabaseError ValueCount(std::size_t columns, std::size_t values) {
    const bool fewer = values < columns;
    return DatabaseError(std::string("There are ") + (fewer ? "more" : "fewer") +
                             " columns in the INSERT statement than values specified in the "
                             "VALUES clause.",
                         fewer ? 109 : 110);
}

DatabaseError InvalidOperator(Type type, std::string_view symbol) {
    return InvalidOperand(type, "operator " + Quoted(symbol));
}

DatabaseError InvalidAggregate(Type type, std::string_view function) {
    return InvalidOperand(type, std::string(function) + " operator");
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

DatabaseError InvalidStyle(int style) {
    return DatabaseError(std::to_string(style) + " is not a valid style number.",
                         error::kInvalidStyle);
}

DatabaseError InvalidDateStyle(int style) {
    return DatabaseError(std::to_string(style) +
                             " is not a valid style number when converting from datetime to a "
                             "character string.",
                         error::kInvalidStyle);
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
