// Arithmetic of 64-bit whole numbers that says when a result does not fit, instead of wrapping.
// Amounts are computed with it. Products have 128 bits, in two halves that every compiler has, so
// that a 32-bit build computes the same as a 64-bit one.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>

namespace kelvane::platform {

// A whole number from 0 to 2^128 - 1.
struct Wide {
    std::uint64_t high = 0;
    std::uint64_t low = 0;

    friend constexpr auto operator<=>(const Wide& a, const Wide& b) = default;
};

Wide WideProduct(std::uint64_t a, std::uint64_t b);

struct Division {
    std::uint64_t quotient = 0;
    std::uint64_t remainder = 0;

    friend constexpr bool operator==(const Division& a, const Division& b) = default;
};

// Nothing when the quotient does not fit in 64 bits; so nothing is divided by 0.
std::optional<Division> WideQuotient(const Wide& dividend, std::uint64_t divisor);

// What becomes of the remainder of a division.
enum class Remainder { CutOff, RoundedHalfToEven };

// a * b / divisor, of which nothing but the result has to fit. Nothing when it does not, or when
// `divisor` is 0.
std::optional<std::int64_t> ExactQuotient(std::int64_t a, std::int64_t b, std::int64_t divisor,
                                          Remainder rule);

// a * b; nothing when it does not fit.
std::optional<std::int64_t> ExactProduct(std::int64_t a, std::int64_t b);

// a + b; nothing when it does not fit. Only operands of one sign can reach a result of the other.
constexpr std::optional<std::int64_t> ExactSum(std::int64_t a, std::int64_t b) {
    const auto sum =
        static_cast<std::int64_t>(static_cast<std::uint64_t>(a) + static_cast<std::uint64_t>(b));
    if ((a < 0) == (b < 0) && (sum < 0) != (a < 0)) return std::nullopt;
    return sum;
}

// a - b; nothing when it does not fit.
constexpr std::optional<std::int64_t> ExactDifference(std::int64_t a, std::int64_t b) {
    const auto difference =
        static_cast<std::int64_t>(static_cast<std::uint64_t>(a) - static_cast<std::uint64_t>(b));
    if ((a < 0) != (b < 0) && (difference < 0) != (a < 0)) return std::nullopt;
    return difference;
}

}  // namespace kelvane::platform
