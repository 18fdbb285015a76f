#include "adapters/tsql/postgres_writer.h"

#include <algorithm>
#include <utility>

#include "adapters/tsql/postgres_conversion.h"
#include "adapters/tsql/postgres_expression_writer.h"
#include "adapters/tsql/quoted_text.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

// A result column has the type that the driver is to report, not a wider one.
std::string ItemText(const Expression& value, PostgresExpressionWriter& writer) {
    std::string text = writer.Value(value);
    const bool amount = value.type.kind == Type::Kind::Money && value.kind != Kind::Column;
    return amount ? text + "::" + std::string(PostgresType(value.type)) : text;
}

ResultColumn ColumnOf(const SelectItem& item) {
    ResultColumn column{item.alias, item.value->type, ""};
    if (item.value->kind == Kind::Column) {
        column.baseColumn = item.value->name;
        if (column.name.empty()) column.name = item.value->name;
    }
    return column;
}

Translated Finished(std::string text, PostgresExpressionWriter& writer) {
    Translated result;
    result.text = std::move(text);
    result.parameters = writer.TakeParameters();
    return result;
}

Translated WriteInsert(const Statement& statement) {
    PostgresExpressionWriter writer;
    std::string text = "insert into " + QuotedName(statement.target.info->name) + '(';
    for (const std::string& column : statement.columns) {
        if (&column != &statement.columns.front()) text += ", ";
        text += QuotedName(column);
    }
    text += ')';
    const auto addValue = [&](std::size_t place, const Expression& value) {
        if (place > 0) text += ", ";
        text += writer.Stored(value, statement.columnTypes[place], statement.columns[place]);
    };
    if (statement.select) {
        const PostgresExpressionWriter::Grouping grouping(writer, *statement.select);
        text += " select ";
        for (std::size_t i = 0; i < statement.columns.size(); ++i) {
            addValue(i, *statement.select->items[i].value);
        }
        text += writer.Clauses(*statement.select) + writer.Tail(*statement.select);
    }
    for (const std::vector<ExpressionPtr>& row : statement.values) {
        text += &row == &statement.values.front() ? " values (" : ", (";
        for (std::size_t i = 0; i < row.size(); ++i) addValue(i, *row[i]);
        text += ')';
    }
    return Finished(std::move(text), writer);
}

bool IsConstant(const Assignment& assignment) {
    return assignment.value->kind == Kind::Literal || assignment.value->kind == Kind::Null;
}

std::string TargetText(const Statement& statement) {
    return QuotedName(statement.target.info->name) + " as " +
           QuotedName(statement.target.CorrelationName());
}

Translated WriteUpdate(const Statement& statement) {
    PostgresExpressionWriter writer;
    std::string text = "update " + TargetText(statement) + " set ";
    std::string differs;
    for (const Assignment& assignment : statement.assignments) {
        const std::string column = QuotedName(assignment.column);
        const std::string value =
            writer.Stored(*assignment.value, assignment.type, assignment.column);
        if (&assignment != &statement.assignments.front()) {
            text += ", ";
            differs += " or ";
        }
        text.append(column).append(" = ").append(value);
        differs.append(QuotedName(statement.target.CorrelationName()))
            .append(".")
            .append(column)
            .append(" is distinct from ")
            .append(value);
    }
    const std::string where = statement.where ? writer.Value(*statement.where) : "";
    // Rows that hold the constants already are left alone: no new version of the row, no lock.
    const bool constant =
        std::all_of(statement.assignments.begin(), statement.assignments.end(), IsConstant);
    if (!where.empty()) text += " where " + where;
    if (constant) text += (where.empty() ? " where (" : " and (") + differs + ')';
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
        result.columns.push_back(ColumnOf(item));
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
