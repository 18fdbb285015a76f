// Decimal: a decimal number of any length, the one reader and rounder of number texts. Money,
// values and the display formats all go through it, so a text means the same number everywhere and
// no binary rounding slips in between.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelvane::platform {

enum class Rounding { HalfToEven, HalfAwayFromZero };

class Decimal {
public:
    Decimal() = default;
    explicit Decimal(std::int64_t whole);

    // A whole text as a number: blanks at both ends, one sign in front, grouping commas behind the
    // first digit of the integer part, a decimal point and an exponent ("1,234.50", "-.5", "1e3").
    // Nothing when the text is anything else, also when it has no digit.
    static std::optional<Decimal> FromText(std::string_view text);

    // The number a text begins with. Blanks are skipped wherever they stand; reading stops at the
    // first other character that cannot continue a number ("12abc" is 12, "1 2" is 12). 0 when the
    // text begins with no number.
    static Decimal LeadingOf(std::string_view text);

    // The shortest decimal that reads back as `number`. Nothing for infinities and NaN.
    static std::optional<Decimal> FromDouble(double number);

    // `units` times ten to the power of -`places`.
    static Decimal FromScaled(std::int64_t units, int places);

    bool IsZero() const { return mDigits.empty(); }
    bool IsNegative() const { return mNegative; }

    // This number with at most `places` (0 or more) decimals.
    Decimal Rounded(int places, Rounding rule) const;

    // This number times ten to the power of `places`, rounded to a whole number; nothing when it
    // does not fit.
    std::optional<std::int64_t> Scaled(int places, Rounding rule) const;

    // Plain text without trailing zeros of the decimals: "1234.5", "-0.0001", "12".
    std::string Text() const;

    // Plain text with exactly `places` decimals, which must be enough to hold the number. With 0
    // places there is no decimal point.
    std::string FixedText(int places) const;

private:
    friend struct DecimalReader;
    void Normalise();

    bool mNegative = false;
    std::string mDigits;  // without leading zeros; empty is zero
    int mScale = 0;       // decimals among the digits; negative: zeros behind them
};

}  // namespace kelvane::platform
