// Selects for PostgreSQL, also those inside of expressions.
#include <algorithm>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/expression_analyzer.h"
#include "adapters/tsql/language/quoted_text.h"
#include "adapters/tsql/postgres/postgres_expression_writer.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

std::string_view JoinText(TableSource::Join join) {
    switch (join) {
        case TableSource::Join::Comma:
            return ", ";
        case TableSource::Join::Inner:
            return " inner join ";
        case TableSource::Join::Left:
            return " left join ";
        case TableSource::Join::Cross:
            return " cross join ";
        default:
            return "";
    }
}

bool IsColumnOf(const Expression& expression, const TableSource& source) {
    return expression.kind == Kind::Column &&
           platform::EqualIgnoringCase(expression.table, source.CorrelationName());
}

// Whether the condition compares a column of the table with a constant: it picks the table's rows.
bool Picks(const Expression* condition, const TableSource& source) {
    if (condition == nullptr) return false;
    const auto& operands = condition->operands;
    if (condition->kind == Kind::And) {
        return Picks(operands[0].get(), source) || Picks(operands[1].get(), source);
    }
    if (condition->kind != Kind::Compare || condition->symbol != "=") return false;
    return (IsColumnOf(*operands[0], source) && operands[1]->kind == Kind::Literal) ||
           (IsColumnOf(*operands[1], source) && operands[0]->kind == Kind::Literal);
}

bool IsPicked(const TableSource& source, const Select& select) {
    return Picks(select.where.get(), source) ||
           std::any_of(select.sources.begin(), select.sources.end(),
                       [&](const TableSource& other) { return Picks(other.on.get(), source); });
}

}  // namespace

// The rows of the tables that the condition picks from come first, then those of the others.
std::vector<std::string> PostgresExpressionWriter::RowOrder(const Select& select) {
    std::vector<std::string> first;
    std::vector<std::string> rest;
    for (const TableSource& source : select.sources) {
        if (source.info->rowColumn.empty()) continue;
        std::string row = QuotedName(source.CorrelationName());
        row += '.' + QuotedName(source.info->rowColumn);
        (IsPicked(source, select) ? first : rest).push_back(std::move(row));
    }
    first.insert(first.end(), rest.begin(), rest.end());
    return first;
}

// Rows are not grouped yet where they are picked.
std::string PostgresExpressionWriter::SourcesAndCondition(const Select& select) {
    const RowByRow rows(*this);
    std::string text;
    for (const TableSource& source : select.sources) {
        text += text.empty() ? " from " : JoinText(source.join);
        text += QuotedName(source.info->name) + " as " + QuotedName(source.CorrelationName());
        if (source.on) text += " on " + Condition(*source.on);
    }
    if (select.where) text += " where " + Condition(*select.where);
    return text;
}

// The dialect sorts Nulls first. What the statement leaves open is settled by the order of the rows
// or of the groups, so that the same rows always come in the same order.
std::string PostgresExpressionWriter::Tail(const Select& select) {
    std::vector<std::string> order;
    for (const OrderItem& item : select.order) {
        const Expression& value =
            item.position == 0 ? *item.value : *select.items[item.position - 1].value;
        // A number there would be a column's place.
        if (IsConstant(value)) continue;
        order.push_back(Comparable(value) +
                        (item.descending ? " desc nulls last" : " nulls first"));
    }
    const std::vector<std::string> rows = RowOrder(select);
    if (select.distinct && !rows.empty()) {
        std::string first;
        for (const std::string& row : rows) first += (first.empty() ? "" : ", ") + row;
        order.push_back("min(" + (rows.size() == 1 ? first : "array[" + first + ']') + ')');
    } else if (!select.grouped) {
        order.insert(order.end(), rows.begin(), rows.end());
    }
    for (const ExpressionPtr& group : select.groups) {
        if (!IsConstant(*group)) order.push_back(Comparable(*group) + " nulls first");
    }
    std::string text;
    for (const std::string& item : order) text += (text.empty() ? " order by " : ", ") + item;
    if (select.top) text += " limit " + std::to_string(*select.top);
    return text;
}

std::string PostgresExpressionWriter::Clauses(const Select& select) {
    if (select.distinct && select.grouped) throw NotTranslated("distinct … group by");
    std::string text = SourcesAndCondition(select);
    std::string groups;
    const auto addGroup = [&](const Expression& value) {
        // A number there would be a column's place.
        if (IsConstant(value)) return;
        const RowByRow rows(*this);
        groups += (groups.empty() ? "" : ", ") + Comparable(value);
    };
    for (const SelectItem& item : select.items) {
        if (select.distinct) addGroup(*item.value);
    }
    for (const ExpressionPtr& group : select.groups) addGroup(*group);
    // All rows are one group then, and no rows none.
    const bool oneGroup = groups.empty() && (select.distinct || !select.groups.empty());
    if (oneGroup) groups = "(1 = 1)";
    if (!groups.empty()) text += " group by " + groups;
    if (select.having) text += " having " + Condition(*select.having);
    return text;
}

std::string PostgresExpressionWriter::Query(const Select& query, Wanted wanted) {
    const Grouping grouping(*this, query);
    const Expression& value = *query.items[0].value;
    std::string text = "select ";
    text += wanted == Wanted::Comparable ? Comparable(value) : Value(value);
    text += Clauses(query);
    return query.top ? text + Tail(query) : text;
}

}  // namespace kelvane::tsql
