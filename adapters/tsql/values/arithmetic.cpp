#include "adapters/tsql/values/arithmetic.h"

#include <limits>
#include <optional>
#include <string>

#include "adapters/tsql/language/errors.h"
#include "platform/exact_integer.h"
#include "platform/money.h"

namespace kelvane::tsql {

namespace {

using platform::Money;
using platform::Remainder;

std::int64_t Fitting(std::optional<std::int64_t> value, Type type) {
    if (!value) throw ArithmeticOverflow(type);
    return CheckedRange(*value, type);
}

std::int64_t Whole(char op, Type type, std::int64_t a, std::int64_t b) {
    const bool money = type.kind == Type::Kind::Money;
    if ((op == '/' || op == '%') && b == 0) throw DivisionByZero();
    switch (op) {
        case '+':
            return Fitting(platform::ExactSum(a, b), type);
        case '-':
            return Fitting(platform::ExactDifference(a, b), type);
        case '*':
            if (!money) return Fitting(platform::ExactProduct(a, b), type);
            try {
                return (Money::FromUnits(a) * Money::FromUnits(b)).Units();
            } catch (const platform::MoneyOverflow&) {
                throw ArithmeticOverflow(type);
            }
        case '/':
            return Fitting(
                platform::ExactQuotient(a, money ? Money::kUnitsPerOne : 1, b, Remainder::CutOff),
                type);
        default:
            // The machine's own remainder fails where the quotient would not fit.
            return CheckedRange(b == -1 ? 0 : a % b, type);
    }
}

double Real(char op, double a, double b) {
    switch (op) {
        case '+':
            return a + b;
        case '-':
            return a - b;
        case '*':
            return a * b;
        case '/':
            if (b == 0) throw DivisionByZero();
            return a / b;
        default:
            throw InvalidOperator({Type::Kind::Float, 0}, std::string_view(&op, 1));
    }
}

}  // namespace

std::int64_t CheckedRange(std::int64_t value, Type type) {
    const bool isInt = type.kind == Type::Kind::Int;
    if (isInt && (value > std::numeric_limits<std::int32_t>::max() ||
                  value < std::numeric_limits<std::int32_t>::min())) {
        throw ArithmeticOverflow(type);
    }
    return value;
}

std::int64_t CheckedSum(std::int64_t a, std::int64_t b, Type type) {
    return Fitting(platform::ExactSum(a, b), type);
}

Datum Arithmetic(char op, Type type, const Datum& a, const Datum& b) {
    if (std::holds_alternative<std::monostate>(a) || std::holds_alternative<std::monostate>(b)) {
        return {};
    }
    if (type.kind == Type::Kind::Float) return Real(op, std::get<double>(a), std::get<double>(b));
    return Whole(op, type, std::get<std::int64_t>(a), std::get<std::int64_t>(b));
}

}  // namespace kelvane::tsql
