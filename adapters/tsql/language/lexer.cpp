#include "adapters/tsql/language/lexer.h"

#include <cstdint>
#include <limits>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/text_rules.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

constexpr bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f' || c == '\v';
}
constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool StartsName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == '@' || c == '#' ||
           static_cast<unsigned char>(c) >= 0x80;
}
constexpr bool ContinuesName(char c) {
    return StartsName(c) || IsDigit(c) || c == '$';
}

// Operators of two characters, which may have blanks between them.
constexpr std::string_view kPairs[] = {"<>", "<=", ">=", "!=", "!<", "!>"};
constexpr std::string_view kSingles = "=<>+-*/%(),.;&|^~";

class Lexer {
public:
    Lexer(std::string_view text, LexedText& result) : mText(text), mResult(result) {}

    void Run() {
        mResult.tokens.clear();
        mResult.literals.clear();
        mResult.shape.clear();
        while (SkipBlanks()) Take();
        mResult.tokens.push_back({});
    }

private:
    char At(std::size_t offset) const {
        return mAt + offset < mText.size() ? mText[mAt + offset] : '\0';
    }

    bool SkipBlanks() {
        while (mAt < mText.size()) {
            if (IsBlank(mText[mAt])) {
                ++mAt;
            } else if (At(0) == '-' && At(1) == '-') {
                const std::size_t end = mText.find('\n', mAt);
                mAt = end == std::string_view::npos ? mText.size() : end + 1;
            } else if (At(0) == '/' && At(1) == '*') {
                const std::size_t end = mText.find("*/", mAt + 2);
                if (end == std::string_view::npos) throw UnclosedComment();
                mAt = end + 2;
            } else {
                return true;
            }
        }
        return false;
    }

    void Take() {
        const char c = At(0);
        if (c == '\'') return TakeText(false);
        if ((c == 'N' || c == 'n') && At(1) == '\'') {
            ++mAt;
            return TakeText(true);
        }
        if (StartsName(c)) return TakeName();
        if (c == '[') return TakeQuotedName(']');
        if (c == '"') return TakeQuotedName('"');
        if (IsDigit(c) || (c == '.' && IsDigit(At(1)))) return TakeNumber();
        TakeSymbol();
    }

    void TakeName() {
        const std::size_t start = mAt;
        while (mAt < mText.size() && ContinuesName(mText[mAt])) ++mAt;
        const std::string_view name = mText.substr(start, mAt - start);
        mResult.tokens.push_back({Token::Kind::Name, name});
        for (const char letter : name) mResult.shape += platform::LowerAscii(letter);
        mResult.shape += ' ';
    }

    void TakeQuotedName(char end) {
        const std::size_t close = mText.find(end, mAt + 1);
        if (close == std::string_view::npos) throw UnclosedQuote(mText.substr(mAt + 1));
        const std::string_view name = mText.substr(mAt + 1, close - mAt - 1);
        if (name.empty()) throw SyntaxError(mText.substr(mAt));
        mAt = close + 1;
        mResult.tokens.push_back({Token::Kind::QuotedName, name});
        mResult.shape += '[';
        mResult.shape += name;
        mResult.shape += ']';
    }

    void TakeText(bool wide) {
        const std::size_t start = ++mAt;
        for (;; mAt += 2) {
            mAt = mText.find('\'', mAt);
            if (mAt == std::string_view::npos) throw UnclosedQuote(mText.substr(start));
            if (At(1) != '\'') break;
        }
        const std::string_view raw = mText.substr(start, mAt - start);
        ++mAt;
        const bool plain = HasOnlyAsciiCase(raw);
        AddLiteral({plain ? Literal::Form::Text : Literal::Form::CasedText,
                    wide,
                    {wide ? Type::Kind::NVarChar : Type::Kind::VarChar, 0},
                    raw},
                   plain ? 't' : 'c');
    }

    void TakeNumber() {
        const std::size_t start = mAt;
        std::size_t decimals = 0;
        while (IsDigit(At(0))) ++mAt;
        const std::size_t wholeEnd = mAt;
        const bool fraction = At(0) == '.';
        if (fraction) {
            ++mAt;
            for (std::size_t place = 1; IsDigit(At(0)); ++place, ++mAt) {
                if (At(0) != '0') decimals = place;
            }
        }
        const bool exponent = platform::LowerAscii(At(0)) == 'e';
        if (exponent) {
            ++mAt;
            if (At(0) == '+' || At(0) == '-') ++mAt;
            while (IsDigit(At(0))) ++mAt;
        }
        const std::string_view raw = mText.substr(start, mAt - start);
        if (exponent || decimals > 4) {
            AddLiteral({Literal::Form::Float, false, {Type::Kind::Float, 0}, raw}, 'f');
        } else if (fraction || wholeEnd - start > 18) {
            AddLiteral({Literal::Form::Decimal, false, {Type::Kind::Money, 0}, raw}, 'd');
        } else {
            std::int64_t value = 0;
            for (const char digit : raw) value = value * 10 + (digit - '0');
            const bool fits = value <= std::numeric_limits<std::int32_t>::max();
            AddLiteral({Literal::Form::Integer,
                        false,
                        {fits ? Type::Kind::Int : Type::Kind::BigInt, 0},
                        raw},
                       fits ? 'i' : 'b');
        }
    }

    void AddLiteral(const Literal& literal, char mark) {
        mResult.tokens.push_back({Token::Kind::Literal, literal.raw, mResult.literals.size()});
        mResult.literals.push_back(literal);
        mResult.shape += '\'';
        mResult.shape += literal.wide ? platform::UpperAscii(mark) : mark;
    }

    void TakeSymbol() {
        const std::size_t start = mAt;
        const char first = mText[mAt++];
        std::size_t second = mAt;
        while (second < mText.size() && IsBlank(mText[second])) ++second;
        for (const std::string_view pair : kPairs) {
            if (pair[0] == first && second < mText.size() && pair[1] == mText[second]) {
                mAt = second + 1;
                return AddSymbol(pair);
            }
        }
        const std::size_t place = kSingles.find(first);
        if (place == std::string_view::npos) throw SyntaxError(mText.substr(start, 1));
        AddSymbol(kSingles.substr(place, 1));
    }

    void AddSymbol(std::string_view symbol) {
        mResult.tokens.push_back({Token::Kind::Symbol, symbol});
        mResult.shape += symbol;
    }

    std::string_view mText;
    LexedText& mResult;
    std::size_t mAt = 0;
};

}  // namespace

std::string Literal::Text() const {
    std::string text;
    text.reserve(raw.size());
    for (std::size_t i = 0; i < raw.size(); ++i) {
        text += raw[i];
        if (raw[i] == '\'') ++i;
    }
    return text;
}

void Lex(std::string_view statement, LexedText& result) {
    Lexer(statement, result).Run();
}

}  // namespace kelvane::tsql
