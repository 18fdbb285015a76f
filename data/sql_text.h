// How the component's statements hold a value, and how its plain queries are opened.
#pragma once

#include <string_view>

#include "platform/database.h"
#include "platform/statement_text.h"

namespace kelvane::data {

// Cursor and lock as the connection has them, the statement given as text.
inline constexpr platform::RecordSetOptions kTextQuery{.command = platform::CommandType::Text};

// `value` without the blanks at both ends, between apostrophes. Apostrophes in it are not doubled;
// one that would end the literal makes the statement malformed.
inline platform::StatementText SqlText(std::string_view value) {
    platform::StatementText text;
    text.Quoted(value);
    return text;
}

}  // namespace kelvane::data
