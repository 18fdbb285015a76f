// Money: the amount type of the account database, a 64-bit fixed-point number with four decimals.
// No binary floating point takes part in any operation, so sums and comparisons are exact.
#pragma once

#include <compare>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace kelvane::platform {

// An amount does not fit in 64-bit fixed point. Thrown by every operation that would wrap.
class MoneyOverflow : public std::range_error {
public:
    using std::range_error::range_error;
};

// A text is not an amount.
class MoneyTextError : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

class Money {
public:
    static constexpr std::int64_t kUnitsPerOne = 10000;

    constexpr Money() = default;

    // `units`: the amount in ten-thousandths.
    static constexpr Money FromUnits(std::int64_t units) { return Money(units); }

    // Throws MoneyOverflow when `whole` does not fit.
    static Money FromInteger(std::int64_t whole);

    // Converts display or database text: leading and trailing blanks, one sign, grouping commas in
    // the integer part, a decimal point and an exponent are understood ("1,234.50", "-.5", "1e3").
    // More than four decimals are rounded half to even. Throws MoneyTextError when the text is not
    // a number and MoneyOverflow when it does not fit.
    static Money FromText(std::string_view text);

    constexpr std::int64_t Units() const { return mUnits; }
    constexpr bool IsZero() const { return mUnits == 0; }

    // Plain decimal text without grouping and without trailing zeros: "1234.5", "-0.0001", "12".
    std::string ToText() const;
    // The same with exactly four decimals: "1234.5000".
    std::string ToFixedText() const;

    // Checked arithmetic; each throws MoneyOverflow instead of wrapping. The product is rounded
    // half to even at the fourth decimal.
    friend Money operator+(Money a, Money b);
    friend Money operator-(Money a, Money b);
    friend Money operator*(Money a, Money b);
    Money& operator+=(Money other) { return *this = *this + other; }

    friend constexpr bool operator==(Money a, Money b) = default;
    friend constexpr std::strong_ordering operator<=>(Money a, Money b) {
        return a.mUnits <=> b.mUnits;
    }

private:
    constexpr explicit Money(std::int64_t units) : mUnits(units) {}

    std::int64_t mUnits = 0;
};

}  // namespace kelvane::platform
