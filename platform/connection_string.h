// Connection strings, "NAME=VALUE;NAME={VALUE};…": taking them apart, putting a value into one, and
// hiding the passwords in them wherever a text may show them. What is hidden is rather too much
// than too little: a text that is hard to read is a nuisance, a password in a log is for ever.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::platform {

// What lets a value hold semicolons: the braces of ODBC, or the double quotes of other providers.
// A closing mark in a value is doubled; one that is not still belongs to the value unless the value
// ends behind it, at a semicolon or the string's end.
enum class ValueMarks { Braces, Quotes };

struct ConnectionPart {
    std::string_view whole;  // as it stands in the string, without the semicolon behind it
    std::string name;        // without blanks around it; empty when the part has no "="
    std::string value;       // without its marks
};

// The names of one thing; the first is the one that is written.
using PartNames = std::span<const std::string_view>;
inline constexpr std::array<std::string_view, 2> kUserNames = {"UID", "User ID"};
inline constexpr std::array<std::string_view, 2> kPasswordNames = {"PWD", "Password"};

// The parts of a connection string that are not blank; each refers to `text`.
std::vector<ConnectionPart> ReadConnectionString(std::string_view text,
                                                 ValueMarks marks = ValueMarks::Braces);

// The value of the first part with one of the names, in any letter case.
std::optional<std::string> FindValue(std::string_view connectionString, PartNames names);

// A value without blanks around it and without its marks.
std::string PlainValue(std::string_view value, ValueMarks marks);
// A value as it is written: in marks, whatever it is.
std::string MarkedValue(std::string_view value, ValueMarks marks);
// A value as ODBC has it: plain unless it needs braces.
std::string OdbcValue(std::string_view value);

// The string with a semicolon at its end, and `more` behind that. Drivers read braces at the very
// end as a part of the value.
std::string WithEnd(std::string_view connectionString, std::string_view more = {});
// The string with `value` as its last part, in the place of those with one of the names; the others
// stay as they are written. Ends with a semicolon. `value` is copied nowhere else on the way.
std::string WithValue(std::string_view connectionString, PartNames names, std::string_view value);

// Whether a password stands in `text`, wherever in it.
bool HoldsPassword(std::string_view text);
// `text` with "***" in place of every password that stands in it as in a connection string.
std::string WithoutPasswords(std::string_view text);

// Every form in which a connection string, its passwords and `password`, which comes beside it, can
// show up in a text.
std::vector<std::string> SecretsOf(std::string_view connectionString,
                                   std::string_view password = {});
// `text` with "***" in place of each of the secrets. `wholeWords`: a secret that is a part of a
// longer word stays, so that a password of one letter does not spoil every text.
std::string WithoutSecrets(std::string text, const std::vector<std::string>& secrets,
                           bool wholeWords = false);

}  // namespace kelvane::platform
