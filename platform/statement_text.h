// StatementText: a statement on its way to the account database. Its fixed pieces are string
// literals, fixed at compile time; every run-time value enters through a named call. The text is
// exactly the concatenation, and no run-time text can become part of the statement's syntax.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "platform/money.h"

namespace kelvane::platform {

// A piece of statement text that is a literal in the program's source.
class FixedText {
public:
    template <std::size_t N>
    consteval FixedText(const char (&literal)[N]) : mText(literal, N - 1) {}

    std::string_view Text() const { return mText; }

private:
    std::string_view mText;
};

// The statement is malformed: a value would have ended its literal, or is not of the form its
// place asks for. It never reaches the database.
class MalformedStatement : public std::invalid_argument {
public:
    using std::invalid_argument::invalid_argument;
};

class StatementText {
public:
    StatementText() = default;
    StatementText(FixedText piece) : mText(piece.Text()) {}

    StatementText& operator<<(FixedText piece);
    StatementText& operator<<(const StatementText& other);

    // A text that stands between quote characters which the fixed pieces around it contain.
    // Apostrophes that are not doubled would end the literal: the statement becomes malformed.
    StatementText& Inside(std::string_view value);
    // The quoted literal of a value: blanks at both ends removed, quotes put around it.
    StatementText& Quoted(std::string_view value);
    // A whole number in decimal digits.
    StatementText& Number(std::int64_t value);
    // An amount as plain decimal text.
    StatementText& Amount(Money value);
    // A double as plain decimal text, shortest form that reads back the same.
    StatementText& Double(double value);
    // The name of a column; anything but letters, digits and underscores makes it malformed.
    StatementText& Identifier(std::string_view name);
    // The same, in brackets when it has letters beyond ASCII: which of them a name may have without
    // differs between servers and their versions.
    StatementText& Name(std::string_view name);
    // A text that must be a plain number, as the operator typed it ("12", "-3.5"); anything else
    // makes the statement malformed.
    StatementText& NumericText(std::string_view text);
    // The place of an entry's identity that is not known yet ("@@@@").
    StatementText& EntryPlaceholder();

    // The same statement with `identity` in every place of an entry's identity. A value that reads
    // like such a place stays as it is.
    StatementText WithEntry(std::int64_t identity) const;

    bool IsEmpty() const { return mText.empty(); }

    // The whole text, well-formed or not; for display and for comparing.
    const std::string& Text() const { return mText; }
    bool IsMalformed() const { return mMalformed; }

    // The whole text for execution. Throws MalformedStatement.
    const std::string& Checked() const;

private:
    std::string mText;
    std::vector<std::size_t> mEntryPlaces;  // ascending
    bool mMalformed = false;
};

}  // namespace kelvane::platform
