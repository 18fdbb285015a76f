// Any text as a batch of the dialect: it is refused, or what becomes of it is taken by the engine
// it is written for. SQLite is asked itself; of a text for PostgreSQL, which answers from a server
// alone, it is looked at whether it is one whole statement.
#include <string>

#include "adapters/tsql/postgres/postgres_writer.h"
#include "adapters/tsql/sqlite/sqlite_writer.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/probe_account.h"
#include "tests/unit/tsql/postgres_account.h"

using namespace kelvane;
using fuzz::Require;

namespace {

void TrySqlite(const std::string& batch, const tsql::LexedText& text, bool changeable) {
    fuzz::ProbeAccount& account = fuzz::ProbeAccount::Shared();
    tsql::SqliteWriter writer;
    for (const auto& statement :
         tsql::Translate(text, account.Catalog(), writer, changeable).statements) {
        if (statement.error) continue;
        const std::string& written = statement.translated.text;
        try {
            const sqlite::Statement prepared(account.Engine(), written, false);
            Require(sqlite3_bind_parameter_count(prepared.Handle()) <=
                        static_cast<int>(statement.translated.parameters.size()),
                    "every parameter has a value", batch + "\n" + written);
        } catch (const platform::DatabaseError& error) {
            Require(fuzz::IsLimit(error), "SQLite takes what is written for it",
                    batch + "\n" + written + "\n" + error.what());
        }
    }
    account.Run(batch, false);
}

// Quotes and parentheses are closed, and nothing ends the statement before its end.
bool IsOneStatement(const std::string& text) {
    int open = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '\'' || c == '"') {
            at = text.find(c, at + 1);
            if (at == std::string::npos) return false;
        }
        if (c == '(') ++open;
        if (c == ')' && --open < 0) return false;
        if (c == ';' || c == '\0' || text.compare(at, 2, "--") == 0 ||
            text.compare(at, 2, "/*") == 0) {
            return false;
        }
    }
    return open == 0;
}

void TryPostgres(const std::string& batch, const tsql::LexedText& text, bool changeable) {
    static tsql::PostgresAccount account;
    tsql::PostgresWriter writer;
    for (const auto& statement : tsql::Translate(text, account, writer, changeable).statements) {
        if (statement.error) continue;
        const std::string written = tsql::FilledForPostgres(statement.translated, text.literals);
        Require(IsOneStatement(written), "one statement stays one", batch + "\n" + written);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    fuzz::Bytes input(bytes, size);
    const bool changeable = input.Number(2) == 1;
    const std::string batch = input.Rest();
    tsql::LexedText text;
    try {
        tsql::Lex(batch, text);
    } catch (const platform::DatabaseError&) {
        return 0;
    }
    for (const auto attempt : {TrySqlite, TryPostgres}) {
        try {
            attempt(batch, text, changeable);
        } catch (const platform::DatabaseError&) {
        }
    }
    return 0;
}
