#include "adapters/tsql/postgres/postgres_writer.h"

#include <utility>

#include "adapters/tsql/postgres/postgres_conversion.h"
#include "adapters/tsql/postgres/postgres_expression_writer.h"
#include "adapters/tsql/writer_parts.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

// A result column has the type that the driver is to report, not a wider one.
std::string ItemText(const Expression& value, PostgresExpressionWriter& writer) {
    std::string text = writer.Value(value);
    const bool amount = value.type.kind == Type::Kind::Money && value.kind != Kind::Column;
    return amount ? text + "::" + std::string(PostgresType(value.type)) : text;
}

Translated Finished(std::string text, PostgresExpressionWriter& writer) {
    Translated result;
    result.text = std::move(text);
    result.parameters = writer.TakeParameters();
    return result;
}

Translated WriteInsert(const Statement& statement) {
    PostgresExpressionWriter writer;
    std::string text = InsertHead(statement);
    if (statement.select) {
        const PostgresExpressionWriter::Grouping grouping(writer, *statement.select);
        text += " select " + InsertedItems(statement, writer);
        text += writer.Clauses(*statement.select) + writer.Tail(*statement.select);
    }
    text += InsertedRows(statement, writer);
    return Finished(std::move(text), writer);
}

std::string TargetText(const Statement& statement) {
    return QuotedName(statement.target.info->name) + " as " +
           QuotedName(statement.target.CorrelationName());
}

Translated WriteUpdate(const Statement& statement) {
    PostgresExpressionWriter writer;
    const std::string target = QuotedName(statement.target.CorrelationName()) + '.';
    std::string text = "update " + TargetText(statement);
    text += SetAndWhere(
        statement, writer,
        [&](const std::string& column, const std::string& value) {
            return target + column + " is distinct from " + value;
        },
        [&] { return writer.Value(*statement.where); });
    return Finished(std::move(text), writer);
}

Translated WriteDelete(const Statement& statement) {
    PostgresExpressionWriter writer;
    std::string text = "delete from " + TargetText(statement);
    if (statement.where) text += " where " + writer.Value(*statement.where);
    return Finished(std::move(text), writer);
}

}  // namespace

// Rows that an outer join may lack cannot be locked.
std::string PostgresWriter::LockText(const Select& select) const {
    std::string tables;
    for (const TableSource& source : select.sources) {
        if (!mLocks.all && !(mLocks.held && source.held)) continue;
        if (source.join == TableSource::Join::Left) continue;
        tables += (tables.empty() ? "" : ", ") + QuotedName(source.CorrelationName());
    }
    if (tables.empty()) return tables;
    return " for update of " + tables + (mLocks.noWait ? " nowait" : "");
}

Translated PostgresWriter::WriteSelect(const Select& select, bool changeable) const {
    PostgresExpressionWriter writer;
    const std::string lock = LockText(select);
    if (mLocks.only) {
        if (lock.empty()) return {};
        return Finished("select 1" + writer.SourcesAndCondition(select) + lock, writer);
    }
    const PostgresExpressionWriter::Grouping grouping(writer, select);
    Translated result;
    std::string text = "select ";
    for (const SelectItem& item : select.items) {
        if (&item != &select.items.front()) text += ", ";
        text += ItemText(*item.value, writer);
        result.columns.push_back(ResultColumnOf(item));
    }
    const bool plain = !select.distinct && !select.grouped;
    if (changeable && plain && select.sources.size() == 1) {
        const TableSource& source = select.sources.front();
        result.hasRowIdentity = !source.info->rowColumn.empty();
        if (result.hasRowIdentity) {
            result.table = source.info->name;
            text += ", " + QuotedName(source.CorrelationName()) + '.' +
                    QuotedName(source.info->rowColumn);
        }
    }
    text += writer.Clauses(select) + writer.Tail(select);
    if (plain) text += lock;
    result.locksLeft = !plain && !lock.empty();
    result.text = std::move(text);
    result.parameters = writer.TakeParameters();
    return result;
}

Translated PostgresWriter::Write(const Statement& statement, bool changeable) {
    Translated result;
    switch (statement.kind) {
        case Statement::Kind::Insert:
            result = WriteInsert(statement);
            break;
        case Statement::Kind::Update:
            result = WriteUpdate(statement);
            break;
        case Statement::Kind::Delete:
            result = WriteDelete(statement);
            break;
        case Statement::Kind::Select:
            result = WriteSelect(*statement.select, changeable);
            break;
    }
    result.kind = statement.kind;
    if (statement.kind != Statement::Kind::Select) result.table = statement.target.info->name;
    return result;
}

}  // namespace kelvane::tsql
