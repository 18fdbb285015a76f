// Numbers for new rows. The account keeps the last one given out in a setting; its row is locked
// while the next one is taken, so two operators never get the same.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "platform/database.h"

namespace kelvane::data {

// The counter has passed the largest number that its user can take.
class CounterExhausted : public std::range_error {
public:
    using std::range_error::range_error;
};

// The answer that stands for no number.
inline constexpr std::int32_t kNoNumber = -1;

// Takes the next number of counter `name` (1 when it has no value yet) over `connection`. On any
// error, also when another operator holds the counter or there is none of that name, the operator
// is told of a conflict and the answer is kNoNumber.
//
// With a `largest` number: throws CounterExhausted, and leaves the counter alone, when the next
// one would be above it.
std::int32_t NextSettingNumber(std::string_view name, platform::Connection& connection,
                               std::optional<std::int32_t> largest = std::nullopt);

}  // namespace kelvane::data
