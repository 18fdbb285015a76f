#include "adapters/tsql/language/definition.h"

#include <algorithm>

#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/token_reader.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

namespace {

class DefinitionParser {
public:
    explicit DefinitionParser(TokenReader& reader) : mReader(reader) {}

    Definition Statement() {
        Definition definition;
        if (mReader.TakeWord("drop")) {
            mReader.ExpectWord("table");
            definition.kind = Definition::Kind::DropTable;
            definition.table = TableName();
            return definition;
        }
        mReader.ExpectWord("create");
        if (mReader.TakeWord("table")) {
            Table(definition);
        } else {
            Index(definition);
        }
        return definition;
    }

private:
    std::string TableName() {
        std::string name = mReader.TakeName();
        if (!mReader.TakeSymbol(".")) return name;
        if (!platform::EqualIgnoringCase(name, "dbo")) throw UnknownTable(name + ".");
        return mReader.TakeName();
    }

    std::vector<std::string> Names() {
        std::vector<std::string> names;
        mReader.ExpectSymbol("(");
        do {
            names.push_back(mReader.TakeName());
            if (mReader.TakeWord("desc")) throw NotTranslated("index … desc");
            mReader.TakeWord("asc");
        } while (mReader.TakeSymbol(","));
        mReader.ExpectSymbol(")");
        return names;
    }

    void Table(Definition& definition) {
        definition.table = TableName();
        mReader.ExpectSymbol("(");
        do {
            if (mReader.TakeWord("constraint")) mReader.TakeName();
            if (mReader.IsWord("primary")) {
                Key(definition);
                definition.key = Names();
            } else {
                Column(definition);
            }
        } while (mReader.TakeSymbol(","));
        mReader.ExpectSymbol(")");
        for (const std::string& name : definition.key) {
            const auto column = std::find_if(
                definition.columns.begin(), definition.columns.end(),
                [&](const auto& known) { return platform::EqualIgnoringCase(known.name, name); });
            if (column == definition.columns.end()) throw UnknownColumn(name);
            column->nullable = false;
        }
    }

    void Key(Definition& definition) {
        mReader.ExpectWord("primary");
        mReader.ExpectWord("key");
        if (!definition.key.empty()) mReader.Refuse();
        if (!mReader.TakeWord("clustered")) mReader.TakeWord("nonclustered");
    }

    void Column(Definition& definition) {
        Definition::Column column;
        column.name = mReader.TakeName();
        column.type = ColumnType();
        for (;;) {
            if (mReader.TakeWord("not")) {
                mReader.ExpectWord("null");
                column.nullable = false;
            } else if (mReader.IsWord("primary")) {
                Key(definition);
                definition.key = {column.name};
            } else if (!mReader.TakeWord("null")) {
                break;
            }
        }
        definition.columns.push_back(std::move(column));
    }

    Type ColumnType() {
        const std::string name = mReader.TakeName();
        std::optional<Type> type = ParseType(name);
        if (!type) throw NotTranslated(name);
        if (!TakesLength(name)) return *type;
        type->length = 1;
        if (mReader.TakeSymbol("(")) {
            const bool any = mReader.TakeWord("max");
            type->length = any ? 0 : mReader.TakeFixedNumber();
            mReader.ExpectSymbol(")");
        }
        return *type;
    }

    void Index(Definition& definition) {
        definition.kind = Definition::Kind::CreateIndex;
        definition.unique = mReader.TakeWord("unique");
        if (!mReader.TakeWord("clustered")) mReader.TakeWord("nonclustered");
        mReader.ExpectWord("index");
        definition.index = mReader.TakeName();
        mReader.ExpectWord("on");
        definition.table = TableName();
        definition.indexColumns = Names();
    }

    TokenReader& mReader;
};

}  // namespace

bool IsDefinition(const LexedText& text) {
    const TokenReader reader(text);
    return reader.IsWord("create") || reader.IsWord("drop");
}

std::vector<Definition> ParseDefinitions(const LexedText& text) {
    TokenReader reader(text);
    std::vector<Definition> definitions;
    while (!reader.AtEnd()) {
        definitions.push_back(DefinitionParser(reader).Statement());
        while (reader.TakeSymbol(";")) {
        }
    }
    return definitions;
}

}  // namespace kelvane::tsql
