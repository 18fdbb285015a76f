// What the server's errors mean: the dialect's number and text where the dialect has one, by
// SQLSTATE, because the server's own texts come in its operator's language.
#include <algorithm>
#include <charconv>

#include "adapters/odbc/postgres_dialect.h"
#include "adapters/tsql/language/errors.h"

namespace kelvane::odbc {

namespace {

// SQLSTATEs; the first is raised by the functions of our own that lie in the account.
constexpr std::string_view kOwnState = "KV000";
constexpr std::string_view kDuplicate = "23505";
constexpr std::string_view kNull = "23502";
constexpr std::string_view kManyRows = "21000";
constexpr std::string_view kDivision = "22012";

struct Number {
    std::string_view state;
    int code;
};

constexpr Number kNumbers[] = {
    {"25P02", 3930},
    {"22001", tsql::error::kTextTooLong},
    {"22003", tsql::error::kOverflow},
    {"22007", 241},
    {"22008", tsql::error::kOutOfRangeDate},
    {"22P02", tsql::error::kConversion},
    {"42P01", tsql::error::kUnknownTable},
    {"42703", tsql::error::kUnknownColumn},
    {"42883", tsql::error::kUnknownFunction},
    {"42601", tsql::error::kSyntax},
    {"42P07", 2714},
    {"54001", tsql::error::kNestedTooDeeply},
};

// "ERROR: text;\nError while executing the query" or ";\nThe connection has been lost", and "ERROR:
// text\nDETAIL: …".
std::string_view MessageIn(std::string_view text) {
    const std::size_t colon = text.find(": ");
    const bool hasSeverity =
        colon != std::string_view::npos && text.find(' ') == colon + 1 && colon < 12;
    if (hasSeverity) text.remove_prefix(colon + 2);
    while (text.starts_with(' ')) text.remove_prefix(1);
    for (const std::string_view end : {";\nError while", ";\nThe connection", "\nDETAIL:"}) {
        text = text.substr(0, text.find(end));
    }
    return text;
}

std::vector<std::string> NamesIn(std::string_view text) {
    std::vector<std::string> names;
    for (std::size_t at = 0;;) {
        const std::size_t open = text.find('"', at);
        const std::size_t close = open == std::string_view::npos ? open : text.find('"', open + 1);
        if (close == std::string_view::npos) return names;
        names.emplace_back(text.substr(open + 1, close - open - 1));
        at = close + 1;
    }
}

Failure From(const platform::DatabaseError& error) {
    return {FailureKind::Statement, error.NativeCode(), error.what()};
}

}  // namespace

Failure PostgresDialect::Judge(const Diagnostic& diagnostic) const {
    const std::string_view message = MessageIn(diagnostic.text);
    const std::vector<std::string> names = NamesIn(message);
    if (diagnostic.state == kOwnState) {
        Failure failure;
        const char* end = message.data() + message.size();
        const char* stop = std::from_chars(message.data(), end, failure.code).ptr;
        failure.text = message.substr(std::min<std::size_t>(
            message.size(), static_cast<std::size_t>(stop - message.data()) + 1));
        return failure;
    }
    if (diagnostic.state == kManyRows) return From(tsql::ManyRows());
    if (diagnostic.state == kDivision) return From(tsql::DivisionByZero());
    if (diagnostic.state == kDuplicate && !names.empty()) {
        return From(tsql::DuplicateKey(mCatalog.TableOfIndex(names.back())));
    }
    if (diagnostic.state == kNull && names.size() > 1) {
        return From(tsql::NullRefused(names[1], names[0]));
    }
    Failure failure = FailureOf(diagnostic);
    failure.text = message;
    const auto* number =
        std::find_if(std::begin(kNumbers), std::end(kNumbers),
                     [&](const Number& known) { return diagnostic.state == known.state; });
    if (number != std::end(kNumbers)) failure.code = number->code;
    return failure;
}

}  // namespace kelvane::odbc
