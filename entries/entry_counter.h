// Numbers for new rows. The account keeps the last one given out in a setting; its row is locked
// while the next one is taken, so two operators never get the same.
#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "platform/database.h"

namespace kelvane::entries {

// The numbers that a counter's user can take.
struct NumberRange {
    std::int32_t smallest;
    std::int32_t largest;
};

// The counter's next number is none that its user can take: it has passed the largest, or was set
// to one below the smallest.
class CounterExhausted : public std::range_error {
public:
    using std::range_error::range_error;
};
class CounterBelowRange : public std::range_error {
public:
    using std::range_error::range_error;
};

// Takes the next number of counter `name` (1 when it has no value yet) over `connection`. Errors
// are thrown, also when another operator holds the counter, when there is none of that name and
// when the number does not fit.
//
// With a `range`: throws CounterExhausted or CounterBelowRange, and leaves the counter alone, when
// the next number fits but lies outside.
std::int32_t TakeNumber(std::string_view name, platform::Connection& connection,
                        std::optional<NumberRange> range = std::nullopt);

// Takes the next `count` numbers, at least one, at once and returns the first of them; they all fit
// and lie in `range`, or the counter is left alone as TakeNumber() leaves it.
std::int32_t TakeNumbers(std::string_view name, platform::Connection& connection,
                         std::int32_t count, std::optional<NumberRange> range = std::nullopt);

// What TakeNumber() would give, unless another operator takes a number first. Nothing is locked or
// written. Errors are thrown as TakeNumber() throws them.
std::int32_t NextNumber(std::string_view name, platform::Connection& connection);

}  // namespace kelvane::entries
