// The dialect's own errors: number and text as an operator of the dialect knows them. Every
// refusal of a statement is made here, so that a number has one text.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "adapters/tsql/language/type.h"
#include "platform/database.h"

namespace kelvane::tsql {

using platform::DatabaseError;

namespace error {

inline constexpr int kSyntax = 102;
inline constexpr int kUnclosedQuote = 105;
inline constexpr int kNestedTooDeeply = 191;
inline constexpr int kUnknownFunction = 195;
inline constexpr int kUnknownColumn = 207;
inline constexpr int kUnknownTable = 208;
inline constexpr int kOutOfRangeDate = 242;
inline constexpr int kConversion = 245;
inline constexpr int kInvalidStyle = 281;
inline constexpr int kManyRows = 512;
inline constexpr int kNullRefused = 515;
inline constexpr int kDuplicateKey = 2627;
inline constexpr int kOverflow = 8115;
inline constexpr int kTextTooLong = 8152;
// Of this program: the construct is the dialect's, but nothing here translates it.
inline constexpr int kNotTranslated = 50001;

}  // namespace error

DatabaseError SyntaxError(std::string_view near);
DatabaseError UnclosedQuote(std::string_view rest);
DatabaseError UnclosedComment();
DatabaseError NotTranslated(std::string_view construct);
DatabaseError NestedTooDeeply();
DatabaseError ConditionExpected();

DatabaseError UnknownTable(std::string_view name);
DatabaseError UnknownColumn(std::string_view name);
DatabaseError UnboundName(std::string_view name);
DatabaseError AmbiguousColumn(std::string_view name);
DatabaseError UnknownFunction(std::string_view name);
DatabaseError ArgumentCount(std::string_view function, int wanted);
DatabaseError UnknownColumnType(std::string_view table, std::string_view column,
                                std::string_view declared);

// Of a select's parts and how they fit together.
DatabaseError NoTableToSelectFrom();
DatabaseError NameWithoutTable(std::string_view name);
DatabaseError SameExposedNames(std::string_view name);
DatabaseError OrderOutOfRange(std::size_t position);
DatabaseError OrderNotSelected();
DatabaseError OrderInSubQuery();
DatabaseError ManySubQueryColumns();
DatabaseError NotGrouped(std::string_view column);
DatabaseError AggregateInWhere();

// Of an insert's columns and values.
DatabaseError ColumnNamedTwice(std::string_view name);
DatabaseError ValueCount(std::size_t columns, std::size_t values);

DatabaseError InvalidOperator(Type type, std::string_view symbol);
DatabaseError InvalidAggregate(Type type, std::string_view function);

DatabaseError ConversionFailed(std::string_view value, Type from, Type to);
DatabaseError NotConvertible(Type from, Type to);
DatabaseError ValueOverflow(std::string_view value, Type to);
DatabaseError ArithmeticOverflow(Type to);
DatabaseError DivisionByZero();
DatabaseError OutOfRangeDate();
DatabaseError InvalidStyle(int style);
DatabaseError InvalidDateStyle(int style);
DatabaseError TextTooLong(std::string_view column);

DatabaseError ManyRows();
DatabaseError NullRefused(std::string_view table, std::string_view column);
DatabaseError DuplicateKey(std::string_view table);

}  // namespace kelvane::tsql
