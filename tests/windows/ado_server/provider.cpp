#include "tests/windows/ado_server/provider.h"

#include <array>
#include <cctype>

#include "tests/windows/ado_server/ado_error.h"

namespace kelvane::ado_server {
namespace {

std::string LowerTrimmed(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    text = text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
    std::string lower;
    for (const char c : text) {
        lower += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return lower;
}

// The end of a "KEY=value" piece: the next semicolon outside braces.
std::size_t EndOfPiece(std::string_view text) {
    bool braced = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '{') braced = true;
        if (text[i] == '}') braced = false;
        if (text[i] == ';' && !braced) return i;
    }
    return text.size();
}

constexpr std::array<std::string_view, 2> kLibraryKeys{"persist security info", "ole db services"};

}  // namespace

Provider ProviderOf(std::string_view connectionString) {
    Provider provider;
    while (!connectionString.empty()) {
        const std::size_t end = EndOfPiece(connectionString);
        const std::string_view piece = connectionString.substr(0, end);
        connectionString.remove_prefix(std::min(end + 1, connectionString.size()));
        const std::size_t equals = piece.find('=');
        const std::string key = LowerTrimmed(piece.substr(0, equals));
        if (key == "provider") {
            const std::string name = LowerTrimmed(piece.substr(equals + 1));
            if (name.starts_with("sqloledb")) {
                provider.money = MoneyForm::Currency;
            } else if (!name.starts_with("msdasql")) {
                throw MakeError(ErrorNumber::ProviderNotFound);
            }
        } else if (!key.empty() && key != kLibraryKeys[0] && key != kLibraryKeys[1]) {
            if (!provider.rest.empty()) provider.rest += ';';
            provider.rest += piece;
        }
    }
    return provider;
}

bool GivesRows(std::string_view statement) {
    return LowerTrimmed(statement).starts_with("select");
}

}  // namespace kelvane::ado_server
