#include "platform/value.h"

#include <charconv>
#include <stdexcept>

#include "platform/decimal.h"

namespace kelvane::platform {

namespace {

template <typename... Handlers>
struct Overloaded : Handlers... {
    using Handlers::operator()...;
};
template <typename... Handlers>
Overloaded(Handlers...) -> Overloaded<Handlers...>;

[[noreturn]] void RefuseDate() {
    throw std::invalid_argument("日期不是数字");
}

Decimal FiniteDecimal(double number) {
    const auto decimal = Decimal::FromDouble(number);
    if (!decimal) throw std::range_error("数字溢出");
    return *decimal;
}

std::int64_t WholeOf(const Decimal& number) {
    const auto whole = number.Scaled(0, Rounding::HalfToEven);
    if (!whole) throw std::range_error("数字溢出：" + number.Text());
    return *whole;
}

double DoubleOf(const Decimal& number) {
    const std::string text = number.Text();
    double result = 0;
    const auto answer = std::from_chars(text.data(), text.data() + text.size(), result);
    if (answer.ec != std::errc{}) throw std::range_error("数字溢出：" + text);
    return result;
}

Decimal DecimalOf(Money amount) {
    return Decimal::FromScaled(amount.Units(), 4);
}

}  // namespace

std::string Value::ToText() const {
    return std::visit(
        Overloaded{[](std::monostate) { return std::string(); },
                   [](std::int64_t integer) { return std::to_string(integer); },
                   [](double number) { return FiniteDecimal(number).Text(); },
                   [](Money amount) { return amount.ToText(); },
                   [](const DateTime& date) {
                       const bool isMidnight = date == DateTime{date.year, date.month, date.day};
                       return isMidnight ? date.DateText() : date.FullText();
                   },
                   [](const std::string& text) { return text; }},
        mContent);
}

std::int64_t Value::ToInteger() const {
    return std::visit(
        Overloaded{[](std::monostate) -> std::int64_t { return 0; },
                   [](std::int64_t integer) { return integer; },
                   [](double number) { return WholeOf(FiniteDecimal(number)); },
                   [](Money amount) { return WholeOf(DecimalOf(amount)); },
                   [](const DateTime&) -> std::int64_t { RefuseDate(); },
                   [](const std::string& text) { return WholeOf(Decimal::LeadingOf(text)); }},
        mContent);
}

Money Value::ToMoney() const {
    return std::visit(
        Overloaded{
            [](std::monostate) { return Money(); },
            [](std::int64_t integer) { return Money::FromInteger(integer); },
            [](double number) {
                const auto decimal = Decimal::FromDouble(number);
                if (!decimal) throw MoneyOverflow("数字溢出");
                return Money::FromText(decimal->Text());
            },
            [](Money amount) { return amount; },
            [](const DateTime&) -> Money { throw MoneyTextError("日期不是金额"); },
            [](const std::string& text) { return text.empty() ? Money() : Money::FromText(text); }},
        mContent);
}

double Value::ToDouble() const {
    return std::visit(
        Overloaded{[](std::monostate) { return 0.0; },
                   [](std::int64_t integer) { return static_cast<double>(integer); },
                   [](double number) { return number; },
                   [](Money amount) { return DoubleOf(DecimalOf(amount)); },
                   [](const DateTime&) -> double { RefuseDate(); },
                   [](const std::string& text) { return DoubleOf(Decimal::LeadingOf(text)); }},
        mContent);
}

DateTime Value::ToDateTime() const {
    if (const auto* date = As<DateTime>()) return *date;
    DateTime result;
    const auto* text = As<std::string>();
    if (!text || !DateTime::Parse(*text, result))
        throw std::invalid_argument("不是日期：" + ToText());
    return result;
}

}  // namespace kelvane::platform
