#include "adapters/tsql/language/expression_analyzer.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

Type CommonType(Type a, Type b) {
    if (a.IsText() && b.IsText()) return {std::max(a.kind, b.kind), 0};
    return a.kind < b.kind ? b : a;
}

// Converts the operands to that of their types which has precedence.
Type Unify(std::vector<ExpressionPtr>& operands) {
    Type common;
    for (const ExpressionPtr& operand : operands) common = CommonType(common, operand->type);
    for (ExpressionPtr& operand : operands) ConvertTo(operand, common);
    return common;
}

// Gives a call whose operands have their types its own, and converts the operands that the function
// takes as another type.
void SetTypeOfCall(Expression& call) {
    switch (call.builtIn->id) {
        case BuiltIn::IsNull: {
            const Type first = call.operands[0]->type;
            const bool untyped = first.kind == Type::Kind::Null;
            call.type = untyped ? call.operands[1]->type : first;
            ConvertTo(call.operands[1], call.type);
            return;
        }
        case BuiltIn::LTrim:
        case BuiltIn::RTrim:
            call.type = {Type::Kind::VarChar, 0};
            ConvertTo(call.operands[0], call.type);
            return;
        case BuiltIn::Len:
            call.type = {Type::Kind::Int, 0};
            ConvertTo(call.operands[0], {Type::Kind::VarChar, 0});
            return;
        case BuiltIn::Count:
            call.type = {Type::Kind::Int, 0};
            return;
        case BuiltIn::Min:
        case BuiltIn::Max:
            call.type = call.operands[0]->type;
            return;
        case BuiltIn::Sum:
        case BuiltIn::Avg: {
            const Type type = call.operands[0]->type;
            if (!type.IsNumber() || type.kind == Type::Kind::Bit) {
                throw InvalidAggregate(type, call.name);
            }
            call.type = type.kind < Type::Kind::Int ? Type{Type::Kind::Int, 0} : type;
            return;
        }
    }
}

std::string FullName(const Expression& column) {
    return column.qualifier.empty() ? column.name : column.qualifier + '.' + column.name;
}

}  // namespace

void ConvertTo(ExpressionPtr& expression, Type type) {
    const Type from = expression->type;
    if (expression->kind == Kind::Null || type.kind == Type::Kind::Null) return;
    if (expression->kind == Kind::Literal) {
        expression->type = type;
        return;
    }
    if (from.kind == type.kind || (from.IsText() && type.IsText()) ||
        (from.IsInteger() && type.IsInteger())) {
        return;
    }
    auto conversion = std::make_unique<Expression>(Kind::Convert);
    conversion->type = type;
    conversion->operands.push_back(std::move(expression));
    expression = std::move(conversion);
}

void ExpressionAnalyzer::Value(ExpressionPtr& expression) {
    if (expression->IsCondition()) throw SyntaxError(expression->symbol);
    switch (expression->kind) {
        case Kind::Column:
            return Column(*expression);
        case Kind::Arithmetic:
            return Arithmetic(*expression);
        case Kind::Function:
        case Kind::Aggregate:
            return Call(*expression);
        case Kind::Convert:
            return Value(expression->operands[0]);
        case Kind::Query:
            OneColumnQuery(*expression->query);
            expression->type = expression->query->items[0].value->type;
            return;
        default:
            return;
    }
}

void ExpressionAnalyzer::Condition(ExpressionPtr& expression) {
    if (!expression->IsCondition()) throw ConditionExpected();
    switch (expression->kind) {
        case Kind::And:
        case Kind::Or:
        case Kind::Not:
            for (ExpressionPtr& operand : expression->operands) Condition(operand);
            return;
        case Kind::Exists:
            return mAnalyzeQuery(*expression->query, &mScope);
        default:
            break;
    }
    for (ExpressionPtr& operand : expression->operands) Value(operand);
    switch (expression->kind) {
        case Kind::Compare:
        case Kind::Between:
        case Kind::InList:
            Unify(expression->operands);
            return;
        case Kind::Like:
            for (ExpressionPtr& operand : expression->operands) {
                if (!operand->type.IsText()) ConvertTo(operand, {Type::Kind::VarChar, 0});
            }
            return;
        case Kind::InQuery: {
            Select& query = *expression->query;
            OneColumnQuery(query);
            const Type common =
                CommonType(expression->operands[0]->type, query.items[0].value->type);
            ConvertTo(expression->operands[0], common);
            ConvertTo(query.items[0].value, common);
            return;
        }
        default:
            return;
    }
}

void ExpressionAnalyzer::OneColumnQuery(Select& query) {
    mAnalyzeQuery(query, &mScope);
    if (query.items.size() != 1) throw ManySubQueryColumns();
    if (!query.order.empty() && !query.top) throw OrderInSubQuery();
}

void ExpressionAnalyzer::Column(Expression& expression) {
    bool knowsTable = false;
    bool hasTables = false;
    for (const Scope* scope = &mScope; scope != nullptr; scope = scope->outer) {
        if (scope->sources == nullptr) continue;
        hasTables = hasTables || !scope->sources->empty();
        const TableSource* found = nullptr;
        const ColumnInfo* column = nullptr;
        for (const TableSource& source : *scope->sources) {
            if (!expression.qualifier.empty() &&
                !platform::EqualIgnoringCase(expression.qualifier, source.CorrelationName())) {
                continue;
            }
            knowsTable = true;
            const ColumnInfo* candidate = source.info->Find(expression.name);
            if (candidate == nullptr) continue;
            if (column != nullptr) throw AmbiguousColumn(expression.name);
            column = candidate;
            found = &source;
        }
        if (column == nullptr) continue;
        mMetOuterColumn = mMetOuterColumn || scope != &mScope;
        expression.table = found->CorrelationName();
        expression.name = column->name;
        expression.type = column->type;
        expression.isTextKey = column->isTextKey;
        return;
    }
    if (!hasTables) throw NameWithoutTable(FullName(expression));
    if (!knowsTable) throw UnboundName(FullName(expression));
    throw UnknownColumn(expression.name);
}

void ExpressionAnalyzer::Arithmetic(Expression& expression) {
    for (ExpressionPtr& operand : expression.operands) Value(operand);
    const Type common = Unify(expression.operands);
    if (common.kind == Type::Kind::DateTime) throw NotTranslated("datetime " + expression.symbol);
    expression.type = common;
    if (common.IsText()) {
        if (expression.symbol != "+") {
            throw InvalidOperator({Type::Kind::VarChar, 0}, expression.symbol);
        }
        expression.kind = Kind::Concatenate;
    } else if (common.IsInteger() && common.kind != Type::Kind::BigInt) {
        expression.type.kind = Type::Kind::Int;
    }
}

void ExpressionAnalyzer::AggregateOperands(Expression& expression) {
    mMetAggregate = true;
    mAggregatesAllowed = false;
    mMetOuterColumn = false;
    for (ExpressionPtr& operand : expression.operands) Value(operand);
    mAggregatesAllowed = true;
    if (mMetOuterColumn) throw NotTranslated(expression.name + " of an outer query's column");
}

void ExpressionAnalyzer::Call(Expression& expression) {
    const BuiltInInfo* builtIn = expression.builtIn;
    if (builtIn == nullptr) throw UnknownFunction(expression.name);
    if (builtIn->isAggregate && !mAggregatesAllowed) throw AggregateInWhere();
    const bool countsRows = builtIn->id == BuiltIn::Count && expression.operands.empty();
    if (!countsRows && expression.operands.size() != builtIn->arguments) {
        throw ArgumentCount(builtIn->name, static_cast<int>(builtIn->arguments));
    }
    if (builtIn->isAggregate) {
        AggregateOperands(expression);
    } else {
        for (ExpressionPtr& operand : expression.operands) Value(operand);
    }
    SetTypeOfCall(expression);
}

bool IsConstant(const Expression& expression) {
    if (expression.kind == Kind::Column || expression.kind == Kind::Aggregate || expression.query) {
        return false;
    }
    return std::all_of(expression.operands.begin(), expression.operands.end(),
                       [](const ExpressionPtr& operand) { return IsConstant(*operand); });
}

std::string Signature(const Expression& expression) {
    std::string text = std::to_string(static_cast<int>(expression.kind)) + expression.name + '|' +
                       expression.symbol + '|' + platform::LowerAscii(expression.table) + '|' +
                       std::to_string(expression.literal) + (expression.negated ? "-" : "+") +
                       (expression.distinct ? "d" : "") + std::string(TypeName(expression.type)) +
                       std::to_string(expression.style);
    for (const ExpressionPtr& operand : expression.operands) {
        text += '(' + Signature(*operand) + ')';
    }
    // Two sub-queries never count as the same expression.
    if (expression.query) text += std::to_string(reinterpret_cast<std::uintptr_t>(&expression));
    return text;
}

}  // namespace kelvane::tsql
