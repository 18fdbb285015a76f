#include "host/account/connection_text.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>

#include "platform/ascii.h"
#include "platform/blanks.h"

namespace kelvane::host {

namespace {

constexpr std::array<std::string_view, 2> kUser = {"UID", "User ID"};
constexpr std::array<std::string_view, 2> kPassword = {"PWD", "Password"};
constexpr std::array<std::string_view, 2> kServer = {"Server", "Servername"};
constexpr std::array<std::string_view, 1> kDatabase = {"Database"};
constexpr std::array<std::string_view, 1> kSourceName = {"DSN"};

// Where a value that begins at `from` ends: behind its braces (a doubled closing one is a character
// of it), or before the next semicolon.
std::size_t EndOfValue(std::string_view text, std::size_t from) {
    std::size_t at = from;
    while (at < text.size() && text[at] == ' ') ++at;
    if (at == text.size() || text[at] != '{') return std::min(text.find(';', from), text.size());
    for (++at; at < text.size(); ++at) {
        if (text[at] != '}') continue;
        if (at + 1 == text.size() || text[at + 1] != '}') break;
        ++at;
    }
    return std::min(text.find(';', at), text.size());
}

bool IsOneOf(std::string_view keyword, std::span<const std::string_view> names) {
    return std::ranges::any_of(
        names, [&](std::string_view name) { return platform::EqualIgnoringCase(name, keyword); });
}

// The value of the first keyword of that name.
std::optional<std::string> Find(std::string_view text, std::span<const std::string_view> names) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t equals = text.find('=', at);
        if (equals == std::string_view::npos) break;
        const std::size_t end = EndOfValue(text, equals + 1);
        if (IsOneOf(platform::WithoutOuterBlanks(text.substr(at, equals - at)), names)) {
            return std::string(
                platform::WithoutOuterBlanks(text.substr(equals + 1, end - equals - 1)));
        }
        at = end + 1;
    }
    return {};
}

struct Span {
    std::size_t begin;
    std::size_t end;
};

// The next password from `from` on, wherever the text before it may come from.
std::optional<Span> NextPassword(std::string_view text, std::size_t from) {
    for (std::size_t equals = text.find('=', from); equals != std::string_view::npos;
         equals = text.find('=', equals + 1)) {
        const auto before = platform::WithoutOuterBlanks(text.substr(from, equals - from));
        const bool found = std::ranges::any_of(kPassword, [&](std::string_view name) {
            return before.size() >= name.size() &&
                   platform::EqualIgnoringCase(before.substr(before.size() - name.size()), name);
        });
        if (found) return Span{equals + 1, EndOfValue(text, equals + 1)};
    }
    return {};
}

}  // namespace

bool LacksPassword(std::string_view connectionString) {
    return Find(connectionString, kUser) && !Find(connectionString, kPassword);
}

std::string WithPassword(std::string_view connectionString, std::string_view password) {
    std::string text(connectionString);
    if (!text.empty() && text.back() != ';') text += ';';
    text += "PWD={";
    for (const char character : password) {
        text += character;
        if (character == '}') text += character;
    }
    return text + '}';
}

std::string ServerNameOf(std::string_view connectionString) {
    const auto database = Find(connectionString, kDatabase);
    const auto server = Find(connectionString, kServer);
    if (database && server) return *database + " on " + *server;
    if (database) return *database;
    if (server) return *server;
    return Find(connectionString, kSourceName).value_or("database");
}

bool HoldsPassword(std::string_view text) {
    return NextPassword(text, 0).has_value();
}

std::string WithoutPasswords(std::string_view text) {
    std::string cleared;
    std::size_t at = 0;
    while (const auto password = NextPassword(text, at)) {
        cleared += text.substr(at, password->begin - at);
        cleared += "***";
        at = password->end;
    }
    return cleared.append(text.substr(at));
}

}  // namespace kelvane::host
