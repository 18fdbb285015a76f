#include "adapters/tsql/sqlite/sqlite_expression_writer.h"

#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/sqlite/sqlite_name.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

std::string Distinct(const Expression& aggregate) {
    return aggregate.distinct ? "distinct " : "";
}

std::string KindNumber(Type type) {
    return std::to_string(static_cast<int>(type.kind));
}

}  // namespace

std::string SqliteExpressionWriter::AddParameter(const Expression& literal, Parameter::Use use,
                                                 Type type, std::string_view column) {
    mParameters.push_back({literal.literal, literal.negated, type, use, std::string(column)});
    return '?' + std::to_string(mParameters.size());
}

std::string SqliteExpressionWriter::Call(std::string_view function,
                                         std::initializer_list<std::string> arguments) {
    mCanFail = true;
    std::string text = "kelvane_" + std::string(function) + '(';
    for (const std::string& argument : arguments) {
        if (&argument != arguments.begin()) text += ", ";
        text += argument;
    }
    return text + ')';
}

std::string SqliteExpressionWriter::StoredColumn(const Expression& column) {
    return QuotedForSqlite(column.table) + '.' + QuotedForSqlite(column.name);
}

std::string SqliteExpressionWriter::Value(const Expression& expression) {
    if (expression.IsCondition()) return Condition(expression);
    const auto& operands = expression.operands;
    switch (expression.kind) {
        case Kind::Literal:
            return AddParameter(expression, Parameter::Use::Value, expression.type);
        case Kind::Column:
            if (expression.type.kind == Type::Kind::Money) {
                return Call("units", {StoredColumn(expression)});
            }
            if (expression.type.kind == Type::Kind::DateTime) {
                return Call("date", {StoredColumn(expression)});
            }
            return StoredColumn(expression);
        case Kind::Arithmetic: {
            std::string left = Value(*operands[0]);
            std::string right = Value(*operands[1]);
            return Call("arithmetic", {'\'' + expression.symbol + '\'', KindNumber(expression.type),
                                       std::move(left), std::move(right)});
        }
        case Kind::Concatenate: {
            std::string left = Value(*operands[0]);
            return '(' + left + " || " + Value(*operands[1]) + ')';
        }
        case Kind::Function:
        case Kind::Aggregate:
            return CallValue(expression);
        case Kind::Convert:
            return ConvertValue(expression);
        case Kind::Query:
            return QueryValue(*expression.query);
        default:
            return "null";
    }
}

std::string SqliteExpressionWriter::Comparable(const Expression& expression) {
    std::string value = Value(expression);
    return expression.type.IsText() ? value + " collate kelvane_text" : value;
}

std::string SqliteExpressionWriter::Stored(const Expression& expression, Type type,
                                           std::string_view column) {
    if (expression.kind == Kind::Literal) {
        return AddParameter(expression, Parameter::Use::Stored, type, column);
    }
    if (expression.kind == Kind::Null) return "null";
    std::string value = Value(expression);
    if (expression.type.kind != type.kind) {
        const int length = 0;
        value = Call("convert", {std::move(value), KindNumber(expression.type), KindNumber(type),
                                 std::to_string(length), "0"});
    }
    return Call("store", {std::move(value), KindNumber(type), std::to_string(type.length),
                          QuotedText(column)});
}

std::string SqliteExpressionWriter::CallValue(const Expression& call) {
    const auto& operands = call.operands;
    switch (call.builtIn->id) {
        case BuiltIn::IsNull: {
            const std::string first = Value(*operands[0]);
            return "ifnull(" + first + ", " + Value(*operands[1]) + ')';
        }
        case BuiltIn::LTrim:
        case BuiltIn::RTrim:
            return call.name + '(' + Value(*operands[0]) + ", ' ')";
        case BuiltIn::Len:
            return "length(rtrim(" + Value(*operands[0]) + "))";
        case BuiltIn::Count:
        case BuiltIn::Min:
        case BuiltIn::Max:
            if (operands.empty()) return "count(*)";
            return call.name + '(' + Distinct(call) + Comparable(*operands[0]) + ')';
        case BuiltIn::Sum:
        case BuiltIn::Avg:
            return SumValue(call);
    }
    throw NotTranslated(call.name);
}

// The engine's own sums are not exact, and not within the dialect's ranges.
std::string SqliteExpressionWriter::SumValue(const Expression& call) {
    const Expression& operand = *call.operands[0];
    const std::string argument = Distinct(call) + Value(operand);
    const Type::Kind kind = operand.type.kind;
    if (kind == Type::Kind::Float) return call.name + '(' + argument + ')';
    const bool wide = kind == Type::Kind::Money || kind == Type::Kind::BigInt;
    return Call(call.name + (wide ? "" : "_int"), {argument});
}

std::string SqliteExpressionWriter::ConvertValue(const Expression& expression) {
    const Expression& operand = *expression.operands[0];
    if (operand.kind == Kind::Null) return "null";
    return Call("convert",
                {Value(operand), KindNumber(operand.type), KindNumber(expression.type),
                 std::to_string(expression.type.length), std::to_string(expression.style)});
}

std::string SqliteExpressionWriter::QueryValue(const Select& query) {
    const std::string text = mWriteQuery(query, *this);
    const bool oneRow = query.grouped && query.groups.empty();
    if (oneRow) return '(' + text + ')';
    return "(select " + Call("single", {"value"}) + " from (select * from (" + text + ") limit 2))";
}

std::string SqliteExpressionWriter::CompareCondition(const Expression& expression) {
    const Expression& left = *expression.operands[0];
    const Expression& right = *expression.operands[1];
    if (expression.symbol == "=" && left.type.IsText()) {
        const bool swapped = left.kind == Kind::Literal;
        const Expression& column = swapped ? right : left;
        const Expression& literal = swapped ? left : right;
        if (column.kind == Kind::Column && literal.kind == Kind::Literal &&
            literal.form != Literal::Form::CasedText) {
            return "rtrim(" + StoredColumn(column) +
                   ") = " + AddParameter(literal, Parameter::Use::Trimmed, literal.type) +
                   " collate nocase";
        }
    }
    const std::string first = Value(left);
    std::string text = first + ' ' + expression.symbol + ' ' + Comparable(right);
    if (expression.symbol == "=" && left.kind == Kind::Column && right.kind == Kind::Column) {
        if (left.isTextKey) text += KeyRange(left, right);
        if (right.isTextKey) text += KeyRange(right, left);
    }
    return text;
}

// The keys' index knows the letter case of ASCII alone. A key that equals `sought` lies between
// these two, which are one and the same unless other letters with a case are in it.
std::string SqliteExpressionWriter::KeyRange(const Expression& key, const Expression& sought) {
    const std::string indexed = "rtrim(" + StoredColumn(key) + ')';
    const std::string text = StoredColumn(sought);
    return " and " + indexed + " >= kelvane_first_key(" + text + ") collate nocase and " + indexed +
           " <= kelvane_last_key(" + text + ") collate nocase";
}

std::string SqliteExpressionWriter::Condition(const Expression& expression) {
    const auto& operands = expression.operands;
    const std::string negation = expression.negated ? "not " : "";
    switch (expression.kind) {
        case Kind::And:
        case Kind::Or: {
            const std::string left = Condition(*operands[0]);
            const char* word = expression.kind == Kind::And ? " and " : " or ";
            return '(' + left + word + Condition(*operands[1]) + ')';
        }
        case Kind::Not:
            return "(not " + Condition(*operands[0]) + ')';
        case Kind::Compare:
            return '(' + CompareCondition(expression) + ')';
        case Kind::IsNull:
            return '(' + Value(*operands[0]) + " is " + negation + "null)";
        case Kind::Like: {
            const std::string text = Value(*operands[0]);
            const std::string pattern = Value(*operands[1]);
            return '(' + negation + "kelvane_like(" + pattern + ", " + text + "))";
        }
        case Kind::Between: {
            std::string text = '(' + Comparable(*operands[0]) + ' ' + negation + "between ";
            text += Value(*operands[1]);
            text += " and ";
            return text + Value(*operands[2]) + ')';
        }
        case Kind::InList: {
            std::string text = '(' + Comparable(*operands[0]) + ' ' + negation + "in (";
            for (std::size_t i = 1; i < operands.size(); ++i) {
                if (i > 1) text += ", ";
                text += Value(*operands[i]);
            }
            return text + "))";
        }
        case Kind::InQuery: {
            const std::string text = '(' + Comparable(*operands[0]) + ' ' + negation + "in (";
            return text + mWriteQuery(*expression.query, *this) + "))";
        }
        default:
            return "exists (" + mWriteQuery(*expression.query, *this) + ')';
    }
}

}  // namespace kelvane::tsql
