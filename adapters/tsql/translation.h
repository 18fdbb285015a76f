// A statement translated for a target engine: its text, what to bind to the text's parameters and
// what its result's columns are.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/tsql/language/catalog.h"
#include "adapters/tsql/language/errors.h"
#include "adapters/tsql/language/lexer.h"
#include "adapters/tsql/language/syntax.h"
#include "adapters/tsql/language/token_reader.h"
#include "adapters/tsql/values/conversion.h"

namespace kelvane::tsql {

// Where a literal's value goes.
struct Parameter {
    enum class Use {
        Value,    // as it is
        Trimmed,  // a text without its trailing blanks
        Key,      // that, folded: as texts are compared
        Stored,   // into the column named `column`
    };

    std::size_t literal = 0;
    bool negated = false;
    Type type;  // what the literal is converted to first
    Use use = Use::Value;
    std::string column;
};

struct ResultColumn {
    std::string name;  // empty: unnamed
    Type type;
    // The table's column that the values come from; empty when they are computed.
    std::string baseColumn;
};

struct Translated {
    Statement::Kind kind = Statement::Kind::Select;
    std::string text;
    std::vector<Parameter> parameters;  // bound from 1 on
    std::vector<ResultColumn> columns;  // of a select, without the row's identity
    std::string table;  // that a change goes to, or that the rows of a changeable result are of
    bool hasRowIdentity = false;  // the result has the row's identity behind its columns
    // Something in the text can fail after some rows have been changed.
    bool canFailMidway = false;
    // The rows of a select that were to be locked are not locked: its result does not consist of a
    // table's rows.
    bool locksLeft = false;
};

// What a statement that cannot be translated fails with when its turn comes.
using TranslationError = std::optional<DatabaseError>;

struct TranslatedStatement {
    Translated translated;
    TranslationError error;
};

struct Translation {
    std::vector<TranslatedStatement> statements;
    std::vector<FixedLiteral> fixedLiterals;

    // Whether this translation also serves `text`, whose shape is the same.
    bool Serves(const LexedText& text) const;
};

// Writes one analysed statement for a target engine.
class StatementWriter {
public:
    virtual ~StatementWriter() = default;
    // `changeable`: the result of a select shall carry its rows' identity where that is possible.
    virtual Translated Write(const Statement& statement, bool changeable) = 0;
};

// Translates a batch. Throws DatabaseError for what makes the dialect refuse the batch before
// anything runs: bad syntax, unknown columns. A table that does not exist is an error of its
// statement alone, once the statements before have run.
Translation Translate(const LexedText& text, Catalog& catalog, StatementWriter& writer,
                      bool changeable);

// The value to bind. Throws as conversions do.
Datum ValueOf(const Parameter& parameter, const std::vector<Literal>& literals);

}  // namespace kelvane::tsql
