#include "adapters/odbc/select_source.h"

#include <algorithm>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/lexer.h"
#include "adapters/tsql/language/parser.h"
#include "platform/ascii.h"

namespace kelvane::odbc {

namespace {

using platform::EqualIgnoringCase;
using tsql::Expression;
using tsql::LexedText;
using tsql::Select;
using tsql::Statement;
using tsql::Token;

bool IsWord(const Token& token, std::string_view word) {
    return token.kind == Token::Kind::Name && EqualIgnoringCase(token.text, word);
}

// The place in `text` of the first token outside parentheses from `start` on that is one of the
// words; the end of the text when there is none.
std::size_t PlaceOf(std::string_view text, const LexedText& lexed, std::size_t start,
                    std::initializer_list<std::string_view> words) {
    int depth = 0;
    for (const Token& token : lexed.tokens) {
        if (token.kind == Token::Kind::Symbol) {
            depth += token.text == "(" ? 1 : token.text == ")" ? -1 : 0;
        }
        if (token.kind != Token::Kind::Name || depth != 0) continue;
        const auto place = static_cast<std::size_t>(token.text.data() - text.data());
        if (place < start) continue;
        if (std::any_of(words.begin(), words.end(),
                        [&](std::string_view word) { return IsWord(token, word); })) {
            return place;
        }
    }
    return text.size();
}

std::string ConditionOf(std::string_view text, const LexedText& lexed) {
    constexpr std::string_view kWhere = "where";
    const std::size_t where = PlaceOf(text, lexed, 0, {kWhere});
    if (where == text.size()) return {};
    const std::size_t start = where + kWhere.size();
    std::string_view condition = text.substr(start);
    condition = condition.substr(0, PlaceOf(text, lexed, start, {"order"}) - start);
    while (condition.starts_with(' ')) condition.remove_prefix(1);
    while (condition.ends_with(' ') || condition.ends_with(';')) condition.remove_suffix(1);
    return std::string(condition);
}

std::string FirstColumn(const Expression& expression) {
    if (expression.kind == Expression::Kind::Column) return expression.name;
    for (const auto& operand : expression.operands) {
        std::string found = FirstColumn(*operand);
        if (!found.empty()) return found;
    }
    return {};
}

bool HasAggregate(const Expression& expression) {
    return expression.kind == Expression::Kind::Aggregate ||
           std::any_of(expression.operands.begin(), expression.operands.end(),
                       [](const auto& operand) { return HasAggregate(*operand); });
}

// A table's rows as they stand.
bool IsOfOneTable(const Select& select) {
    return select.sources.size() == 1 && !select.distinct && select.groups.empty() &&
           !select.having &&
           std::none_of(select.items.begin(), select.items.end(),
                        [](const auto& item) { return item.value && HasAggregate(*item.value); });
}

bool HoldsLock(const LexedText& lexed) {
    return std::any_of(lexed.tokens.begin(), lexed.tokens.end(),
                       [](const Token& token) { return IsWord(token, "holdlock"); });
}

std::vector<std::string> ColumnsOf(const Select& select) {
    std::vector<std::string> columns;
    for (const tsql::SelectItem& item : select.items) {
        if (!item.value) return {};
        const bool plain = item.value->kind == Expression::Kind::Column;
        columns.push_back(plain ? item.value->name : std::string());
    }
    return columns;
}

}  // namespace

BatchReading ReadBatch(std::string_view batch) {
    BatchReading reading;
    try {
        LexedText lexed;
        tsql::Lex(batch, lexed);
        tsql::TokenReader reader(lexed);
        const std::vector<Statement> statements = tsql::ParseBatch(reader);
        reading.onlyQueries =
            std::all_of(statements.begin(), statements.end(), [&](const Statement& statement) {
                const Statement& known =
                    statement.sameAs ? statements[*statement.sameAs] : statement;
                return known.kind == Statement::Kind::Select;
            });
        if (statements.size() != 1 || !reading.onlyQueries) return reading;
        const Select& select = *statements.front().select;
        const bool star = !select.items.front().value;
        if (!IsOfOneTable(select) || (star && select.items.size() > 1)) return reading;
        SelectSource source;
        source.table = select.sources.front().name;
        source.condition = ConditionOf(batch, lexed);
        source.columns = ColumnsOf(select);
        if (select.where) source.conditionColumn = FirstColumn(*select.where);
        source.holdsLock = HoldsLock(lexed);
        // An alias is known to the query alone.
        if (select.sources.front().alias.empty()) reading.source = std::move(source);
    } catch (const tsql::DatabaseError&) {
        // The server may well know what this program does not.
        return {};
    }
    return reading;
}

}  // namespace kelvane::odbc
