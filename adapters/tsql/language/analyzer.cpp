#include "adapters/tsql/language/analyzer.h"

#include <algorithm>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/expression_analyzer.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

using Kind = Expression::Kind;

class Analyzer {
public:
    explicit Analyzer(Catalog& catalog) : mCatalog(catalog) {}

    void Query(Select& select, const Scope* outer);
    void Insert(Statement& statement);
    void Update(Statement& statement);
    void Delete(Statement& statement);

private:
    void Resolve(TableSource& source) {
        source.info = mCatalog.FindTable(source.name);
        if (!source.info) throw UnknownTable(source.name);
    }

    ExpressionAnalyzer Expressions(const Scope& scope) {
        return {scope, [this](Select& query, const Scope* outer) { Query(query, outer); }};
    }

    void Where(ExpressionPtr& where, const Scope& scope) {
        if (!where) return;
        ExpressionAnalyzer analyzer = Expressions(scope);
        analyzer.RefuseAggregates();
        analyzer.Condition(where);
    }

    static void ExpandStars(Select& select);
    static void ResolveOrder(Select& select, ExpressionAnalyzer& analyzer);
    static void CheckGrouping(const Select& select);

    Catalog& mCatalog;
};

ExpressionPtr ColumnOf(const TableSource& source, const ColumnInfo& info) {
    auto column = std::make_unique<Expression>(Kind::Column);
    column->name = info.name;
    column->qualifier = source.CorrelationName();
    column->table = source.CorrelationName();
    column->type = info.type;
    return column;
}

void Analyzer::ExpandStars(Select& select) {
    std::vector<SelectItem> items;
    for (SelectItem& item : select.items) {
        if (item.value) {
            items.push_back(std::move(item));
            continue;
        }
        const std::size_t before = items.size();
        for (const TableSource& source : select.sources) {
            if (!item.qualifier.empty() &&
                !platform::EqualIgnoringCase(item.qualifier, source.CorrelationName())) {
                continue;
            }
            for (const ColumnInfo& info : source.info->columns) {
                items.push_back({ColumnOf(source, info), "", ""});
            }
        }
        if (items.size() == before) {
            if (item.qualifier.empty()) throw NoTableToSelectFrom();
            throw UnboundName(item.qualifier + ".*");
        }
    }
    select.items = std::move(items);
}

void Analyzer::ResolveOrder(Select& select, ExpressionAnalyzer& analyzer) {
    for (OrderItem& order : select.order) {
        if (order.position > select.items.size()) throw OrderOutOfRange(order.position);
        if (order.position != 0) continue;
        if (order.value->kind == Kind::Column && order.value->qualifier.empty()) {
            for (std::size_t i = 0; i < select.items.size() && order.position == 0; ++i) {
                if (platform::EqualIgnoringCase(select.items[i].alias, order.value->name)) {
                    order.position = i + 1;
                }
            }
            if (order.position != 0) continue;
        }
        analyzer.Value(order.value);
        if (!select.distinct) continue;
        const std::string wanted = Signature(*order.value);
        const bool listed =
            std::any_of(select.items.begin(), select.items.end(),
                        [&](const SelectItem& item) { return Signature(*item.value) == wanted; });
        if (!listed) throw OrderNotSelected();
    }
}

// Every column outside an aggregate must be one the rows are grouped by.
void RequireGrouped(const Expression& expression, const std::vector<std::string>& groups) {
    const std::string signature = Signature(expression);
    if (std::find(groups.begin(), groups.end(), signature) != groups.end() ||
        expression.kind == Kind::Aggregate) {
        return;
    }
    if (expression.kind == Kind::Column) {
        throw NotGrouped(expression.table + '.' + expression.name);
    }
    for (const ExpressionPtr& operand : expression.operands) RequireGrouped(*operand, groups);
}

void Analyzer::CheckGrouping(const Select& select) {
    std::vector<std::string> groups;
    for (const ExpressionPtr& group : select.groups) groups.push_back(Signature(*group));
    for (const SelectItem& item : select.items) RequireGrouped(*item.value, groups);
    if (select.having) RequireGrouped(*select.having, groups);
    for (const OrderItem& order : select.order) {
        if (order.position == 0) RequireGrouped(*order.value, groups);
    }
}

void Analyzer::Query(Select& select, const Scope* outer) {
    for (std::size_t i = 0; i < select.sources.size(); ++i) {
        Resolve(select.sources[i]);
        for (std::size_t other = 0; other < i; ++other) {
            if (!platform::EqualIgnoringCase(select.sources[i].CorrelationName(),
                                             select.sources[other].CorrelationName())) {
                continue;
            }
            throw SameExposedNames(select.sources[i].CorrelationName());
        }
    }
    const Scope scope{&select.sources, outer};
    for (TableSource& source : select.sources) Where(source.on, scope);
    Where(select.where, scope);
    ExpandStars(select);
    ExpressionAnalyzer analyzer = Expressions(scope);
    for (SelectItem& item : select.items) analyzer.Value(item.value);
    for (ExpressionPtr& group : select.groups) {
        ExpressionAnalyzer plain = Expressions(scope);
        plain.RefuseAggregates();
        plain.Value(group);
    }
    if (select.having) analyzer.Condition(select.having);
    ResolveOrder(select, analyzer);
    select.grouped = analyzer.MetAggregate() || !select.groups.empty() || select.having;
    if (select.grouped) CheckGrouping(select);
}

const ColumnInfo& TargetColumn(const TableSource& target, const std::string& name) {
    const ColumnInfo* column = target.info->Find(name);
    if (column == nullptr) throw UnknownColumn(name);
    return *column;
}

// SQL engines that number rows by a column take Null there for "the next number".
void RequireRowNumber(const Statement& statement, const ColumnInfo& column) {
    for (std::size_t i = 0; i < statement.columns.size(); ++i) {
        if (statement.columns[i] != column.name) continue;
        for (const auto& row : statement.values) {
            if (row[i]->kind == Kind::Null) {
                throw NullRefused(statement.target.info->name, column.name);
            }
        }
        return;
    }
    throw NullRefused(statement.target.info->name, column.name);
}

void Analyzer::Insert(Statement& statement) {
    Resolve(statement.target);
    if (statement.columns.empty()) {
        for (const ColumnInfo& column : statement.target.info->columns) {
            statement.columns.push_back(column.name);
        }
    }
    for (std::string& name : statement.columns) {
        const ColumnInfo& column = TargetColumn(statement.target, name);
        name = column.name;
        statement.columnTypes.push_back(column.type);
        if (std::count(statement.columns.begin(), statement.columns.end(), name) > 1) {
            throw ColumnNamedTwice(name);
        }
    }
    const auto requireCount = [&](std::size_t count) {
        if (count != statement.columns.size()) throw ValueCount(statement.columns.size(), count);
    };
    if (statement.select) {
        Query(*statement.select, nullptr);
        requireCount(statement.select->items.size());
    }
    const Scope nothing;
    for (std::vector<ExpressionPtr>& row : statement.values) {
        requireCount(row.size());
        ExpressionAnalyzer analyzer = Expressions(nothing);
        analyzer.RefuseAggregates();
        for (ExpressionPtr& value : row) analyzer.Value(value);
    }
    for (const ColumnInfo& column : statement.target.info->columns) {
        if (column.isRowNumber) RequireRowNumber(statement, column);
    }
}

void Analyzer::Update(Statement& statement) {
    Resolve(statement.target);
    const std::vector<TableSource>* sources = nullptr;
    std::vector<TableSource> own;
    own.push_back(
        {statement.target.name, "", TableSource::Join::First, nullptr, statement.target.info});
    sources = &own;
    const Scope scope{sources, nullptr};
    for (Assignment& assignment : statement.assignments) {
        const ColumnInfo& column = TargetColumn(statement.target, assignment.column);
        assignment.column = column.name;
        assignment.type = column.type;
        ExpressionAnalyzer analyzer = Expressions(scope);
        analyzer.RefuseAggregates();
        analyzer.Value(assignment.value);
    }
    Where(statement.where, scope);
}

void Analyzer::Delete(Statement& statement) {
    Resolve(statement.target);
    std::vector<TableSource> own;
    own.push_back(
        {statement.target.name, "", TableSource::Join::First, nullptr, statement.target.info});
    const Scope scope{&own, nullptr};
    Where(statement.where, scope);
}

}  // namespace

void Analyze(Statement& statement, Catalog& catalog) {
    Analyzer analyzer(catalog);
    switch (statement.kind) {
        case Statement::Kind::Select:
            return analyzer.Query(*statement.select, nullptr);
        case Statement::Kind::Insert:
            return analyzer.Insert(statement);
        case Statement::Kind::Update:
            return analyzer.Update(statement);
        case Statement::Kind::Delete:
            return analyzer.Delete(statement);
    }
}

}  // namespace kelvane::tsql
