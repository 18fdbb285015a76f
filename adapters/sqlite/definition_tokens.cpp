#include "adapters/sqlite/definition_tokens.h"

#include <algorithm>

#include "platform/ascii.h"

namespace kelvane::sqlite {

namespace {

using Kind = DefinitionToken::Kind;

constexpr std::string_view kBlanks = " \t\n\f\r";
// To the engine a byte order mark at the front of a word is a blank, and inside one a letter.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool IsWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$' || static_cast<unsigned char>(c) >= 0x80;
}

class Reader {
public:
    explicit Reader(std::string_view text) : mRest(text) {}

    DefinitionToken Take() {
        SkipBlanks();
        if (mRest.empty()) return {};
        const char first = mRest.front();
        if (first == '\'' || first == '"' || first == '`') return TakeQuoted(first, true);
        if (first == '[') return TakeQuoted(']', false);
        if (!IsWordCharacter(first)) return {Kind::Symbol, TakeText(1)};
        const auto end = std::find_if_not(mRest.begin(), mRest.end(), IsWordCharacter);
        return {Kind::Word, TakeText(static_cast<std::size_t>(end - mRest.begin()))};
    }

private:
    std::string TakeText(std::size_t length) {
        std::string text(mRest.substr(0, length));
        mRest.remove_prefix(length);
        return text;
    }

    void SkipBehind(std::string_view end) {
        const std::size_t at = mRest.find(end);
        mRest.remove_prefix(at == std::string_view::npos ? mRest.size() : at + end.size());
    }

    void SkipBlanks() {
        for (;;) {
            if (mRest.starts_with("--")) {
                SkipBehind("\n");
            } else if (mRest.starts_with("/*")) {
                mRest.remove_prefix(2);
                SkipBehind("*/");
            } else if (mRest.starts_with(kByteOrderMark)) {
                mRest.remove_prefix(kByteOrderMark.size());
            } else if (!mRest.empty() && kBlanks.find(mRest.front()) != std::string_view::npos) {
                mRest.remove_prefix(1);
            } else {
                return;
            }
        }
    }

    DefinitionToken TakeQuoted(char end, bool doubled) {
        DefinitionToken token{Kind::Quoted, ""};
        for (mRest.remove_prefix(1); !mRest.empty(); mRest.remove_prefix(1)) {
            const bool ends = mRest.front() == end;
            if (ends && doubled && mRest.size() > 1 && mRest[1] == end) {
                mRest.remove_prefix(1);
            } else if (ends) {
                mRest.remove_prefix(1);
                break;
            }
            token.text += mRest.front();
        }
        return token;
    }

    std::string_view mRest;
};

}  // namespace

bool DefinitionToken::IsWord(std::string_view keyword) const {
    return kind == Kind::Word && platform::EqualIgnoringCase(text, keyword);
}

std::vector<DefinitionToken> DefinitionTokens(std::string_view text) {
    std::vector<DefinitionToken> tokens;
    Reader reader(text);
    do {
        tokens.push_back(reader.Take());
    } while (tokens.back().kind != Kind::End);
    return tokens;
}

}  // namespace kelvane::sqlite
