#include "tests/fuzz/generated_statement.h"

#include <array>
#include <span>
#include <string_view>
#include <vector>

namespace kelvane::fuzz {

namespace {

enum class Kind { Integer, Money, Float, Text, Date };
constexpr int kKinds = 5;

constexpr std::string_view kIntegers[] = {"0", "1", "2", "-3", "7", "255", "100", "-1", "12"};
constexpr std::string_view kAmounts[] = {"0.0", "1.5", "-0.0001", "1234.5678", "99.995", "-20.25"};
// Halves and quarters: their sums and products are exact in any order.
constexpr std::string_view kFloats[] = {"0.5e0", "-2.25e0", "3e0", "1.5e1", "0e0"};
constexpr std::string_view kTexts[] = {"''",    "'a'",   "'A '",  "N'一'",  "'it''s'", "'ab'",
                                       "' a '", "'Ünf'", "'ünf'", "'a_b%'", "'12'",    "'Z'"};
// A file's keys tell letter case apart beyond ASCII: no two that differ by it alone.
constexpr std::string_view kCodes[] = {"'a'", "'Ünf'", "N'一'", "'12'", "'AB '", "''", "'z'"};
constexpr std::string_view kPatterns[] = {"'a%'", "'%b'",  "'_'",   "'%'",   "''",     "'A_'",
                                          "'a '", "'[a]'", "'一%'", "'%ü%'", "'[^a]%'"};
constexpr std::string_view kDates[] = {"'2004-06-01'", "'1999-12-31'", "'2004-06-01 23:59:59'",
                                       "'2024-02-29'", "'1900-01-01'"};

constexpr std::string_view kIntegerColumns[] = {"id", "i", "t", "s", "b"};
constexpr std::string_view kTextColumns[] = {"c", "n"};
constexpr std::string_view kCompared[] = {"=", "<>", "<", "<=", ">", ">=", "!=", "!<", "!>"};

template <typename Choices>
auto Pick(Bytes& input, const Choices& choices) {
    return choices[static_cast<std::size_t>(input.Number(static_cast<int>(std::size(choices))))];
}

std::string LiteralOf(Bytes& input, Kind kind) {
    switch (kind) {
        case Kind::Integer:
            return std::string(Pick(input, kIntegers));
        case Kind::Money:
            return "convert(money," + std::string(Pick(input, kAmounts)) + ")";
        case Kind::Float:
            return std::string(Pick(input, kFloats));
        case Kind::Text:
            return std::string(Pick(input, kTexts));
        case Kind::Date:
            return "convert(datetime," + std::string(Pick(input, kDates)) + ")";
    }
    return "null";
}

// What a place in a statement can name.
struct Sources {
    std::vector<std::string> probes;  // correlation names of Probe
    std::vector<std::string> codeds;  // of Coded
    int depth = 0;                    // of sub-queries

    // Of a query on Probe within.
    std::string InnerName() const { return 'x' + std::to_string(depth); }
};

class Generator {
public:
    Generator(Bytes& input, Sources sources) : mInput(input), mSources(std::move(sources)) {}

    std::string Column(Kind kind) {
        const bool coded = kind == Kind::Text && !mSources.codeds.empty() && mInput.Number(2) == 1;
        if (coded) {
            return Pick(mInput, mSources.codeds) + (mInput.Number(2) == 0 ? ".code" : ".name");
        }
        if (mSources.probes.empty()) return LiteralOf(mInput, kind);
        const std::string source = Pick(mInput, mSources.probes) + '.';
        switch (kind) {
            case Kind::Integer:
                return source + std::string(Pick(mInput, kIntegerColumns));
            case Kind::Money:
                return source + 'm';
            case Kind::Float:
                return source + 'f';
            case Kind::Text:
                return source + std::string(Pick(mInput, kTextColumns));
            case Kind::Date:
                return source + 'd';
        }
        return "null";
    }

    std::string Value(Kind kind, int depth = 2) {
        if (depth == 0 || mInput.Number(2) == 0) {
            return mInput.Number(3) == 0 ? LiteralOf(mInput, kind) : Column(kind);
        }
        if (mInput.Number(6) == 0) {
            return "isnull(" + Value(kind, depth - 1) + ',' + LiteralOf(mInput, kind) + ')';
        }
        if (mInput.Number(8) == 0) return OneOfAnother(kind);
        switch (kind) {
            case Kind::Integer:
                return IntegerOf(depth - 1);
            case Kind::Money:
                return mInput.Number(3) == 0
                           ? "convert(money," + Value(Kind::Integer, depth - 1) + ')'
                           : Sum(Kind::Money, depth - 1);
            case Kind::Float:
                return Sum(Kind::Float, depth - 1);
            case Kind::Text:
                return TextOf(depth - 1);
            case Kind::Date:
                return Column(kind);
        }
        return "null";
    }

    Kind AnyKind() { return static_cast<Kind>(mInput.Number(kKinds)); }

    std::string Condition(int depth = 2) {
        if (depth > 0 && mInput.Number(3) == 0) {
            const std::string first = Condition(depth - 1);
            switch (mInput.Number(3)) {
                case 0:
                    return "not (" + first + ')';
                case 1:
                    return '(' + first + " and " + Condition(depth - 1) + ')';
                default:
                    return '(' + first + " or " + Condition(depth - 1) + ')';
            }
        }
        const Kind kind = AnyKind();
        const std::string value = Value(kind);
        const std::string negation = mInput.Number(3) == 0 ? " not" : "";
        switch (mInput.Number(8)) {
            case 0:
                return value + " is" + negation + " null";
            case 1:
                return value + negation + " between " + Value(kind, 1) + " and " + Value(kind, 1);
            case 2:
                return value + negation + " in (" + Value(kind, 0) + ',' + LiteralOf(mInput, kind) +
                       ')';
            case 3:
                return value + negation + " in (" + Query(kind) + ')';
            case 4:
                return (negation.empty() ? "" : "not ") + ("exists (" + Query(kind) + ')');
            case 5:
                if (kind != Kind::Text) break;
                return value + negation + " like " + std::string(Pick(mInput, kPatterns));
            default:
                break;
        }
        return value + std::string(Pick(mInput, kCompared)) + Value(kind);
    }

    // One that the engines need not run row by row on values that are there for no row.
    std::string Aggregate(Kind& kind) {
        switch (mInput.Number(5)) {
            case 0:
                kind = Kind::Integer;
                return "count(*)";
            case 1: {
                const std::string distinct = mInput.Number(2) == 0 ? "distinct " : "";
                const std::string value = Value(AnyKind(), 1);
                kind = Kind::Integer;
                return "count(" + distinct + value + ')';
            }
            case 2:
                kind = static_cast<Kind>(mInput.Number(3));
                return "sum(" + Value(kind, 1) + ')';
            default:
                kind = AnyKind();
                return (mInput.Number(2) == 0 ? "min(" : "max(") + Value(kind, 1) + ')';
        }
    }

private:
    std::string Sum(Kind kind, int depth) {
        constexpr std::string_view kSymbols[] = {"+", "-", "*"};
        const std::string first = Value(kind, depth);
        const auto symbol = Pick(mInput, kSymbols);
        // One factor is a fixed number, so that products stay in the range.
        const std::string second =
            symbol == "*" ? LiteralOf(mInput, Kind::Integer) : Value(kind, depth);
        return '(' + first + ' ' + std::string(symbol) + ' ' + second + ')';
    }

    std::string IntegerOf(int depth) {
        switch (mInput.Number(4)) {
            case 0:
                return "len(" + Value(Kind::Text, depth) + ')';
            case 1:
                return '(' + Value(Kind::Integer, depth) + (mInput.Number(2) == 0 ? "/7)" : "%3)");
            case 2:
                return "convert(int," + Value(Kind::Money, depth) + ')';
            default:
                return Sum(Kind::Integer, depth);
        }
    }

    std::string TextOf(int depth) {
        switch (mInput.Number(6)) {
            case 0:
                return "ltrim(" + Value(Kind::Text, depth) + ')';
            case 1:
                return "rtrim(" + Value(Kind::Text, depth) + ')';
            case 2:
                return "convert(varchar(40)," + Value(Kind::Integer, depth) + ')';
            case 3:
                return "convert(varchar(40)," + Value(Kind::Money, depth) + ',' +
                       std::to_string(mInput.Number(3)) + ')';
            case 4:
                return "convert(varchar(40)," + Value(Kind::Date, depth) + ',' +
                       std::string(Pick(mInput, kDateStyles)) + ')';
            default:
                return '(' + Value(Kind::Text, depth) + '+' + Value(Kind::Text, depth) + ')';
        }
    }

    // One value of all rows of Probe, or of those that a row is set beside.
    std::string OneOfAnother(Kind kind) {
        Sources inner;
        inner.probes = {mSources.InnerName()};
        inner.depth = mSources.depth + 1;
        Generator query(mInput, inner);
        const std::string column = query.Column(kind);
        std::string text = std::string("(select ") + (mInput.Number(2) == 0 ? "min(" : "max(") +
                           column + ") from Probe " + inner.probes.front();
        if (!mSources.probes.empty() && mInput.Number(2) == 0) {
            text += " where " + inner.probes.front() + ".i" + std::string(Pick(mInput, kCompared)) +
                    Pick(mInput, mSources.probes) + ".i";
        }
        return text + ')';
    }

    std::string Query(Kind kind) {
        Sources inner = mSources;
        const std::string name = mSources.InnerName();
        inner.probes = {name};
        ++inner.depth;
        Generator query(mInput, inner);
        const std::string column = query.Column(kind);
        return "select " + column + " from Probe " + name + " where " + query.Condition(0);
    }

    static constexpr std::string_view kDateStyles[] = {"120", "102", "111", "112", "23", "121"};

    Bytes& mInput;
    Sources mSources;
};

// The tables behind "from", and what makes their rows one by one different.
std::string From(Bytes& input, Sources& sources, std::vector<std::string>& keys) {
    sources.probes = {"p"};
    keys = {"p.id"};
    constexpr std::string_view kJoins[] = {"inner join", "left join", "left outer join", "join"};
    switch (input.Number(6)) {
        case 0: {
            sources.codeds = {"k"};
            keys.emplace_back("k.code");
            const std::string join(Pick(input, kJoins));
            return " from Probe p " + join + " Coded k on p.c = k.code";
        }
        case 1: {
            sources.probes.emplace_back("q");
            keys.emplace_back("q.id");
            const std::string join(Pick(input, kJoins));
            return " from Probe p " + join + " Probe q on " +
                   Generator(input, sources).Condition(1);
        }
        case 2:
            sources.codeds = {"k"};
            keys.emplace_back("k.code");
            return " from Probe as p, dbo.Coded k";
        case 3:
            sources.codeds = {"k"};
            keys.emplace_back("k.code");
            return " from Probe p cross join Coded as k";
        default:
            return " from Probe p with (nolock)";
    }
}

std::string Joined(const std::vector<std::string>& parts, std::string_view between) {
    std::string text;
    for (const std::string& part : parts) {
        if (!text.empty()) text += between;
        text += part;
    }
    return text;
}

// With groups or without, over all rows.
GeneratedQuery Grouped(Bytes& input, Generator& generator, const std::string& from,
                       const std::string& where) {
    GeneratedQuery query;
    query.anyOfEqualTexts = true;
    std::vector<std::string> groups;
    for (int count = input.Number(3); count > 0; --count) {
        groups.push_back(generator.Column(generator.AnyKind()));
    }
    std::vector<std::string> items = groups;
    for (int count = 1 + input.Number(3); count > 0; --count) {
        Kind kind = Kind::Integer;
        items.push_back(generator.Aggregate(kind));
    }
    query.text = "select " + Joined(items, ",") + from + where;
    if (!groups.empty()) query.text += " group by " + Joined(groups, ",");
    if (input.Number(4) == 0) {
        Kind kind = Kind::Integer;
        const std::string aggregate = generator.Aggregate(kind);
        query.text +=
            " having " + aggregate + std::string(Pick(input, kCompared)) + LiteralOf(input, kind);
    }
    return query;
}

GeneratedQuery AnyQuery(Bytes& input) {
    Sources sources;
    std::vector<std::string> keys;
    const std::string from = From(input, sources, keys);
    Generator generator(input, sources);
    const std::string where = input.Number(3) == 0 ? "" : " where " + generator.Condition();
    if (input.Number(3) == 0) return Grouped(input, generator, from, where);

    GeneratedQuery query;
    std::vector<std::string> items;
    for (int count = 1 + input.Number(4); count > 0; --count) {
        items.push_back(generator.Value(generator.AnyKind()));
    }
    if (input.Number(4) == 0) {
        query.anyOfEqualTexts = true;
        query.text = "select distinct " + Joined(items, ",") + from + where;
        return query;
    }
    query.ordered = input.Number(2) == 0;
    std::string order;
    if (query.ordered) {
        std::vector<std::string> parts;
        for (int count = input.Number(3); count > 0; --count) {
            parts.push_back(generator.Column(generator.AnyKind()) +
                            (input.Number(2) == 0 ? " desc" : ""));
        }
        parts.insert(parts.end(), keys.begin(), keys.end());
        order = " order by " + Joined(parts, ",");
    }
    const std::string top =
        query.ordered && input.Number(3) == 0 ? "top " + std::to_string(input.Number(5)) + ' ' : "";
    if (input.Number(6) == 0) items = {"*"};
    query.text = "select " + top + Joined(items, ",") + from + where + order;
    return query;
}

}  // namespace

bool TakesOneOfMany(const std::string& statement) {
    return statement.find("min(") != std::string::npos ||
           statement.find("max(") != std::string::npos;
}

GeneratedQuery GenerateQuery(Bytes& input) {
    GeneratedQuery query = AnyQuery(input);
    query.anyOfEqualTexts = query.anyOfEqualTexts || TakesOneOfMany(query.text);
    return query;
}

std::string GenerateChange(Bytes& input) {
    Sources sources;
    sources.probes = {"Probe"};
    Generator generator(input, sources);
    const std::string where = " where " + generator.Condition();
    switch (input.Number(4)) {
        case 0:
            return "delete from Probe" + where;
        case 1:
            return "insert into Coded(code,name) select convert(varchar(20)," +
                   generator.Value(Kind::Integer) + "),convert(varchar(40)," +
                   generator.Value(Kind::Text) + ") from Probe" + where;
        default:
            break;
    }
    struct Place {
        std::string_view column;
        Kind kind;
    };
    constexpr Place kPlaces[] = {{"c", Kind::Text},   {"n", Kind::Text},  {"i", Kind::Integer},
                                 {"m", Kind::Money},  {"f", Kind::Float}, {"d", Kind::Date},
                                 {"b", Kind::Integer}};
    const Place place = Pick(input, kPlaces);
    std::string value = generator.Value(place.kind);
    // Of a value that does not fit it is the engine's choice whether it is met without a row.
    if (place.kind == Kind::Text) value = "convert(varchar(9)," + value + ')';
    return "update Probe set " + std::string(place.column) + " = " + value + where;
}

std::string GenerateRow(Bytes& input, int number) {
    const auto value = [&](Kind kind) {
        return input.Number(5) == 0 ? std::string("null") : LiteralOf(input, kind);
    };
    if (number % 4 == 3) {
        return "insert into Coded(code,name) values(" + std::string(Pick(input, kCodes)) + ',' +
               LiteralOf(input, Kind::Text) + ')';
    }
    std::string text = "insert into Probe(id,c,n,i,t,s,b,m,f,d) values(" + std::to_string(number);
    text += ',' + value(Kind::Text) + ',' + value(Kind::Text) + ',' + value(Kind::Integer);
    text += ',' + std::to_string(input.Number(256)) + ',' + value(Kind::Integer) + ',';
    text += std::to_string(input.Number(2)) + ',' + value(Kind::Money) + ',' + value(Kind::Float);
    return text + ',' + value(Kind::Date) + ')';
}

}  // namespace kelvane::fuzz
