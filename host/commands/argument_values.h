// What an option's value may be; anything else is wrong usage.
#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <string>
#include <vector>

namespace kelvane::host {

// A whole number from `low` to `high`. For CLI::Option::transform().
CLI::Validator NumberBetween(std::int64_t low, std::int64_t high);

// A date that platform::DateTime::Parse() reads. For CLI::Option::check().
CLI::Validator DateText();

// An amount as entries::AmountText() and the account's money take it.
CLI::Validator AmountValue();

// The name of an encoding that tables::FindEncoding() knows.
CLI::Validator EncodingName();

// Names that entries::SummaryFieldsOf() takes.
CLI::Validator SummaryFieldNames();

// One of `choices`.
CLI::Validator OneOf(std::vector<std::string> choices);

// A file whose name `takes` accepts, by its extension.
CLI::Validator FileOfKind(bool (*takes)(const std::string& path));

}  // namespace kelvane::host
