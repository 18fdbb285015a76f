#include "data/number_format.h"

#include <algorithm>

#include "data/login_context.h"
#include "data/text_conversion.h"

namespace kelvane::data {

using platform::Decimal;

namespace {

void InsertGrouping(std::string& text) {
    constexpr std::size_t kGroup = 3;
    const std::size_t firstDigit = text.starts_with('-') ? 1 : 0;
    std::size_t position = std::min(text.find('.'), text.size());
    while (position > firstDigit + kGroup) {
        position -= kGroup;
        text.insert(position, 1, ',');
    }
}

}  // namespace

int DecimalPlaces(std::int16_t kind) {
    switch (kind) {
        case kPriceKind:
            return gNumPointPrice;
        case kQuantityKind:
            return gNumPointQty;
        case kMoneyKind:
            return gNumPointMoney;
        case kRateKind:
            return gNumPointRate;
        default:
            return 2;
    }
}

std::string FormatDecimal(const Decimal& number, int places, bool thousands) {
    const int shown = std::max(places, 0);
    std::string text = number.Rounded(shown, platform::Rounding::HalfAwayFromZero).FixedText(shown);
    if (thousands) InsertGrouping(text);
    if (shown == 0) text += '.';
    return text;
}

std::string NumFormatText(const platform::Value& value, std::int16_t kind, bool thousands) {
    std::string text = value.ToText();
    if (value.As<platform::DateTime>()) return text;
    const auto number = Decimal::FromText(text);
    if (number) return FormatDecimal(*number, DecimalPlaces(kind), thousands);
    if (Trim(text).empty()) text.clear();
    return text;
}

std::string DisplayOfMoney(platform::Money amount) {
    return NumFormatText(platform::Value(amount), kMoneyKind, true);
}

}  // namespace kelvane::data
