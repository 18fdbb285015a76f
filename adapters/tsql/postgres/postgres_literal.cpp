// Values in the text of a statement for PostgreSQL.
#include <array>
#include <charconv>

#include "adapters/tsql/language/quoted_text.h"
#include "adapters/tsql/postgres/postgres_writer.h"
#include "adapters/tsql/values/stored_value.h"

namespace kelvane::tsql {

namespace {

using Kind = Type::Kind;

// A sign binds less than a cast or a subscript behind the number.
std::string Number(std::string digits) {
    return digits.front() == '-' ? '(' + digits + ')' : digits;
}

std::string Float(double value) {
    std::array<char, 40> buffer{};
    const auto end = std::to_chars(buffer.begin(), buffer.end(), value).ptr;
    return QuotedText({buffer.data(), static_cast<std::size_t>(end - buffer.data())}) + "::float8";
}

}  // namespace

std::string PostgresLiteral(const Datum& value, Type type) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        if (type.kind == Kind::Money) return Number(*text);
        return QuotedText(*text) + (type.kind == Kind::DateTime ? "::timestamp(3)" : "");
    }
    if (const auto* number = std::get_if<double>(&value)) return Float(*number);
    const auto* integer = std::get_if<std::int64_t>(&value);
    if (integer == nullptr) return "null";
    return Number(type.kind == Kind::Money ? MoneyText(*integer) : std::to_string(*integer));
}

// A "$" outside of quotes is a parameter's place: values come in here alone, and names are quoted.
std::string FilledForPostgres(const Translated& translated, const std::vector<Literal>& literals) {
    std::string result;
    const std::string& text = translated.text;
    char quote = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (quote != 0) {
            if (c == quote) quote = 0;
        } else if (c == '"' || c == '\'') {
            quote = c;
        } else if (c == '$') {
            std::size_t place = 0;
            const char* end = text.data() + text.size();
            const char* stop = std::from_chars(text.data() + at + 1, end, place).ptr;
            const Parameter& parameter = translated.parameters[place - 1];
            result += PostgresLiteral(ValueOf(parameter, literals), parameter.type);
            at = static_cast<std::size_t>(stop - text.data()) - 1;
            continue;
        }
        result += c;
    }
    return result;
}

}  // namespace kelvane::tsql
