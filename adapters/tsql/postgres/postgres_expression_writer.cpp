#include "adapters/tsql/postgres/postgres_expression_writer.h"

#include <algorithm>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/expression_analyzer.h"
#include "adapters/tsql/language/quoted_text.h"
#include "adapters/tsql/postgres/postgres_conversion.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

std::string Distinct(const Expression& aggregate) {
    return aggregate.distinct ? "distinct " : "";
}

bool IsMoney(Type type) {
    return type.kind == Type::Kind::Money;
}

std::string Key(const std::string& text) {
    return "kelvane_key(" + text + ')';
}

std::string Joined(const std::vector<std::string>& parts) {
    std::string text;
    for (const std::string& part : parts) {
        if (!text.empty()) text += ", ";
        text += part;
    }
    return text;
}

// Amounts are cut off at the fourth decimal, whole numbers at the point.
std::string Quotient(const std::string& dividend, const std::string& divisor, Type type) {
    if (!IsMoney(type)) return "div(" + dividend + ", " + divisor + ')';
    return "(div(" + dividend + " * 10000, " + divisor + ") * 0.0001)";
}

}  // namespace

PostgresExpressionWriter::Grouping::Grouping(PostgresExpressionWriter& writer, const Select& select)
    : mWriter(writer),
      mOuter(std::exchange(writer.mGroups, {})),
      mOuterOrder(std::exchange(writer.mGroupOrder, {})) {
    if (select.distinct) {
        for (const SelectItem& item : select.items) {
            mWriter.mGroups.push_back(Signature(*item.value));
        }
    }
    for (const ExpressionPtr& group : select.groups) mWriter.mGroups.push_back(Signature(*group));
    const std::string order = Joined(RowOrder(select));
    mWriter.mGroupOrder = order.empty() ? "" : " order by " + order;
}

PostgresExpressionWriter::Grouping::~Grouping() {
    mWriter.mGroups = std::move(mOuter);
    mWriter.mGroupOrder = std::move(mOuterOrder);
}

bool PostgresExpressionWriter::IsGroup(const Expression& expression) const {
    return !mGroups.empty() && !IsConstant(expression) &&
           std::find(mGroups.begin(), mGroups.end(), Signature(expression)) != mGroups.end();
}

std::string PostgresExpressionWriter::AddParameter(const Expression& literal, Parameter::Use use,
                                                   Type type, std::string_view column) {
    mParameters.push_back({literal.literal, literal.negated, type, use, std::string(column)});
    return '$' + std::to_string(mParameters.size());
}

std::string PostgresExpressionWriter::Value(const Expression& expression) {
    if (!IsGroup(expression)) return Plain(expression);
    const std::string own = RowsOwn(expression);
    return expression.type.IsText() ? "(array_agg(" + own + mGroupOrder + "))[1]" : own;
}

std::string PostgresExpressionWriter::Plain(const Expression& expression) {
    if (expression.IsCondition()) return Condition(expression);
    const auto& operands = expression.operands;
    switch (expression.kind) {
        case Kind::Literal:
            return AddParameter(expression, Parameter::Use::Value, expression.type);
        case Kind::Column:
            return QuotedName(expression.table) + '.' + QuotedName(expression.name);
        case Kind::Arithmetic:
            return ArithmeticValue(expression);
        case Kind::Concatenate: {
            std::string left = Value(*operands[0]);
            return '(' + std::move(left) + " || " + Value(*operands[1]) + ')';
        }
        case Kind::Function:
            return CallValue(expression);
        case Kind::Aggregate:
            return AggregateValue(expression);
        case Kind::Convert: {
            const Expression& operand = *operands[0];
            if (operand.kind == Kind::Null) return "null";
            return ConvertedInPostgres(Value(operand), operand.type, expression.type,
                                       expression.style);
        }
        case Kind::Query:
            return '(' + Query(*expression.query, Wanted::Value) + ')';
        default:
            return "null";
    }
}

std::string PostgresExpressionWriter::RowsOwn(const Expression& expression) {
    const RowByRow rows(*this);
    return Plain(expression);
}

std::string PostgresExpressionWriter::Comparable(const Expression& expression) {
    if (!expression.type.IsText()) return Value(expression);
    if (expression.kind == Kind::Literal) {
        return AddParameter(expression, Parameter::Use::Key, expression.type);
    }
    return Key(IsGroup(expression) ? RowsOwn(expression) : Value(expression));
}

std::string PostgresExpressionWriter::Stored(const Expression& expression, Type type,
                                             std::string_view column) {
    if (expression.kind == Kind::Literal) {
        return AddParameter(expression, Parameter::Use::Stored, type, column);
    }
    if (expression.kind == Kind::Null) return "null";
    std::string value = ConvertedInPostgres(Value(expression), expression.type, {type.kind, 0}, 0);
    if (!type.IsText() || type.length == 0) return value;
    return "kelvane_store(" + value + ", " + std::to_string(type.length) + ", " +
           QuotedText(TypeName(type)) + ", " + QuotedText(column) + ')';
}

std::string PostgresExpressionWriter::ArithmeticValue(const Expression& expression) {
    const std::string left = Value(*expression.operands[0]);
    const std::string right = Value(*expression.operands[1]);
    const char op = expression.symbol.front();
    const Type type = expression.type;
    if (type.kind == Type::Kind::Float) {
        if (op == '%') throw InvalidOperator(type, expression.symbol);
        return '(' + left + ' ' + op + ' ' + right + ')';
    }
    if (IsMoney(type) && op == '*') {
        return WithinRange("kelvane_product(" + left + ", " + right + ')', type);
    }
    const std::string first = IsMoney(type) ? left : left + "::numeric";
    const std::string second = IsMoney(type) ? right : right + "::numeric";
    if (op == '/') return WithinRange(Quotient(first, second, type), type);
    return WithinRange(first + ' ' + op + ' ' + second, type);
}

std::string PostgresExpressionWriter::CallValue(const Expression& call) {
    const auto& operands = call.operands;
    switch (call.builtIn->id) {
        case BuiltIn::IsNull: {
            const std::string first = Value(*operands[0]);
            return "coalesce(" + first + ", " + Value(*operands[1]) + ')';
        }
        case BuiltIn::LTrim:
        case BuiltIn::RTrim:
            return call.name + '(' + Value(*operands[0]) + ", ' ')";
        case BuiltIn::Len:
            return "char_length(rtrim(" + Value(*operands[0]) + ", ' '))";
        case BuiltIn::Count:
            if (operands.empty()) return "count(*)::int";
            return "count(" + Distinct(call) + Comparable(*operands[0]) + ")::int";
        case BuiltIn::Min:
            return ExtremeValue(call, "");
        case BuiltIn::Max:
            return ExtremeValue(call, " desc");
        case BuiltIn::Sum:
        case BuiltIn::Avg:
            return SumValue(call);
    }
    throw NotTranslated(call.name);
}

// Inside an aggregate a text is each row's own, not the one that stands for the group.
std::string PostgresExpressionWriter::AggregateValue(const Expression& aggregate) {
    const RowByRow rows(*this);
    return CallValue(aggregate);
}

std::string PostgresExpressionWriter::ExtremeValue(const Expression& call,
                                                   const std::string& order) {
    std::string value = Value(*call.operands[0]);
    if (!call.type.IsText()) return call.name + '(' + Distinct(call) + value + ')';
    // A literal has no type of its own there.
    if (IsConstant(*call.operands[0])) value += "::text";
    return "(array_agg(" + value + " order by " + Key(value) + order + ") filter (where " + value +
           " is not null))[1]";
}

std::string PostgresExpressionWriter::SumValue(const Expression& call) {
    const Type type = call.operands[0]->type;
    const std::string argument = '(' + Distinct(call) + Value(*call.operands[0]) + ')';
    if (type.kind == Type::Kind::Float) return call.name + argument;
    const std::string sum = "sum" + argument;
    if (call.builtIn->id == BuiltIn::Sum) return WithinRange(sum, call.type);
    return WithinRange(Quotient(sum + "::numeric", "count" + argument + "::numeric", type),
                       call.type);
}

std::string PostgresExpressionWriter::ListOf(const Expression& expression) {
    std::string text;
    for (std::size_t i = 1; i < expression.operands.size(); ++i) {
        if (i > 1) text += ", ";
        text += Comparable(*expression.operands[i]);
    }
    return text;
}

std::string PostgresExpressionWriter::Condition(const Expression& expression) {
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
        case Kind::Compare: {
            const std::string left = Comparable(*operands[0]);
            return '(' + left + ' ' + expression.symbol + ' ' + Comparable(*operands[1]) + ')';
        }
        case Kind::IsNull:
            return '(' + Value(*operands[0]) + " is " + negation + "null)";
        case Kind::Like: {
            const std::string text = "kelvane_fold(" + Value(*operands[0]) + ')';
            return '(' + negation + text + " ~ kelvane_pattern(" + Value(*operands[1]) + "))";
        }
        case Kind::Between: {
            std::string text = '(' + Comparable(*operands[0]) + ' ' + negation + "between ";
            text += Comparable(*operands[1]);
            text += " and ";
            return text + Comparable(*operands[2]) + ')';
        }
        case Kind::InList: {
            const std::string text = '(' + Comparable(*operands[0]) + ' ' + negation + "in (";
            return text + ListOf(expression) + "))";
        }
        case Kind::InQuery: {
            const std::string text = '(' + Comparable(*operands[0]) + ' ' + negation + "in (";
            return text + Query(*expression.query, Wanted::Comparable) + "))";
        }
        default:
            return "exists (" + Query(*expression.query, Wanted::Value) + ')';
    }
}

}  // namespace kelvane::tsql
