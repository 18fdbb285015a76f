// Writes the expressions of a statement for SQLite and collects the parameters on the way.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/tsql/translation.h"

namespace kelvane::tsql {

class SqliteExpressionWriter {
public:
    using WriteQuery = std::string (*)(const Select& query, SqliteExpressionWriter& writer);

    explicit SqliteExpressionWriter(WriteQuery writeQuery) : mWriteQuery(writeQuery) {}

    // The expression's value as the conversions represent it, or the condition.
    std::string Value(const Expression& expression);
    // The same, for texts with the dialect's collation: to sort, group and compare by.
    std::string Comparable(const Expression& expression);
    // The expression as a column of `type` named `column` stores it.
    std::string Stored(const Expression& expression, Type type, std::string_view column);
    // The value for a result: a plain column as it is stored.
    static std::string StoredColumn(const Expression& column);

    std::vector<Parameter> TakeParameters() { return std::move(mParameters); }
    bool CanFail() const { return mCanFail; }

private:
    std::string AddParameter(const Expression& literal, Parameter::Use use, Type type,
                             std::string_view column = "");
    std::string Call(std::string_view function, std::initializer_list<std::string> arguments);
    std::string CallValue(const Expression& call);
    std::string SumValue(const Expression& call);
    std::string ConvertValue(const Expression& expression);
    std::string QueryValue(const Select& query);
    std::string CompareCondition(const Expression& expression);
    static std::string KeyRange(const Expression& key, const Expression& sought);
    std::string Condition(const Expression& expression);

    WriteQuery mWriteQuery;
    std::vector<Parameter> mParameters;
    bool mCanFail = false;
};

}  // namespace kelvane::tsql
