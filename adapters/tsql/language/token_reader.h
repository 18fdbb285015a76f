// Walks the tokens of a statement: what the statement parser and the expression parser share.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/tsql/language/lexer.h"

namespace kelvane::tsql {

// A literal whose value decides the translation, so that it is part of it: "top 5", a style.
struct FixedLiteral {
    std::size_t literal = 0;
    std::string raw;

    friend bool operator==(const FixedLiteral&, const FixedLiteral&) = default;
};

class TokenReader {
public:
    explicit TokenReader(const LexedText& text) : mText(text) {}

    const Token& Current() const { return mText.tokens[mAt]; }
    const Literal& LiteralOf(const Token& token) const { return mText.literals[token.literal]; }
    bool AtEnd() const { return Current().kind == Token::Kind::End; }
    void Advance() { mAt += AtEnd() ? 0 : 1; }

    bool IsSymbol(std::string_view symbol) const;
    bool IsWord(std::string_view word) const { return IsWordAt(mAt, word); }
    // The current word is `word` and the token behind it is the symbol.
    bool IsCall(std::string_view symbol = "(") const;
    bool NextIsWord(std::string_view word) const { return IsWordAt(mAt + 1, word); }

    bool TakeSymbol(std::string_view symbol);
    bool TakeWord(std::string_view word);
    void ExpectSymbol(std::string_view symbol);
    void ExpectWord(std::string_view word);

    // A name that may stand for a table, a column or an alias: quoted, or no reserved word.
    bool IsName() const;
    std::string TakeName();

    // A whole number that becomes part of the translation.
    int TakeFixedNumber();

    // Throws a syntax error at the current token; a reserved word that starts a construct nobody
    // translates is named as such.
    [[noreturn]] void Refuse() const;

    const std::vector<FixedLiteral>& FixedLiterals() const { return mFixed; }

    // A whole statement's tokens, to be recognised when it comes again with other values.
    struct Run {
        std::size_t start = 0;
        std::size_t length = 0;
    };
    std::size_t Place() const { return mAt; }
    // Takes the statement if it is the one of `run` but for its literals' values; tells how far
    // behind that one's its literals are.
    bool TakeSame(const Run& run, std::size_t& literalShift);

    // Counts an operator of a chain ("a or b or …"), which nests as well; each statement has its
    // own count. Throws when there are too many.
    void CountLink();
    void BeginStatement() { mLinks = 0; }

    // Keeps a statement from exhausting the stack; throws when it is nested too deeply.
    class Depth {
    public:
        explicit Depth(TokenReader& reader);
        ~Depth() { --mReader.mDepth; }
        Depth(const Depth&) = delete;
        Depth& operator=(const Depth&) = delete;

    private:
        TokenReader& mReader;
    };

private:
    bool IsWordAt(std::size_t place, std::string_view word) const;
    bool IsSameToken(const Token& a, const Token& b) const;

    const LexedText& mText;
    std::size_t mAt = 0;
    int mDepth = 0;
    int mLinks = 0;
    std::vector<FixedLiteral> mFixed;
};

}  // namespace kelvane::tsql
