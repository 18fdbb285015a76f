// ExactSum: a sum of amounts that may go beyond what one amount can be.
#pragma once

#include <compare>
#include <cstdint>
#include <string>

#include "platform/money.h"

namespace kelvane::entries {

// Four decimals, exact for any number of amounts that an account can hold.
class ExactSum {
public:
    ExactSum() = default;
    explicit ExactSum(platform::Money amount);

    ExactSum& operator+=(const ExactSum& other);
    ExactSum& operator-=(const ExactSum& other);
    friend bool operator==(const ExactSum&, const ExactSum&) = default;
    friend std::strong_ordering operator<=>(const ExactSum& a, const ExactSum& b);
    friend ExactSum operator+(ExactSum a, const ExactSum& b) { return a += b; }
    friend ExactSum operator-(ExactSum a, const ExactSum& b) { return a -= b; }

    bool IsZero() const { return mHigh == 0 && mLow == 0; }
    bool IsNegative() const { return mHigh < 0; }

    // All four decimals, without grouping: "-1234.5000".
    std::string FixedText() const;
    // With grouping, two decimals, or four where the last two are not 0: "-1,234.50".
    std::string DisplayText() const;

private:
    // Those of its magnitude, the decimals among them.
    std::string Digits() const;

    // 128 bits in ten-thousandths, two's complement.
    std::int64_t mHigh = 0;
    std::uint64_t mLow = 0;
};

}  // namespace kelvane::entries
