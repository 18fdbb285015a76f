// What an option's value may be; anything else is wrong usage.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>

namespace kelvane::host {

// A whole number from `low` to `high`. For CLI::Option::transform().
CLI::Validator NumberBetween(std::int64_t low, std::int64_t high);

// A date that platform::DateTime::Parse() reads. For CLI::Option::check().
CLI::Validator DateText();

}  // namespace kelvane::host
