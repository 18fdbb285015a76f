#include "adapters/sqlite/stored_definition.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "adapters/sqlite/database.h"
#include "adapters/sqlite/definition_tokens.h"
#include "adapters/sqlite/failures.h"
#include "adapters/sqlite/statement.h"
#include "platform/ascii.h"
#include "platform/utf8.h"

namespace kelvane::sqlite {

namespace {

using platform::EqualIgnoringCase;
using Tokens = std::span<const DefinitionToken>;

// What would run code, or throw rows away, when a row is written or checked. None of these words is
// a name to the engine unless it stands in quotes ("conflict" may be one, but not behind "on").
struct TableClause {
    std::string_view word;
    std::string_view next;
    const char* meaning;
};

constexpr TableClause kForbiddenClauses[] = {
    {"check", "", "CHECK 约束"},
    {"as", "", "计算列"},
    {"default", "(", "默认值表达式"},
    {"on", "conflict", "ON CONFLICT 规定"},
};

// A name of the file's, fit for a message.
std::string Shown(const std::string& name) {
    constexpr std::size_t kMaxCharacters = 60;
    return std::string(platform::FirstCharacters(name, kMaxCharacters));
}

bool TakeWord(Tokens& tokens, std::string_view word) {
    if (!tokens.front().IsWord(word)) return false;
    tokens = tokens.subspan(1);
    return true;
}

bool TakeSymbol(Tokens& tokens, char symbol) {
    if (!tokens.front().IsSymbol(symbol)) return false;
    tokens = tokens.subspan(1);
    return true;
}

bool TakeAnyName(Tokens& tokens) {
    if (!tokens.front().IsName()) return false;
    tokens = tokens.subspan(1);
    return true;
}

bool TakeName(Tokens& tokens, const std::string& name) {
    return EqualIgnoringCase(tokens.front().text, name) && TakeAnyName(tokens);
}

// A column, or a text column without its trailing blanks, which is how an account's own indexes
// hold texts.
bool TakeIndexedColumn(Tokens& tokens) {
    if (tokens.front().IsWord("rtrim") && tokens[1].IsSymbol('(')) {
        tokens = tokens.subspan(2);
        if (!TakeAnyName(tokens) || !TakeSymbol(tokens, ')')) return false;
    } else if (!TakeAnyName(tokens)) {
        return false;
    }
    if (TakeWord(tokens, "collate") && !TakeAnyName(tokens)) return false;
    if (!TakeWord(tokens, "asc")) TakeWord(tokens, "desc");
    return true;
}

bool IsPlainIndex(Tokens tokens, const StoredDefinition& definition) {
    if (!TakeWord(tokens, "create")) return false;
    TakeWord(tokens, "unique");
    if (!TakeWord(tokens, "index") || !TakeName(tokens, definition.name) ||
        !TakeWord(tokens, "on") || !TakeName(tokens, definition.table) ||
        !TakeSymbol(tokens, '(')) {
        return false;
    }
    do {
        if (!TakeIndexedColumn(tokens)) return false;
    } while (TakeSymbol(tokens, ','));
    return TakeSymbol(tokens, ')') && tokens.front().kind == DefinitionToken::Kind::End;
}

bool Begins(Tokens tokens, const TableClause& clause) {
    if (!tokens.front().IsWord(clause.word)) return false;
    if (clause.next.empty()) return true;
    const DefinitionToken& next = tokens[1];
    return next.IsWord(clause.next) || (clause.next.size() == 1 && next.IsSymbol(clause.next[0]));
}

std::optional<std::string> ForbiddenInTable(Tokens tokens, const std::string& name) {
    const std::string owner = "数据表 " + Shown(name) + " 的";
    for (; tokens.size() > 1; tokens = tokens.subspan(1)) {
        for (const TableClause& clause : kForbiddenClauses) {
            if (Begins(tokens, clause)) return owner + clause.meaning;
        }
    }
    return std::nullopt;
}

std::optional<std::string> ForbiddenInView(const std::string& name,
                                           const std::vector<std::string>& tables) {
    const bool replaces = std::ranges::any_of(
        tables, [&](const std::string& table) { return EqualIgnoringCase(table, name); });
    if (replaces) return "代替数据表的视图 " + Shown(name);
    return std::nullopt;
}

// An index that a key or a unique column brings with it has no definition of its own.
bool IsAutomaticIndex(const StoredDefinition& definition) {
    return definition.type == "index" && definition.text.empty() &&
           definition.name.starts_with("sqlite_autoindex_");
}

}  // namespace

std::optional<std::string> ForbiddenPart(const StoredDefinition& definition,
                                         const std::vector<std::string>& tables) {
    if (IsAutomaticIndex(definition)) return std::nullopt;
    const std::vector<DefinitionToken> all = DefinitionTokens(definition.text);
    Tokens tokens(all);
    const auto& [type, name, table, text] = definition;
    // The engine goes by the text alone and other readers by the row's type and name.
    if (type == "trigger" || (TakeWord(tokens, "create") && tokens.front().IsWord("trigger"))) {
        return "数据表 " + Shown(table) + " 的触发器 " + Shown(name);
    }
    if (tokens.front().IsWord("virtual")) return "虚拟表 " + Shown(name);
    if (type == "index") {
        if (IsPlainIndex(all, definition)) return std::nullopt;
        return "数据表 " + Shown(table) + " 的索引 " + Shown(name) + "（不是单纯按列建立的）";
    }
    if (type == "table" && TakeWord(tokens, "table") && TakeName(tokens, name)) {
        return ForbiddenInTable(tokens, name);
    }
    if (type == "view" && TakeWord(tokens, "view") && TakeName(tokens, name)) {
        return ForbiddenInView(name, tables);
    }
    return "无法识别的对象 " + Shown(name);
}

void RequirePlainDefinitions(Database& database, const std::vector<std::string>& tables) {
    Statement statement(database, "select type, name, tbl_name, sql from sqlite_schema", false);
    int code = statement.Step();
    for (; code == SQLITE_ROW; code = statement.Step()) {
        const StoredDefinition definition{statement.Text(0), statement.Text(1), statement.Text(2),
                                          statement.Text(3)};
        if (const auto forbidden = ForbiddenPart(definition, tables)) {
            throw AccountError(database.Path(), "含有不允许的内容：" + *forbidden);
        }
    }
    if (code != SQLITE_DONE) database.Fail(code);
}

}  // namespace kelvane::sqlite
