#include "adapters/tsql/language/parser.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "adapters/tsql/language/errors.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

// Hints about locks: whether the rows are held to the end of the transaction. A target that lets
// one writer in at a time already does what they ask for.
struct Hint {
    std::string_view name;
    bool holds;
};
constexpr Hint kHints[] = {
    {"holdlock", true},       {"updlock", true},        {"xlock", true},
    {"repeatableread", true}, {"serializable", true},   {"rowlock", false},
    {"paglock", false},       {"tablock", false},       {"tablockx", true},
    {"nolock", false},        {"readcommitted", false}, {"readuncommitted", false},
};

bool TakeHint(TokenReader& reader) {
    const Token& token = reader.Current();
    const auto* hint = std::find_if(std::begin(kHints), std::end(kHints), [&](const Hint& known) {
        return platform::EqualIgnoringCase(known.name, token.text);
    });
    if (token.kind != Token::Kind::Name || hint == std::end(kHints)) {
        throw NotTranslated(token.text);
    }
    reader.Advance();
    return hint->holds;
}

// Whether one of the hints holds the rows.
bool TakeHints(TokenReader& reader) {
    if (!reader.IsWord("with")) return false;
    reader.Advance();
    reader.ExpectSymbol("(");
    bool held = false;
    do {
        held = TakeHint(reader) || held;
    } while (reader.TakeSymbol(","));
    reader.ExpectSymbol(")");
    return held;
}

TableSource ParseTable(TokenReader& reader) {
    TableSource source;
    if (reader.IsSymbol("(")) throw NotTranslated("from (");
    source.name = reader.TakeName();
    if (reader.TakeSymbol(".")) {
        if (!platform::EqualIgnoringCase(source.name, "dbo")) throw UnknownTable(source.name + ".");
        source.name = reader.TakeName();
    }
    return source;
}

TableSource ParseSource(TokenReader& reader, TableSource::Join join) {
    TableSource source = ParseTable(reader);
    source.join = join;
    if (reader.TakeWord("as") || reader.IsName()) source.alias = reader.TakeName();
    source.held = TakeHints(reader);
    return source;
}

bool TakeJoin(TokenReader& reader, TableSource::Join& join) {
    if (reader.TakeWord("cross")) {
        join = TableSource::Join::Cross;
    } else if (reader.TakeWord("left")) {
        join = TableSource::Join::Left;
        reader.TakeWord("outer");
    } else if (reader.IsWord("right") || reader.IsWord("full")) {
        throw NotTranslated(reader.Current().text);
    } else if (reader.TakeWord("inner") || reader.IsWord("join")) {
        join = TableSource::Join::Inner;
    } else {
        return false;
    }
    reader.ExpectWord("join");
    return true;
}

void ParseSources(TokenReader& reader, std::vector<TableSource>& sources) {
    sources.push_back(ParseSource(reader, TableSource::Join::First));
    for (;;) {
        TableSource::Join join = TableSource::Join::Comma;
        if (!reader.TakeSymbol(",") && !TakeJoin(reader, join)) return;
        sources.push_back(ParseSource(reader, join));
        if (join == TableSource::Join::Inner || join == TableSource::Join::Left) {
            reader.ExpectWord("on");
            sources.back().on = ParseExpression(reader);
        }
    }
}

SelectItem ParseItem(TokenReader& reader) {
    SelectItem item;
    if (reader.TakeSymbol("*")) return item;
    item.value = ParseExpression(reader);
    if (item.value->kind == Expression::Kind::Column && item.value->name == "*") {
        item.qualifier = item.value->qualifier;
        item.value = nullptr;
        return item;
    }
    if (reader.TakeWord("as") || reader.IsName()) item.alias = reader.TakeName();
    return item;
}

OrderItem ParseOrder(TokenReader& reader) {
    OrderItem item;
    const Token& token = reader.Current();
    if (token.kind == Token::Kind::Literal) {
        item.position = static_cast<std::size_t>(reader.TakeFixedNumber());
        if (item.position == 0) throw SyntaxError("order by 0");
    } else {
        item.value = ParseExpression(reader);
    }
    item.descending = reader.TakeWord("desc");
    if (!item.descending) reader.TakeWord("asc");
    return item;
}

Statement ParseInsert(TokenReader& reader) {
    Statement statement;
    statement.kind = Statement::Kind::Insert;
    reader.TakeWord("into");
    statement.target = ParseTable(reader);
    if (reader.TakeSymbol("(")) {
        do {
            statement.columns.push_back(reader.TakeName());
        } while (reader.TakeSymbol(","));
        reader.ExpectSymbol(")");
    }
    if (reader.TakeWord("select")) {
        statement.select = ParseSelect(reader);
        return statement;
    }
    reader.ExpectWord("values");
    do {
        reader.ExpectSymbol("(");
        std::vector<ExpressionPtr> row;
        do {
            row.push_back(ParseExpression(reader));
        } while (reader.TakeSymbol(","));
        reader.ExpectSymbol(")");
        statement.values.push_back(std::move(row));
    } while (reader.TakeSymbol(","));
    return statement;
}

Statement ParseUpdate(TokenReader& reader) {
    Statement statement;
    statement.kind = Statement::Kind::Update;
    statement.target = ParseTable(reader);
    TakeHints(reader);
    reader.ExpectWord("set");
    do {
        Assignment assignment;
        assignment.column = reader.TakeName();
        if (reader.TakeSymbol(".")) assignment.column = reader.TakeName();
        reader.ExpectSymbol("=");
        assignment.value = ParseExpression(reader);
        statement.assignments.push_back(std::move(assignment));
    } while (reader.TakeSymbol(","));
    if (reader.IsWord("from")) throw NotTranslated("update … from");
    if (reader.TakeWord("where")) statement.where = ParseExpression(reader);
    return statement;
}

Statement ParseDelete(TokenReader& reader) {
    Statement statement;
    statement.kind = Statement::Kind::Delete;
    reader.TakeWord("from");
    statement.target = ParseTable(reader);
    TakeHints(reader);
    if (reader.IsWord("from")) throw NotTranslated("delete … from");
    if (reader.TakeWord("where")) statement.where = ParseExpression(reader);
    return statement;
}

Statement ParseStatement(TokenReader& reader) {
    if (reader.TakeWord("insert")) return ParseInsert(reader);
    if (reader.TakeWord("update")) return ParseUpdate(reader);
    if (reader.TakeWord("delete")) return ParseDelete(reader);
    if (!reader.TakeWord("select")) reader.Refuse();
    Statement statement;
    statement.select = ParseSelect(reader);
    return statement;
}

}  // namespace

std::unique_ptr<Select> ParseSelect(TokenReader& reader) {
    const TokenReader::Depth depth(reader);
    auto select = std::make_unique<Select>();
    select->distinct = reader.TakeWord("distinct");
    if (reader.TakeWord("top")) {
        const bool parenthesis = reader.TakeSymbol("(");
        select->top = reader.TakeFixedNumber();
        if (parenthesis) reader.ExpectSymbol(")");
        if (reader.IsWord("percent") || reader.IsWord("with")) {
            throw NotTranslated("top " + std::string(reader.Current().text));
        }
    }
    do {
        select->items.push_back(ParseItem(reader));
    } while (reader.TakeSymbol(","));
    if (reader.IsWord("into")) throw NotTranslated("select … into");
    if (reader.TakeWord("from")) ParseSources(reader, select->sources);
    if (reader.TakeWord("where")) select->where = ParseExpression(reader);
    if (reader.TakeWord("group")) {
        reader.ExpectWord("by");
        do {
            select->groups.push_back(ParseExpression(reader));
        } while (reader.TakeSymbol(","));
        if (reader.IsWord("with")) throw NotTranslated("group by … with");
    }
    if (reader.TakeWord("having")) select->having = ParseExpression(reader);
    if (reader.TakeWord("order")) {
        reader.ExpectWord("by");
        do {
            select->order.push_back(ParseOrder(reader));
        } while (reader.TakeSymbol(","));
    }
    return select;
}

namespace {

// A statement that a batch may have many of, with other values.
struct KnownStatement {
    TokenReader::Run run;
    std::size_t place;
};

bool TakeKnown(TokenReader& reader, const std::vector<KnownStatement>& known,
               std::vector<Statement>& statements) {
    for (const KnownStatement& candidate : known) {
        std::size_t shift = 0;
        if (!reader.TakeSame(candidate.run, shift)) continue;
        Statement& statement = statements.emplace_back();
        statement.sameAs = candidate.place;
        statement.literalShift = shift;
        return true;
    }
    return false;
}

}  // namespace

std::vector<Statement> ParseBatch(TokenReader& reader) {
    constexpr std::size_t kMaxKnown = 16;
    std::vector<Statement> statements;
    std::vector<KnownStatement> known;
    while (reader.TakeSymbol(";")) {
    }
    while (!reader.AtEnd()) {
        if (TakeKnown(reader, known, statements)) continue;
        reader.BeginStatement();
        const std::size_t start = reader.Place();
        const std::size_t fixedLiterals = reader.FixedLiterals().size();
        statements.push_back(ParseStatement(reader));
        if (known.size() < kMaxKnown && fixedLiterals == reader.FixedLiterals().size()) {
            known.push_back({{start, reader.Place() - start}, statements.size() - 1});
        }
        while (reader.TakeSymbol(";")) {
        }
    }
    return statements;
}

}  // namespace kelvane::tsql
