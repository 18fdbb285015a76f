#include "platform/exact_integer.h"

#include <bit>

namespace kelvane::platform {

namespace {

constexpr int kHalfBits = 32;
constexpr std::uint64_t kLowHalf = 0xFFFFFFFF;
// The magnitude of the smallest 64-bit number.
constexpr std::uint64_t kMinMagnitude = std::uint64_t{1} << 63;

constexpr std::uint64_t Magnitude(std::int64_t number) {
    const auto bits = static_cast<std::uint64_t>(number);
    return number < 0 ? 0 - bits : bits;
}

std::optional<std::int64_t> Signed(std::uint64_t magnitude, bool isNegative) {
    if (magnitude > (isNegative ? kMinMagnitude : kMinMagnitude - 1)) return std::nullopt;
    return static_cast<std::int64_t>(isNegative ? 0 - magnitude : magnitude);
}

// Divides `rest` with the half `next` behind it, and the quotient is a half again: `rest` is
// smaller than the divisor, whose highest bit is set. The divisor's upper half alone gives a
// quotient that is right or at most 2 too large (Knuth, The Art of Computer Programming, 4.3.1,
// algorithm D).
Division HalfQuotient(std::uint64_t rest, std::uint64_t next, std::uint64_t divisor) {
    const std::uint64_t upper = divisor >> kHalfBits;
    const std::uint64_t lower = divisor & kLowHalf;
    std::uint64_t quotient = rest / upper;
    std::uint64_t estimated = rest % upper;
    while (quotient > kLowHalf || quotient * lower > ((estimated << kHalfBits) | next)) {
        --quotient;
        estimated += upper;
        if (estimated > kLowHalf) break;
    }
    return {quotient, ((rest << kHalfBits) | next) - quotient * divisor};
}

}  // namespace

Wide WideProduct(std::uint64_t a, std::uint64_t b) {
    const std::uint64_t aHigh = a >> kHalfBits;
    const std::uint64_t aLow = a & kLowHalf;
    const std::uint64_t bHigh = b >> kHalfBits;
    const std::uint64_t bLow = b & kLowHalf;
    const std::uint64_t lowest = aLow * bLow;
    const std::uint64_t middle = aHigh * bLow + (lowest >> kHalfBits);
    const std::uint64_t crossed = aLow * bHigh + (middle & kLowHalf);
    return {aHigh * bHigh + (middle >> kHalfBits) + (crossed >> kHalfBits),
            (crossed << kHalfBits) | (lowest & kLowHalf)};
}

std::optional<Division> WideQuotient(const Wide& dividend, std::uint64_t divisor) {
    if (dividend.high >= divisor) return std::nullopt;
    if (dividend.high == 0) return Division{dividend.low / divisor, dividend.low % divisor};
    const int shift = std::countl_zero(divisor);
    const std::uint64_t shifted = divisor << shift;
    const std::uint64_t carried = shift == 0 ? 0 : dividend.low >> (2 * kHalfBits - shift);
    const std::uint64_t low = dividend.low << shift;
    const Division first =
        HalfQuotient((dividend.high << shift) | carried, low >> kHalfBits, shifted);
    const Division second = HalfQuotient(first.remainder, low & kLowHalf, shifted);
    return Division{(first.quotient << kHalfBits) | second.quotient, second.remainder >> shift};
}

std::optional<std::int64_t> ExactQuotient(std::int64_t a, std::int64_t b, std::int64_t divisor,
                                          Remainder rule) {
    const std::uint64_t parts = Magnitude(divisor);
    const auto division = WideQuotient(WideProduct(Magnitude(a), Magnitude(b)), parts);
    if (!division || division->quotient > kMinMagnitude) return std::nullopt;
    std::uint64_t quotient = division->quotient;
    if (rule == Remainder::RoundedHalfToEven) {
        const std::uint64_t missing = parts - division->remainder;
        const bool isOdd = quotient % 2 != 0;
        if (division->remainder > missing || (division->remainder == missing && isOdd)) ++quotient;
    }
    return Signed(quotient, ((a < 0) != (b < 0)) != (divisor < 0));
}

std::optional<std::int64_t> ExactProduct(std::int64_t a, std::int64_t b) {
    const Wide product = WideProduct(Magnitude(a), Magnitude(b));
    if (product.high != 0) return std::nullopt;
    return Signed(product.low, (a < 0) != (b < 0));
}

}  // namespace kelvane::platform
