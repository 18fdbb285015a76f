// Splits a statement of the dialect into tokens. The literals are kept apart from the rest, the
// statement's shape: statements that differ in the values of their literals alone have the same
// shape, and one translation serves them all.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/tsql/language/type.h"

namespace kelvane::tsql {

struct Literal {
    enum class Form {
        Text,       // '…' with at most ASCII letters that have a case
        CasedText,  // '…' with other letters that have a case
        Integer,
        Decimal,
        Float,
    };

    Form form = Form::Text;
    bool wide = false;     // N'…'
    Type type;             // what the dialect takes it for
    std::string_view raw;  // between the apostrophes, doubled ones still doubled; or the digits

    bool IsText() const { return form == Form::Text || form == Form::CasedText; }
    // The value of a text literal.
    std::string Text() const;
};

struct Token {
    enum class Kind { Name, QuotedName, Literal, Symbol, End };

    Kind kind = Kind::End;
    std::string_view text;    // a name as written, a symbol with the blanks inside removed
    std::size_t literal = 0;  // of a literal its place in LexedText::literals
};

struct LexedText {
    std::vector<Token> tokens;  // the last one is an End
    std::vector<Literal> literals;
    std::string shape;
};

// Fills `result`, reusing its memory, from `statement`, whose text it refers to. Throws
// DatabaseError (102, 105) for characters that no statement has and for unclosed quotes.
void Lex(std::string_view statement, LexedText& result);

}  // namespace kelvane::tsql
