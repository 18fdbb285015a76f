// What a batch's lines say, as JSON: the intent's head, its changes one by one, how many they were,
// and the outcome. A text that is no UTF-8 is kept byte by byte, as {"hex": "c3"}.
#pragma once

#include <string>
#include <string_view>

#include "adapters/journal/line_chain.h"
#include "platform/batch_journal.h"

namespace kelvane::journal {

// All of `intent` but its changes.
Json HeadLine(const platform::BatchIntent& intent);
// As its text: a batch can have very many of them.
std::string ChangeText(const platform::BatchChange& change);
// Behind the changes: how many there are. Without it the intent is not whole.
Json CountsLine(const platform::BatchCounts& counts);
Json OutcomeLine(platform::BatchOutcome outcome);

// The same read from lines. They throw nlohmann::json::exception when a line says something else,
// `HeadOf` throws Fault when a later version wrote it.
platform::BatchIntent HeadOf(const Json& line);
bool IsChange(const Json& line);
// The same of a line's text, which stands behind `start`.
bool IsChange(std::string_view text, std::string_view start);
platform::BatchChange ChangeOf(const Json& line);
platform::BatchCounts CountsOf(const Json& line);
platform::BatchOutcome OutcomeOf(const Json& line);

}  // namespace kelvane::journal
