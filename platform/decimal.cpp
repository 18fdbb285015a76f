#include "platform/decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "platform/blanks.h"

namespace kelvane::platform {

namespace {

// Exponents beyond it change no result: such a number overflows, or rounds to zero, everywhere.
constexpr int kMaxExponent = 9999;

bool IsDigit(char character) {
    return character >= '0' && character <= '9';
}

bool RoundsUp(std::string_view dropped, bool keptIsOdd, Rounding rule) {
    if (dropped.front() != '5') return dropped.front() > '5';
    const bool isHalf = dropped.find_first_not_of('0', 1) == std::string_view::npos;
    return !isHalf || rule == Rounding::HalfAwayFromZero || keptIsOdd;
}

void Increment(std::string& digits) {
    const auto lastNotNine = digits.find_last_not_of('9');
    if (lastNotNine == std::string::npos) {
        std::fill(digits.begin(), digits.end(), '0');
        digits.insert(digits.begin(), '1');
        return;
    }
    ++digits[lastNotNine];
    std::fill(digits.begin() + static_cast<std::ptrdiff_t>(lastNotNine) + 1, digits.end(), '0');
}

}  // namespace

// Reads one number from the front of a text.
struct DecimalReader {
    std::string_view text;
    bool allowGrouping;
    std::size_t position = 0;
    bool hasDigit = false;

    bool At(char character) const { return position < text.size() && text[position] == character; }
    bool AtDigit() const { return position < text.size() && IsDigit(text[position]); }

    bool ReadSign() {
        const bool negative = At('-');
        if (negative || At('+')) ++position;
        return negative;
    }

    void ReadDigits(std::string& digits) {
        while (AtDigit() || (allowGrouping && hasDigit && At(','))) {
            if (AtDigit()) {
                digits.push_back(text[position]);
                hasDigit = true;
            }
            ++position;
        }
    }

    // An exponent without digits is not part of the number.
    int ReadExponent() {
        const std::size_t start = position;
        if (!At('e') && !At('E')) return 0;
        ++position;
        const bool negative = ReadSign();
        if (!AtDigit()) {
            position = start;
            return 0;
        }
        int exponent = 0;
        for (; AtDigit(); ++position)
            exponent = std::min(exponent * 10 + (text[position] - '0'), kMaxExponent);
        return negative ? -exponent : exponent;
    }

    Decimal Read() {
        Decimal number;
        number.mNegative = ReadSign();
        ReadDigits(number.mDigits);
        if (At('.')) {
            ++position;
            allowGrouping = false;
            const std::size_t wholeDigits = number.mDigits.size();
            ReadDigits(number.mDigits);
            number.mScale = static_cast<int>(number.mDigits.size() - wholeDigits);
        }
        if (!hasDigit) return {};
        number.mScale -= ReadExponent();
        number.Normalise();
        return number;
    }
};

Decimal::Decimal(std::int64_t whole) : Decimal(FromScaled(whole, 0)) {}

std::optional<Decimal> Decimal::FromText(std::string_view text) {
    DecimalReader reader{WithoutOuterBlanks(text), true};
    const Decimal number = reader.Read();
    if (!reader.hasDigit || reader.position != reader.text.size()) return std::nullopt;
    return number;
}

Decimal Decimal::LeadingOf(std::string_view text) {
    std::string unblanked(text);
    std::erase(unblanked, ' ');
    return DecimalReader{unblanked, false}.Read();
}

std::optional<Decimal> Decimal::FromDouble(double number) {
    if (!std::isfinite(number)) return std::nullopt;
    std::array<char, 32> buffer{};
    const auto end =
        std::to_chars(buffer.begin(), buffer.end(), number, std::chars_format::scientific).ptr;
    return FromText({buffer.data(), static_cast<std::size_t>(end - buffer.data())});
}

Decimal Decimal::FromScaled(std::int64_t units, int places) {
    Decimal number;
    number.mDigits = std::to_string(units);
    number.mNegative = units < 0;
    if (number.mNegative) number.mDigits.erase(0, 1);
    number.mScale = places;
    number.Normalise();
    return number;
}

Decimal Decimal::Rounded(int places, Rounding rule) const {
    if (mScale <= places) return *this;
    const auto dropCount = static_cast<std::size_t>(mScale - places);
    // A number below a tenth of the last place kept rounds like one that is just that small.
    if (dropCount > mDigits.size()) return {};
    Decimal result = *this;
    const std::size_t keptCount = mDigits.size() - dropCount;
    result.mDigits.resize(keptCount);
    const bool keptIsOdd = keptCount > 0 && (mDigits[keptCount - 1] - '0') % 2 == 1;
    if (RoundsUp(std::string_view(mDigits).substr(keptCount), keptIsOdd, rule))
        Increment(result.mDigits);
    result.mScale = places;
    result.Normalise();
    return result;
}

std::optional<std::int64_t> Decimal::Scaled(int places, Rounding rule) const {
    constexpr std::size_t kMaxDigits = 19;
    Decimal whole = *this;
    whole.mScale -= places;
    whole = whole.Rounded(0, rule);
    if (whole.IsZero()) return 0;
    const auto zerosBehind = static_cast<std::size_t>(-whole.mScale);
    if (whole.mDigits.size() + zerosBehind > kMaxDigits) return std::nullopt;
    const std::string text = whole.FixedText(0);
    std::int64_t result = 0;
    const auto answer = std::from_chars(text.data(), text.data() + text.size(), result);
    if (answer.ec != std::errc{}) return std::nullopt;
    return result;
}

std::string Decimal::Text() const {
    Decimal shortest = *this;
    while (shortest.mScale > 0 && !shortest.mDigits.empty() && shortest.mDigits.back() == '0') {
        shortest.mDigits.pop_back();
        --shortest.mScale;
    }
    return shortest.FixedText(std::max(shortest.mScale, 0));
}

std::string Decimal::FixedText(int places) const {
    std::string text = mDigits;
    if (!IsZero()) text.append(static_cast<std::size_t>(std::max(places - mScale, 0)), '0');
    const auto decimals = static_cast<std::size_t>(places);
    if (text.size() <= decimals) text.insert(0, decimals + 1 - text.size(), '0');
    if (decimals > 0) text.insert(text.size() - decimals, 1, '.');
    if (mNegative) text.insert(0, 1, '-');
    return text;
}

void Decimal::Normalise() {
    mDigits.erase(0, std::min(mDigits.find_first_not_of('0'), mDigits.size()));
    if (!mDigits.empty()) return;
    mNegative = false;
    mScale = 0;
}

}  // namespace kelvane::platform
