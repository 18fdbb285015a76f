#include "entries/summary/exact_sum.h"

#include <cstddef>
#include <string_view>

#include "platform/exact_integer.h"

namespace kelvane::entries {

namespace {

constexpr std::size_t kDecimals = 4;
constexpr std::size_t kGroup = 3;

// Decimal digits of `number`, at least one more than the decimals.
std::string DigitsOf(platform::Wide number) {
    // The greatest power of ten of which 64 bits hold a multiple: as few divisions as can be.
    constexpr std::uint64_t kPower = 1'000'000'000'000'000'000;
    constexpr std::size_t kPowerDigits = 18;
    std::string digits;
    while (number != platform::Wide()) {
        const std::uint64_t high = number.high / kPower;
        const platform::Wide rest{number.high % kPower, number.low};
        // The rest's upper half is smaller than the divisor, so the quotient fits.
        const platform::Division low = platform::WideQuotient(rest, kPower).value();
        number = {high, low.quotient};
        const std::string part = std::to_string(low.remainder);
        digits.insert(0, std::string(kPowerDigits - part.size(), '0') + part);
    }
    digits.erase(0, digits.find_first_not_of('0'));
    if (digits.size() <= kDecimals) digits.insert(0, kDecimals + 1 - digits.size(), '0');
    return digits;
}

std::string Grouped(std::string_view whole) {
    std::string text;
    for (std::size_t at = 0; at < whole.size(); ++at) {
        if (at > 0 && (whole.size() - at) % kGroup == 0) text += ',';
        text += whole[at];
    }
    return text;
}

}  // namespace

ExactSum::ExactSum(platform::Money amount)
    : mHigh(amount.Units() < 0 ? -1 : 0), mLow(static_cast<std::uint64_t>(amount.Units())) {}

ExactSum& ExactSum::operator+=(const ExactSum& other) {
    const std::uint64_t low = mLow + other.mLow;
    const std::uint64_t carry = low < mLow ? 1 : 0;
    mHigh = static_cast<std::int64_t>(static_cast<std::uint64_t>(mHigh) +
                                      static_cast<std::uint64_t>(other.mHigh) + carry);
    mLow = low;
    return *this;
}

ExactSum& ExactSum::operator-=(const ExactSum& other) {
    const std::uint64_t borrow = mLow < other.mLow ? 1 : 0;
    mHigh = static_cast<std::int64_t>(static_cast<std::uint64_t>(mHigh) -
                                      static_cast<std::uint64_t>(other.mHigh) - borrow);
    mLow -= other.mLow;
    return *this;
}

std::strong_ordering operator<=>(const ExactSum& a, const ExactSum& b) {
    return a.mHigh == b.mHigh ? a.mLow <=> b.mLow : a.mHigh <=> b.mHigh;
}

std::string ExactSum::Digits() const {
    platform::Wide magnitude{static_cast<std::uint64_t>(mHigh), mLow};
    if (IsNegative()) {
        magnitude.high = ~magnitude.high + (magnitude.low == 0 ? 1 : 0);
        magnitude.low = ~magnitude.low + 1;
    }
    return DigitsOf(magnitude);
}

std::string ExactSum::FixedText() const {
    std::string text = Digits();
    text.insert(text.size() - kDecimals, 1, '.');
    return IsNegative() ? "-" + text : text;
}

std::string ExactSum::DisplayText() const {
    constexpr std::string_view kNothingMore = "00";
    const std::string digits = Digits();
    const std::string_view all = digits;
    const std::string_view whole = all.substr(0, all.size() - kDecimals);
    std::string_view decimals = all.substr(whole.size());
    if (decimals.ends_with(kNothingMore)) decimals.remove_suffix(kNothingMore.size());
    return (IsNegative() ? "-" : "") + Grouped(whole) + "." + std::string(decimals);
}

}  // namespace kelvane::entries
