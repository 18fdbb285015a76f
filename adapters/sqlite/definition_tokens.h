// The words of a definition in the schema, divided as the engine divides them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvane::sqlite {

struct DefinitionToken {
    enum class Kind { Word, Quoted, Symbol, End };
    Kind kind = Kind::End;
    std::string text;  // without its quotes; one character of a symbol

    // Letter case does not count. Something in quotes is never a keyword.
    bool IsWord(std::string_view keyword) const;
    bool IsSymbol(char symbol) const { return kind == Kind::Symbol && text[0] == symbol; }
    bool IsName() const { return kind == Kind::Word || kind == Kind::Quoted; }
};

// Comments and blanks are left out; an End stands last.
std::vector<DefinitionToken> DefinitionTokens(std::string_view text);

}  // namespace kelvane::sqlite
