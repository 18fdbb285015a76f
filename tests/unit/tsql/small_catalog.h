// A catalog of a few tables, and translating against it.
#pragma once

#include <map>
#include <string>

#include "adapters/tsql/language/catalog.h"
#include "adapters/tsql/sqlite/sqlite_writer.h"
#include "adapters/tsql/translation.h"
#include "platform/ascii.h"

namespace kelvane::tsql {

class SmallCatalog : public Catalog {
public:
    SmallCatalog() {
        Add("Entry", {{"id", *ParseType("int"), false, true},
                      {"code", *ParseType("varchar(20)")},
                      {"name", *ParseType("nvarchar(20)")},
                      {"amount", *ParseType("money")},
                      {"day", *ParseType("datetime")},
                      {"number", *ParseType("float")},
                      {"flag", *ParseType("bit")}});
        Add("Item",
            {{"code", *ParseType("varchar(20)"), false}, {"title", *ParseType("varchar(40)")}});
        Add("Unit", {{"code", *ParseType("varchar(20)"), false, false, true},
                     {"title", *ParseType("varchar(40)")}});
    }

    std::shared_ptr<const TableInfo> FindTable(std::string_view name) override {
        const auto found = mTables.find(platform::LowerAscii(name));
        return found == mTables.end() ? nullptr : found->second;
    }

private:
    void Add(const std::string& name, std::vector<ColumnInfo> columns) {
        mTables[platform::LowerAscii(name)] =
            std::make_shared<const TableInfo>(TableInfo{name, std::move(columns)});
    }

    std::map<std::string, std::shared_ptr<const TableInfo>> mTables;
};

// A statement's translation together with the text it refers to.
struct TranslatedText {
    LexedText text;
    Translation translation;
};

inline TranslatedText TranslateText(std::string_view statement, bool changeable = false) {
    SmallCatalog catalog;
    SqliteWriter writer;
    TranslatedText result;
    Lex(statement, result.text);
    result.translation = Translate(result.text, catalog, writer, changeable);
    return result;
}

// The only statement's text for the target engine.
inline std::string Written(std::string_view statement, bool changeable = false) {
    const TranslatedText result = TranslateText(statement, changeable);
    const TranslatedStatement& only = result.translation.statements.at(0);
    return only.error ? only.error->what() : only.translated.text;
}

}  // namespace kelvane::tsql
