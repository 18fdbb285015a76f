#include "adapters/tsql/sqlite/sqlite_writer.h"

#include <algorithm>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/sqlite/sqlite_expression_writer.h"
#include "adapters/tsql/sqlite/sqlite_name.h"
#include "adapters/tsql/writer_parts.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

std::string SourceText(const TableSource& source, SqliteExpressionWriter& writer) {
    std::string text;
    switch (source.join) {
        case TableSource::Join::First:
            break;
        case TableSource::Join::Comma:
            text = ", ";
            break;
        case TableSource::Join::Inner:
            text = " inner join ";
            break;
        case TableSource::Join::Left:
            text = " left join ";
            break;
        case TableSource::Join::Cross:
            text = " cross join ";
            break;
    }
    text += QuotedForSqlite(source.info->name) + " as " + QuotedForSqlite(source.CorrelationName());
    return source.on ? text + " on " + writer.Value(*source.on) : text;
}

// What stands behind the columns of a select.
std::string Clauses(const Select& select, SqliteExpressionWriter& writer) {
    std::string text;
    for (const TableSource& source : select.sources) {
        if (text.empty()) text = " from ";
        text += SourceText(source, writer);
    }
    if (select.where) text += " where " + writer.Value(*select.where);
    for (const ExpressionPtr& group : select.groups) {
        text += &group == &select.groups.front() ? " group by " : ", ";
        text += writer.Comparable(*group);
    }
    if (select.having) text += " having " + writer.Value(*select.having);
    for (const OrderItem& order : select.order) {
        text += &order == &select.order.front() ? " order by " : ", ";
        text += writer.Comparable(order.position == 0 ? *order.value
                                                      : *select.items[order.position - 1].value);
        if (order.descending) text += " desc";
    }
    if (select.top) text += " limit " + std::to_string(*select.top);
    return text;
}

std::string QueryText(const Select& query, SqliteExpressionWriter& writer) {
    std::string text = query.distinct ? "select distinct " : "select ";
    const Expression& value = *query.items[0].value;
    // Without regard to letter case a value must be in a distinct result once.
    text += (query.distinct ? writer.Comparable(value) : writer.Value(value)) + " as value";
    return text + Clauses(query, writer);
}

std::string ItemText(const Select& select, const Expression& value,
                     SqliteExpressionWriter& writer) {
    if (value.kind != Kind::Column) {
        return select.distinct ? writer.Comparable(value) : writer.Value(value);
    }
    if (!select.distinct) return SqliteExpressionWriter::StoredColumn(value);
    return writer.Comparable(value);
}

Translated WriteSelect(const Select& select, bool changeable) {
    SqliteExpressionWriter writer(QueryText);
    Translated result;
    std::string text = select.distinct ? "select distinct " : "select ";
    for (const SelectItem& item : select.items) {
        if (&item != &select.items.front()) text += ", ";
        text += ItemText(select, *item.value, writer);
        result.columns.push_back(ResultColumnOf(item));
    }
    if (changeable && select.sources.size() == 1 && !select.distinct && !select.grouped) {
        const TableSource& source = select.sources.front();
        text += ", " + QuotedForSqlite(source.CorrelationName()) + ".rowid";
        result.hasRowIdentity = true;
        result.table = source.info->name;
    }
    result.text = text + Clauses(select, writer);
    result.parameters = writer.TakeParameters();
    return result;
}

Translated Finished(std::string text, SqliteExpressionWriter& writer) {
    Translated result;
    result.text = std::move(text);
    result.parameters = writer.TakeParameters();
    result.canFailMidway = writer.CanFail();
    return result;
}

Translated WriteInsert(const Statement& statement) {
    SqliteExpressionWriter writer(QueryText);
    std::string text = InsertHead(statement);
    if (statement.select) {
        text += statement.select->distinct ? " select distinct " : " select ";
        text += InsertedItems(statement, writer);
        text += Clauses(*statement.select, writer);
    }
    text += InsertedRows(statement, writer);
    return Finished(std::move(text), writer);
}

bool Reads(const Select& query, const TableInfo& table);

// Whether a query within the expression reads the table.
bool Reads(const Expression* expression, const TableInfo& table) {
    if (expression == nullptr) return false;
    return (expression->query && Reads(*expression->query, table)) ||
           std::ranges::any_of(expression->operands, [&](const ExpressionPtr& operand) {
               return Reads(operand.get(), table);
           });
}

bool Reads(const Select& query, const TableInfo& table) {
    const auto reads = [&](const ExpressionPtr& part) { return Reads(part.get(), table); };
    return reads(query.where) || reads(query.having) ||
           std::ranges::any_of(query.items,
                               [&](const SelectItem& item) { return reads(item.value); }) ||
           std::ranges::any_of(query.order,
                               [&](const OrderItem& item) { return reads(item.value); }) ||
           std::ranges::any_of(query.sources, [&](const TableSource& source) {
               return source.info->name == table.name || reads(source.on);
           });
}

// The condition of an update or a delete. One that reads its own table picks the rows beforehand:
// the engine would let it read what has become of earlier rows already.
std::string PickedRows(const Statement& statement, SqliteExpressionWriter& writer) {
    const std::string condition = writer.Value(*statement.where);
    if (!Reads(statement.where.get(), *statement.target.info)) return condition;
    const std::string table = QuotedForSqlite(statement.target.info->name);
    return "rowid in (select rowid from " + table + " where " + condition + ')';
}

// The same of values has no such form.
void RefuseReadingItself(const Statement& update) {
    for (const Assignment& assignment : update.assignments) {
        if (Reads(assignment.value.get(), *update.target.info)) {
            throw NotTranslated("update … set … (select … from the same table)");
        }
    }
}

Translated WriteUpdate(const Statement& statement) {
    RefuseReadingItself(statement);
    SqliteExpressionWriter writer(QueryText);
    std::string text = "update " + QuotedForSqlite(statement.target.info->name);
    text += SetAndWhere(
        statement, writer,
        [](const std::string& column, const std::string& value) {
            return column + " is not " + value + " collate binary";
        },
        [&] { return PickedRows(statement, writer); });
    return Finished(std::move(text), writer);
}

Translated WriteDelete(const Statement& statement) {
    SqliteExpressionWriter writer(QueryText);
    std::string text = "delete from " + QuotedForSqlite(statement.target.info->name);
    if (statement.where) text += " where " + PickedRows(statement, writer);
    return Finished(std::move(text), writer);
}

Translated WriteAny(const Statement& statement, bool changeable) {
    switch (statement.kind) {
        case Statement::Kind::Insert:
            return WriteInsert(statement);
        case Statement::Kind::Update:
            return WriteUpdate(statement);
        case Statement::Kind::Delete:
            return WriteDelete(statement);
        default:
            return WriteSelect(*statement.select, changeable);
    }
}

}  // namespace

Translated SqliteWriter::Write(const Statement& statement, bool changeable) {
    Translated result = WriteAny(statement, changeable);
    result.kind = statement.kind;
    if (statement.kind != Statement::Kind::Select) result.table = statement.target.info->name;
    return result;
}

}  // namespace kelvane::tsql
