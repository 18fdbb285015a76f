#include "data/text_conversion.h"

#include <limits>
#include <stdexcept>

#include "platform/blanks.h"
#include "platform/value.h"

namespace kelvane::data {

using platform::Decimal;

namespace {

std::string DisplayNumber(std::string_view text) {
    return "0" + std::string(text);
}

Decimal WholeNumberText(const std::string& text) {
    const auto number = Decimal::FromText(text);
    if (!number) throw std::invalid_argument("不是数字：" + text);
    return *number;
}

}  // namespace

std::string Trim(std::string_view text) {
    return std::string(platform::WithoutOuterBlanks(text));
}

Decimal LeadingNumber(std::string_view text) {
    return Decimal::LeadingOf(text);
}

bool IsNumericText(std::string_view text) {
    return Decimal::FromText(text).has_value();
}

std::int64_t RoundHalfEven(const Decimal& number) {
    const auto whole = number.Scaled(0, platform::Rounding::HalfToEven);
    if (!whole) throw std::range_error("数字溢出：" + number.Text());
    return *whole;
}

std::int16_t ShortInteger(std::int64_t number) {
    using Limits = std::numeric_limits<std::int16_t>;
    if (number < Limits::min() || number > Limits::max())
        throw std::range_error("数字溢出：" + std::to_string(number));
    return static_cast<std::int16_t>(number);
}

std::int16_t ShortIntegerOf(std::string_view text) {
    return ShortInteger(RoundHalfEven(WholeNumberText(std::string(text))));
}

platform::Money MoneyOfDisplay(std::string_view text) {
    return platform::Money::FromText(DisplayNumber(text));
}

double DoubleOfDisplay(std::string_view text) {
    return platform::Value(WholeNumberText(DisplayNumber(text)).Text()).ToDouble();
}

}  // namespace kelvane::data
