// An ODBC connection string: what it says of the login, and what of it must never be shown.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvane::odbc {

struct ConnectionWord {
    std::string name;   // as written, without blanks around it
    std::string value;  // without its braces
};

// Reads "NAME=VALUE;NAME={VALUE}…"; inside braces a semicolon is text and "}}" is one brace.
std::vector<ConnectionWord> ParseConnectionWords(std::string_view text);

// A value as a connection string has it: in braces where it needs them.
std::string ConnectionValue(std::string_view value);

// The connection string with the login's user and password in the place of its own; an empty one
// leaves the string's. The rest stays as it is written.
std::string WithLogin(std::string_view text, std::string_view user, std::string_view password);

// The string with more words at its end.
std::string WithWords(std::string_view text, std::string_view words);

// Every form in which the connection string's passwords can show up in a text.
std::vector<std::string> SecretsOf(std::string_view text);

// `text` without any of the secrets. `wholeWords`: a secret that is a part of a longer word stays,
// so that a password of one letter does not spoil every text.
std::string WithoutSecrets(std::string text, const std::vector<std::string>& secrets,
                           bool wholeWords = false);

}  // namespace kelvane::odbc
