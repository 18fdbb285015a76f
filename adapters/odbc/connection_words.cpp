#include "adapters/odbc/connection_words.h"

#include <algorithm>

#include "platform/ascii.h"

namespace kelvane::odbc {

namespace {

using platform::EqualIgnoringCase;

constexpr std::string_view kUser = "UID";
constexpr std::string_view kPassword = "PWD";
constexpr std::string_view kPasswordNames[] = {"PWD", "PASSWORD"};
constexpr std::string_view kHidden = "***";

std::string_view Trimmed(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos) return {};
    return text.substr(start, text.find_last_not_of(" \t\r\n") - start + 1);
}

// One word as it is written, without the semicolon behind it.
struct Part {
    std::string_view whole;
    std::string_view name;
    std::string_view value;  // with its braces
};

// The end of a value that begins with a brace: behind its closing brace.
std::size_t EndOfBraces(std::string_view text, std::size_t open) {
    for (std::size_t at = open + 1; at < text.size(); ++at) {
        if (text[at] != '}') continue;
        if (at + 1 < text.size() && text[at + 1] == '}') {
            ++at;
        } else {
            return at + 1;
        }
    }
    return text.size();
}

Part TakePart(std::string_view& text) {
    Part part;
    const std::size_t equals = text.find('=');
    std::size_t end = text.find(';');
    if (equals < end) {
        const std::size_t start = text.find_first_not_of(" \t", equals + 1);
        if (start != std::string_view::npos && text[start] == '{') {
            end = text.find(';', EndOfBraces(text, start));
        }
        part.name = Trimmed(text.substr(0, equals));
    }
    end = std::min(end, text.size());
    part.whole = text.substr(0, end);
    if (!part.name.empty()) part.value = Trimmed(text.substr(equals + 1, end - equals - 1));
    text.remove_prefix(std::min(end + 1, text.size()));
    return part;
}

std::string Unbraced(std::string_view value) {
    if (value.size() < 2 || value.front() != '{' || value.back() != '}') return std::string(value);
    std::string result;
    for (std::size_t at = 1; at + 1 < value.size(); ++at) {
        result += value[at];
        if (value[at] == '}' && value[at + 1] == '}') ++at;
    }
    return result;
}

bool IsPasswordName(std::string_view name) {
    return std::any_of(std::begin(kPasswordNames), std::end(kPasswordNames),
                       [&](std::string_view known) { return EqualIgnoringCase(known, name); });
}

bool IsWordPart(char c) {
    return c == '_' || (c >= '0' && c <= '9') ||
           (platform::LowerAscii(c) >= 'a' && platform::LowerAscii(c) <= 'z');
}

void Append(std::string& text, std::string_view part) {
    if (!text.empty() && text.back() != ';') text += ';';
    text += part;
}

}  // namespace

std::vector<ConnectionWord> ParseConnectionWords(std::string_view text) {
    std::vector<ConnectionWord> words;
    while (!text.empty()) {
        const Part part = TakePart(text);
        if (!part.name.empty()) words.push_back({std::string(part.name), Unbraced(part.value)});
    }
    return words;
}

std::string ConnectionValue(std::string_view value) {
    const bool plain = value.find_first_of("[]{}(),;?*=!@") == std::string_view::npos &&
                       Trimmed(value).size() == value.size();
    if (plain) return std::string(value);
    std::string result = "{";
    for (const char c : value) {
        result += c;
        if (c == '}') result += c;
    }
    return result + '}';
}

std::string WithLogin(std::string_view text, std::string_view user, std::string_view password) {
    std::string result;
    while (!text.empty()) {
        const Part part = TakePart(text);
        const bool replaced = (!user.empty() && EqualIgnoringCase(part.name, kUser)) ||
                              (!password.empty() && IsPasswordName(part.name));
        if (!replaced && !part.whole.empty()) Append(result, part.whole);
    }
    if (!user.empty()) Append(result, std::string(kUser) + '=' + ConnectionValue(user));
    if (!password.empty()) {
        Append(result, std::string(kPassword) + '=' + ConnectionValue(password));
    }
    return result;
}

std::string WithWords(std::string_view text, std::string_view words) {
    std::string result(text);
    Append(result, words);
    return result;
}

std::vector<std::string> SecretsOf(std::string_view text) {
    std::vector<std::string> secrets;
    const auto add = [&](std::string secret) {
        if (secret.empty()) return;
        if (std::find(secrets.begin(), secrets.end(), secret) == secrets.end()) {
            secrets.push_back(std::move(secret));
        }
    };
    add(std::string(text));
    while (!text.empty()) {
        const Part part = TakePart(text);
        if (!IsPasswordName(part.name)) continue;
        add(std::string(part.value));
        add(ConnectionValue(Unbraced(part.value)));
        add(Unbraced(part.value));
        // A driver that does not know of braces ends the value at the first semicolon.
        add(std::string(part.value.substr(0, part.value.find(';'))));
    }
    // The longer ones first: a shorter one may be part of them.
    std::stable_sort(secrets.begin(), secrets.end(),
                     [](const auto& a, const auto& b) { return a.size() > b.size(); });
    return secrets;
}

std::string WithoutSecrets(std::string text, const std::vector<std::string>& secrets,
                           bool wholeWords) {
    for (const std::string& secret : secrets) {
        std::size_t at = text.find(secret);
        while (at != std::string::npos) {
            const std::size_t end = at + secret.size();
            const bool inside =
                (at > 0 && IsWordPart(text[at - 1]) && IsWordPart(secret.front())) ||
                (end < text.size() && IsWordPart(text[end]) && IsWordPart(secret.back()));
            if (wholeWords && inside) {
                at = text.find(secret, at + 1);
            } else {
                text.replace(at, secret.size(), kHidden);
                at = text.find(secret, at + kHidden.size());
            }
        }
    }
    return text;
}

}  // namespace kelvane::odbc
