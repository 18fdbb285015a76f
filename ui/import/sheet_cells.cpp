#include "ui/import/sheet_cells.h"

#include <exception>

#include "data/number_format.h"
#include "data/text_conversion.h"
#include "entries/bulk/cell_text.h"
#include "platform/money.h"

namespace kelvane::ui {

using platform::Money;

std::string ShownAmount(const std::string& text) {
    if (!data::IsNumericText(text)) return text;
    try {
        std::string shown = data::NumFormatText(platform::Value(text), data::kMoneyKind, true);
        return Money::FromText(shown) == Money::FromText(text) ? shown : text;
    } catch (const std::exception&) {
        return text;
    }
}

std::string PlainAmount(std::string_view text) {
    const std::string typed = data::Trim(text);
    return entries::AmountText(typed).value_or(typed);
}

}  // namespace kelvane::ui
