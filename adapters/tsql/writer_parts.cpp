#include "adapters/tsql/writer_parts.h"

#include <algorithm>

namespace kelvane::tsql {

using Kind = Expression::Kind;

ResultColumn ResultColumnOf(const SelectItem& item) {
    ResultColumn column{item.alias, item.value->type, ""};
    if (item.value->kind == Kind::Column) {
        column.baseColumn = item.value->name;
        if (column.name.empty()) column.name = item.value->name;
    }
    return column;
}

bool SetsConstants(const Statement& update) {
    return std::ranges::all_of(update.assignments, [](const Assignment& assignment) {
        return assignment.value->kind == Kind::Literal || assignment.value->kind == Kind::Null;
    });
}

std::string InsertHead(const Statement& insert) {
    std::string text = "insert into " + QuotedName(insert.target.info->name) + '(';
    for (const std::string& column : insert.columns) {
        if (&column != &insert.columns.front()) text += ", ";
        text += QuotedName(column);
    }
    return text + ')';
}

}  // namespace kelvane::tsql
