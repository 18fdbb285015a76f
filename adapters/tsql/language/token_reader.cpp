#include "adapters/tsql/language/token_reader.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "adapters/tsql/language/errors.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

constexpr int kDeepest = 100;
constexpr int kMaxLinks = 500;

// Words that are never a name unless they are quoted.
constexpr std::string_view kReserved[] = {
    "and",    "as",    "asc",    "between", "by",     "cross",  "delete", "desc",   "distinct",
    "exists", "from",  "full",   "group",   "having", "in",     "inner",  "insert", "into",
    "is",     "join",  "left",   "like",    "not",    "null",   "on",     "or",     "order",
    "outer",  "right", "select", "set",     "top",    "update", "values", "where",  "with",
};

// Words of the dialect that are reserved too and start what is not translated.
constexpr std::string_view kUntranslated[] = {
    "all",      "alter",  "any",     "backup",      "begin",     "break",     "bulk",    "case",
    "check",    "close",  "commit",  "compute",     "continue",  "create",    "current", "cursor",
    "database", "dbcc",   "declare", "deny",        "drop",      "dump",      "else",    "end",
    "escape",   "except", "exec",    "execute",     "exit",      "fetch",     "for",     "function",
    "goto",     "grant",  "if",      "intersect",   "kill",      "merge",     "open",    "option",
    "over",     "pivot",  "print",   "proc",        "procedure", "raiserror", "read",    "restore",
    "return",   "revert", "revoke",  "rollback",    "save",      "shutdown",  "some",    "table",
    "then",     "to",     "tran",    "transaction", "trigger",   "truncate",  "union",   "unpivot",
    "use",      "view",   "waitfor", "when",        "while",
};

// What a statement starts with, and no statement goes on with.
constexpr std::string_view kFirstWords[] = {"insert", "delete", "update", "select"};

template <std::size_t N>
bool Contains(const std::string_view (&words)[N], std::string_view word) {
    return std::any_of(std::begin(words), std::end(words), [&](std::string_view known) {
        return platform::EqualIgnoringCase(known, word);
    });
}

}  // namespace

bool TokenReader::IsWordAt(std::size_t place, std::string_view word) const {
    if (place >= mText.tokens.size()) return false;
    const Token& token = mText.tokens[place];
    return token.kind == Token::Kind::Name && platform::EqualIgnoringCase(token.text, word);
}

bool TokenReader::IsSameToken(const Token& a, const Token& b) const {
    if (a.kind != b.kind) return false;
    if (a.kind != Token::Kind::Literal) return a.text == b.text;
    const Literal& x = LiteralOf(a);
    const Literal& y = LiteralOf(b);
    return x.form == y.form && x.wide == y.wide && x.type.kind == y.type.kind;
}

bool TokenReader::TakeSame(const Run& run, std::size_t& literalShift) {
    const std::size_t end = mAt + run.length;
    if (end >= mText.tokens.size()) return false;
    // What follows must not belong to the statement.
    const bool ends = mText.tokens[end].kind == Token::Kind::End ||
                      std::any_of(std::begin(kFirstWords), std::end(kFirstWords),
                                  [&](std::string_view word) { return IsWordAt(end, word); });
    if (!ends) return false;
    literalShift = 0;
    for (std::size_t at = 0; at < run.length; ++at) {
        const Token& known = mText.tokens[run.start + at];
        const Token& token = mText.tokens[mAt + at];
        if (!IsSameToken(known, token)) return false;
        if (token.kind == Token::Kind::Literal) literalShift = token.literal - known.literal;
    }
    mAt = end;
    return true;
}

bool TokenReader::IsSymbol(std::string_view symbol) const {
    return Current().kind == Token::Kind::Symbol && Current().text == symbol;
}

bool TokenReader::IsCall(std::string_view symbol) const {
    if (mAt + 1 >= mText.tokens.size()) return false;
    const Token& next = mText.tokens[mAt + 1];
    return Current().kind == Token::Kind::Name && next.kind == Token::Kind::Symbol &&
           next.text == symbol;
}

bool TokenReader::TakeSymbol(std::string_view symbol) {
    const bool found = IsSymbol(symbol);
    if (found) Advance();
    return found;
}

bool TokenReader::TakeWord(std::string_view word) {
    const bool found = IsWord(word);
    if (found) Advance();
    return found;
}

void TokenReader::ExpectSymbol(std::string_view symbol) {
    if (!TakeSymbol(symbol)) Refuse();
}

void TokenReader::ExpectWord(std::string_view word) {
    if (!TakeWord(word)) Refuse();
}

bool TokenReader::IsName() const {
    const Token& token = Current();
    if (token.kind == Token::Kind::QuotedName) return true;
    return token.kind == Token::Kind::Name && token.text.front() != '@' &&
           token.text.front() != '#' && !Contains(kReserved, token.text) &&
           !Contains(kUntranslated, token.text);
}

std::string TokenReader::TakeName() {
    if (!IsName()) Refuse();
    std::string name(Current().text);
    Advance();
    return name;
}

int TokenReader::TakeFixedNumber() {
    const Token& token = Current();
    if (token.kind != Token::Kind::Literal || LiteralOf(token).type.kind != Type::Kind::Int) {
        Refuse();
    }
    int value = 0;
    std::from_chars(token.text.data(), token.text.data() + token.text.size(), value);
    mFixed.push_back({token.literal, std::string(token.text)});
    Advance();
    return value;
}

void TokenReader::Refuse() const {
    const Token& token = Current();
    if (token.kind == Token::Kind::End) throw SyntaxError("");
    if (token.kind == Token::Kind::Name &&
        (token.text.front() == '@' || token.text.front() == '#' ||
         Contains(kUntranslated, token.text))) {
        throw NotTranslated(token.text);
    }
    throw SyntaxError(token.text);
}

void TokenReader::CountLink() {
    if (++mLinks > kMaxLinks) throw NestedTooDeeply();
}

TokenReader::Depth::Depth(TokenReader& reader) : mReader(reader) {
    if (reader.mDepth >= kDeepest) throw NestedTooDeeply();
    ++reader.mDepth;
}

}  // namespace kelvane::tsql
