#include "platform/connection_string.h"

#include <algorithm>

#include "platform/ascii.h"

namespace kelvane::platform {

namespace {

constexpr std::string_view kHidden = "***";
constexpr std::string_view kWhiteSpace = " \t\r\n";

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kWhiteSpace);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kWhiteSpace) - first + 1);
}

char OpeningMark(ValueMarks marks) {
    return marks == ValueMarks::Braces ? '{' : '"';
}

char ClosingMark(char opening) {
    return opening == '{' ? '}' : opening;
}

bool IsMark(char c) {
    return c == '{' || c == '}' || c == '"' || c == '\'';
}

// Where a value that begins at `from` ends: at one of `ends`, which inside the value's marks, one
// of `openings`, are characters of it. A value whose marks are not closed takes all the text.
std::size_t EndOfValue(std::string_view text, std::size_t from, std::string_view openings,
                       std::string_view ends) {
    const std::size_t open = text.find_first_not_of(" \t", from);
    const bool marked =
        open != std::string_view::npos && openings.find(text[open]) != std::string_view::npos;
    if (!marked) return std::min(text.find_first_of(ends, from), text.size());
    const char close = ClosingMark(text[open]);
    for (std::size_t at = open + 1; at < text.size(); ++at) {
        if (text[at] != close) continue;
        if (at + 1 < text.size() && text[at + 1] == close) {
            ++at;
            continue;
        }
        const std::size_t behind = text.find_first_not_of(" \t", at + 1);
        if (behind == std::string_view::npos) break;
        if (ends.find(text[behind]) != std::string_view::npos) return behind;
    }
    return text.size();
}

bool IsOneOf(std::string_view name, PartNames names) {
    return std::ranges::any_of(
        names, [&](std::string_view known) { return EqualIgnoringCase(known, name); });
}

struct Range {
    std::size_t begin;
    std::size_t end;
};

// The next password from `from` on, whatever the text around it is.
std::optional<Range> NextPassword(std::string_view text, std::size_t from) {
    for (std::size_t equals = text.find('=', from); equals != std::string_view::npos;
         equals = text.find('=', equals + 1)) {
        const auto before = Trimmed(text.substr(from, equals - from));
        const bool found = std::ranges::any_of(kPasswordNames, [&](std::string_view name) {
            return before.size() >= name.size() &&
                   EqualIgnoringCase(before.substr(before.size() - name.size()), name);
        });
        if (found) return Range{equals + 1, EndOfValue(text, equals + 1, "{\"'", ";\r\n")};
    }
    return {};
}

// The same with all that is hidden together with it: where the marks of one password are not closed
// as they should be, another one may begin before it ends.
std::optional<Range> NextHidden(std::string_view text, std::size_t from) {
    std::optional<Range> hidden = NextPassword(text, from);
    if (!hidden) return {};
    for (auto inner = NextPassword(text, hidden->begin); inner && inner->begin < hidden->end;
         inner = NextPassword(text, inner->begin)) {
        hidden->end = std::max(hidden->end, inner->end);
    }
    return hidden;
}

bool IsOfWord(char c) {
    const char lower = LowerAscii(c);
    return c == '_' || (c >= '0' && c <= '9') || (lower >= 'a' && lower <= 'z');
}

void AppendMarkedValue(std::string& text, std::string_view value, ValueMarks marks) {
    const char open = OpeningMark(marks);
    const char close = ClosingMark(open);
    text += open;
    for (const char c : value) {
        text += c;
        if (c == close) text += c;
    }
    text += close;
}

void AppendOdbcValue(std::string& text, std::string_view value) {
    const bool plain = value.find_first_of("[]{}(),;?*=!@\r\n") == std::string_view::npos &&
                       Trimmed(value).size() == value.size();
    if (plain) {
        text += value;
    } else {
        AppendMarkedValue(text, value, ValueMarks::Braces);
    }
}

// A secret's forms, each once.
class Forms {
public:
    void Add(std::string_view form) {
        const bool isMark = form.size() == 1 && IsMark(form.front());
        if (form.empty() || isMark || std::ranges::find(mForms, form) != mForms.end()) return;
        mForms.emplace_back(form);
    }

    // A value of a connection string and what becomes of it where its marks are not known of, or
    // are ended by the first character that could end them.
    void AddValue(std::string_view value) {
        for (const auto marks : {ValueMarks::Braces, ValueMarks::Quotes}) {
            Add(PlainValue(value, marks));
            Add(OdbcValue(PlainValue(value, marks)));
        }
        Add(value);
        Add(value.substr(0, value.find(';')));
        if (value.starts_with('{')) Add(value.substr(1, value.find('}') - 1));
        if (value.size() > 2 && IsMark(value.front())) Add(value.substr(1, value.size() - 2));
        while (!value.empty() && IsMark(value.front())) value.remove_prefix(1);
        while (!value.empty() && IsMark(value.back())) value.remove_suffix(1);
        Add(value);
    }

    // The longer ones first: a shorter one may be a part of them.
    std::vector<std::string> Sorted() && {
        std::ranges::stable_sort(mForms, std::ranges::greater(), &std::string::size);
        return std::move(mForms);
    }

private:
    std::vector<std::string> mForms;
};

}  // namespace

std::vector<ConnectionPart> ReadConnectionString(std::string_view text, ValueMarks marks) {
    const char opening = OpeningMark(marks);
    std::vector<ConnectionPart> parts;
    while (!text.empty()) {
        const std::size_t equals = text.find('=');
        std::size_t end = std::min(text.find(';'), text.size());
        const bool hasName = equals < end;
        if (hasName) end = EndOfValue(text, equals + 1, {&opening, 1}, ";");
        ConnectionPart part{text.substr(0, end), {}, {}};
        if (hasName) {
            part.name = Trimmed(part.whole.substr(0, equals));
            part.value = PlainValue(part.whole.substr(equals + 1), marks);
        }
        if (!Trimmed(part.whole).empty()) parts.push_back(std::move(part));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return parts;
}

std::optional<std::string> FindValue(std::string_view connectionString, PartNames names) {
    for (ConnectionPart& part : ReadConnectionString(connectionString)) {
        if (IsOneOf(part.name, names)) return std::move(part.value);
    }
    return {};
}

std::string PlainValue(std::string_view value, ValueMarks marks) {
    value = Trimmed(value);
    const char open = OpeningMark(marks);
    const char close = ClosingMark(open);
    if (value.size() < 2 || value.front() != open || value.back() != close) {
        return std::string(value);
    }
    std::string plain;
    for (std::size_t at = 1; at + 1 < value.size(); ++at) {
        plain += value[at];
        if (value[at] == close && value[at + 1] == close) ++at;
    }
    return plain;
}

std::string MarkedValue(std::string_view value, ValueMarks marks) {
    std::string text;
    AppendMarkedValue(text, value, marks);
    return text;
}

std::string OdbcValue(std::string_view value) {
    std::string text;
    AppendOdbcValue(text, value);
    return text;
}

std::string WithEnd(std::string_view connectionString, std::string_view more) {
    std::string text;
    text.reserve(connectionString.size() + 1 + more.size());
    text += connectionString;
    const std::string_view trimmed = Trimmed(connectionString);
    if (!trimmed.empty() && !trimmed.ends_with(';')) text += ';';
    text += more;
    return text;
}

std::string WithValue(std::string_view connectionString, PartNames names, std::string_view value) {
    std::string text;
    constexpr std::size_t kMarks = 5;  // around the name and the value
    text.reserve(connectionString.size() + names.front().size() + 2 * value.size() + kMarks);
    for (const ConnectionPart& part : ReadConnectionString(connectionString)) {
        if (!IsOneOf(part.name, names)) text.append(part.whole) += ';';
    }
    text.append(names.front()) += '=';
    AppendOdbcValue(text, value);
    text += ';';
    return text;
}

bool HoldsPassword(std::string_view text) {
    return NextPassword(text, 0).has_value();
}

std::string WithoutPasswords(std::string_view text) {
    std::string cleared;
    std::size_t at = 0;
    while (const auto password = NextHidden(text, at)) {
        cleared += text.substr(at, password->begin - at);
        cleared += kHidden;
        at = password->end;
    }
    return cleared.append(text.substr(at));
}

std::vector<std::string> SecretsOf(std::string_view connectionString, std::string_view password) {
    Forms forms;
    const std::size_t last = connectionString.find_last_not_of("; \t\r\n");
    forms.Add(connectionString.substr(0, last + 1));
    forms.Add(password);
    forms.Add(OdbcValue(password));
    std::size_t at = 0;
    while (const auto found = NextPassword(connectionString, at)) {
        forms.AddValue(Trimmed(connectionString.substr(found->begin, found->end - found->begin)));
        at = found->begin;
    }
    return std::move(forms).Sorted();
}

std::string WithoutSecrets(std::string text, const std::vector<std::string>& secrets,
                           bool wholeWords) {
    for (const std::string& secret : secrets) {
        std::size_t at = text.find(secret);
        while (at != std::string::npos) {
            const std::size_t end = at + secret.size();
            const bool inside =
                (at > 0 && IsOfWord(text[at - 1]) && IsOfWord(secret.front())) ||
                (end < text.size() && IsOfWord(text[end]) && IsOfWord(secret.back()));
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

}  // namespace kelvane::platform
