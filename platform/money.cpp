#include "platform/money.h"

#include <limits>

#include "platform/decimal.h"

namespace kelvane::platform {

namespace {

constexpr int kPlaces = 4;

__extension__ typedef __int128 Wide;

Money Narrowed(Wide units) {
    if (units > std::numeric_limits<std::int64_t>::max() ||
        units < std::numeric_limits<std::int64_t>::min())
        throw MoneyOverflow("金额溢出");
    return Money::FromUnits(static_cast<std::int64_t>(units));
}

Wide DividedHalfToEven(Wide dividend, Wide divisor) {
    const Wide quotient = dividend / divisor;
    const Wide remainder = dividend % divisor;
    const Wide twice = 2 * (remainder < 0 ? -remainder : remainder);
    const bool roundsAway = twice > divisor || (twice == divisor && quotient % 2 != 0);
    if (!roundsAway) return quotient;
    return dividend < 0 ? quotient - 1 : quotient + 1;
}

Decimal AsDecimal(Money amount) {
    return Decimal::FromScaled(amount.Units(), kPlaces);
}

}  // namespace

Money Money::FromInteger(std::int64_t whole) {
    return Narrowed(Wide{whole} * kUnitsPerOne);
}

Money Money::FromText(std::string_view text) {
    const auto number = Decimal::FromText(text);
    if (!number) throw MoneyTextError("不是金额：" + std::string(text));
    const auto units = number->Scaled(kPlaces, Rounding::HalfToEven);
    if (!units) throw MoneyOverflow("金额溢出：" + std::string(text));
    return Money(*units);
}

std::string Money::ToText() const {
    return AsDecimal(*this).Text();
}

std::string Money::ToFixedText() const {
    return AsDecimal(*this).FixedText(kPlaces);
}

Money operator+(Money a, Money b) {
    return Narrowed(Wide{a.mUnits} + b.mUnits);
}

Money operator-(Money a, Money b) {
    return Narrowed(Wide{a.mUnits} - b.mUnits);
}

Money operator*(Money a, Money b) {
    return Narrowed(DividedHalfToEven(Wide{a.mUnits} * b.mUnits, Money::kUnitsPerOne));
}

}  // namespace kelvane::platform
