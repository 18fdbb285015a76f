// What the writers of all engines write in the same way: results' columns, inserts and updates. A
// writer of expressions gives the values by Stored(value, type, column) and Value(condition).
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "adapters/tsql/language/quoted_text.h"
#include "adapters/tsql/translation.h"

namespace kelvane::tsql {

// The column of a result that `item` becomes.
ResultColumn ResultColumnOf(const SelectItem& item);

// Whether an update sets nothing but constants.
bool SetsConstants(const Statement& update);

// "insert into T(a, b)".
std::string InsertHead(const Statement& insert);

// " values (…), (…)"; empty for an insert of a select's rows.
template <typename Writer>
std::string InsertedRows(const Statement& insert, Writer& writer) {
    std::string text;
    for (const std::vector<ExpressionPtr>& row : insert.values) {
        text += text.empty() ? " values (" : ", (";
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += ", ";
            text += writer.Stored(*row[i], insert.columnTypes[i], insert.columns[i]);
        }
        text += ')';
    }
    return text;
}

// The items of the select whose rows are inserted, as their columns store them.
template <typename Writer>
std::string InsertedItems(const Statement& insert, Writer& writer) {
    std::string text;
    for (std::size_t i = 0; i < insert.columns.size(); ++i) {
        if (i > 0) text += ", ";
        text +=
            writer.Stored(*insert.select->items[i].value, insert.columnTypes[i], insert.columns[i]);
    }
    return text;
}

// " set a = …" with the condition. Rows that hold the constants already are left alone, so that
// nothing is locked or made durable where nothing changes; `differs` writes that a column, whose
// name is quoted, does not hold a value, and `picks` the statement's condition.
template <typename Writer, typename Differs, typename Picks>
std::string SetAndWhere(const Statement& update, Writer& writer, const Differs& differs,
                        const Picks& picks) {
    std::string text = " set ";
    std::string changes;
    for (const Assignment& assignment : update.assignments) {
        const std::string column = QuotedName(assignment.column);
        const std::string value =
            writer.Stored(*assignment.value, assignment.type, assignment.column);
        if (&assignment != &update.assignments.front()) {
            text += ", ";
            changes += " or ";
        }
        text.append(column).append(" = ").append(value);
        changes += differs(column, value);
    }
    const std::string where = update.where ? picks() : "";
    if (!where.empty()) text += " where " + where;
    if (SetsConstants(update)) {
        text += (where.empty() ? " where (" : " and (") + changes + ')';
    }
    return text;
}

}  // namespace kelvane::tsql
