// Decimal numbers once more, in another way than the program's: two strings of digits around the
// point, computed as on paper. Slow, and right to look at; the fuzz targets compare with it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvane::fuzz {

// A number whose digits all stand: `whole` without leading zeros, `fraction` without trailing ones.
struct Digits {
    bool negative = false;
    std::string whole;
    std::string fraction;

    bool IsZero() const { return whole.empty() && fraction.empty(); }
    // With exactly `places` decimals, of which there must not be more.
    std::string Text(std::size_t places) const;
};

// Blanks, a sign, digits with grouping commas behind the first, a point, digits, an exponent of at
// most three digits. Nothing for any other text. `tooFar`: set when the exponent alone is longer.
std::optional<Digits> ReadDigits(std::string_view text, bool& tooFar);

// `halfToEven`: else half away from zero.
Digits RoundedDigits(const Digits& number, std::size_t places, bool halfToEven);

Digits Sum(const Digits& a, const Digits& b);
Digits Product(const Digits& a, const Digits& b);

// Whether the number, in ten-thousandths, fits 64 bits.
bool FitsMoney(const Digits& number);

}  // namespace kelvane::fuzz
