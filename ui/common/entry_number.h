// The next number of a counter, for an operator who is told when there is none.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "entries/entry_counter.h"

namespace kelvane::ui {

// The answer that stands for no number.
inline constexpr std::int32_t kNoNumber = -1;

// Takes the next number of counter `name` over `connection`. On any error of entries::TakeNumber()
// the operator is told of a conflict and the answer is kNoNumber; a number outside `range` is
// thrown as entries::CounterExhausted or entries::CounterBelowRange.
std::int32_t NextSettingNumber(std::string_view name, platform::Connection& connection,
                               std::optional<entries::NumberRange> range = std::nullopt);

}  // namespace kelvane::ui
