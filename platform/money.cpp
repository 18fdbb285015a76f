#include "platform/money.h"

#include "platform/decimal.h"
#include "platform/exact_integer.h"

namespace kelvane::platform {

namespace {

constexpr int kPlaces = 4;

Money Fitting(std::optional<std::int64_t> units) {
    if (!units) throw MoneyOverflow("金额溢出");
    return Money::FromUnits(*units);
}

Decimal AsDecimal(Money amount) {
    return Decimal::FromScaled(amount.Units(), kPlaces);
}

}  // namespace

Money Money::FromInteger(std::int64_t whole) {
    return Fitting(ExactProduct(whole, kUnitsPerOne));
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
    return Fitting(ExactSum(a.mUnits, b.mUnits));
}

Money operator-(Money a, Money b) {
    return Fitting(ExactDifference(a.mUnits, b.mUnits));
}

Money operator*(Money a, Money b) {
    return Fitting(
        ExactQuotient(a.mUnits, b.mUnits, Money::kUnitsPerOne, Remainder::RoundedHalfToEven));
}

}  // namespace kelvane::platform
