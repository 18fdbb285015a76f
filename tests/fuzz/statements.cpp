// Values of any content in statement texts: a value ends no literal, becomes nothing but itself,
// and a statement that holds it changes what it says and nothing else.
#include "adapters/tsql/language/lexer.h"
#include "platform/statement_text.h"

#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/probe_account.h"

using namespace kelvane;
using fuzz::Require;
using platform::StatementText;

namespace {

enum class Way { Inside, Quoted, Numeric, Name, Identifier };

StatementText With(Way way, const std::string& value) {
    StatementText text("UPDATE Probe SET c = ");
    switch (way) {
        case Way::Inside:
            text << "'";
            text.Inside(value);
            return text << "' WHERE id = 1";
        case Way::Quoted:
            text.Quoted(value);
            return text << " WHERE id = 1";
        case Way::Numeric:
            text.NumericText(value);
            return text << " WHERE id = 1";
        case Way::Name:
            text.Name(value);
            return text << " WHERE id = 1";
        default:
            text.Identifier(value);
            return text << " WHERE id = 1";
    }
}

std::string Kinds(const tsql::LexedText& text) {
    std::string kinds;
    for (const tsql::Token& token : text.tokens) {
        switch (token.kind) {
            case tsql::Token::Kind::Name:
            case tsql::Token::Kind::QuotedName:
                kinds += 'n';
                break;
            case tsql::Token::Kind::Literal:
                kinds += text.literals[token.literal].IsText() ? 't' : '0';
                break;
            default:
                kinds += std::string(token.text) + ' ';
        }
    }
    return kinds;
}

// The tokens that the same statement has with a harmless value.
std::string WantedKinds(Way way, const std::string& value) {
    const bool text = way == Way::Inside || way == Way::Quoted;
    if (text) return "nnnn= tnn= 0 ";
    if (way != Way::Numeric) return "nnnn= nnn= 0 ";
    const bool negative = value.find('-') != std::string::npos;
    return negative ? "nnnn= - 0nn= 0 " : "nnnn= 0nn= 0 ";
}

void TryTokens(Way way, const std::string& value, const StatementText& statement) {
    tsql::LexedText lexed;
    tsql::Lex(statement.Checked(), lexed);
    Require(Kinds(lexed) == WantedKinds(way, value), "a value is one word of its statement",
            statement.Text() + "\n" + Kinds(lexed));
    if (way != Way::Inside) return;
    std::string doubled;
    for (const char c : lexed.literals.front().Text())
        doubled += c == '\'' ? "''" : std::string(1, c);
    Require(doubled == value, "a literal holds its value", statement.Text());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Bytes input(bytes, size);
    const Way way = static_cast<Way>(input.Number(5));
    const bool doubles = input.Number(2) == 1;
    std::string value;
    for (const char c : input.Rest()) value += c == '\'' && doubles ? "''" : std::string(1, c);

    const StatementText statement = With(way, value);
    if (statement.IsMalformed()) {
        const bool odd = value.find('\'') != std::string::npos;
        const bool text = way == Way::Inside || way == Way::Quoted;
        Require(!text || (odd && !doubles), "a value whose apostrophes are doubled is taken",
                value);
        return 0;
    }
    TryTokens(way, value, statement);
    fuzz::ProbeAccount::Shared().Run(statement.Checked(), true);
    return 0;
}
