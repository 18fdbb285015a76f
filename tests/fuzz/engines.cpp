// One statement of the dialect, two engines: on the same rows an account file and an account on
// PostgreSQL give the same rows back, keep the same, or refuse with the same number. Takes a
// server: the environment names it as it does for the tests of the account database.
#include <algorithm>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "adapters/tsql/language/errors.h"
#include "platform/letter_case.h"
#include "tests/fuzz/fuzz.h"
#include "tests/fuzz/generated_statement.h"
#include "tests/support/file_place.h"
#include "tests/support/plain_text_connection.h"
#include "tests/support/test_tables.h"

using namespace kelvane;
using fuzz::Bytes;
using fuzz::Require;

namespace {

// What a statement came to: its rows, or the dialect's number.
struct Outcome {
    std::vector<std::string> rows;
    int refused = 0;
    std::string message;

    std::string Text() const {
        std::ostringstream text;
        if (refused != 0) text << "refused " << refused << ": " << message << '\n';
        for (const std::string& row : rows) text << row << '\n';
        return text.str();
    }
};

std::string FieldText(const platform::Value& value, bool anyOfEqualTexts) {
    if (value.IsNull()) return "NULL";
    if (const auto* text = value.As<std::string>()) {
        return '"' + (anyOfEqualTexts ? platform::ComparedText(*text) : *text) + '"';
    }
    const bool isInteger = value.As<std::int64_t>() != nullptr;
    return (isInteger ? "" : "~") + value.ToText();
}

class Account {
public:
    explicit Account(std::unique_ptr<support::TestPlace> place) : mPlace(std::move(place)) {
        constexpr int kTimeout = 5000;
        mPlace->CreateTables(support::ProbingTables());
        mConnection = mPlace->NewConnection(kTimeout, support::ProbingTables());
        mConnection->Open("", "", -1);
    }

    void Begin() { mConnection->Begin(); }
    void RollBack() { mConnection->RollBack(); }

    Outcome Query(const fuzz::GeneratedQuery& query) {
        Outcome outcome = Try([&] { return Rows(query.text, query.anyOfEqualTexts); });
        if (!query.ordered) std::sort(outcome.rows.begin(), outcome.rows.end());
        return outcome;
    }

    Outcome Run(const std::string& statement) {
        return Try([&] {
            support::RunText(*mConnection, statement);
            return std::vector<std::string>();
        });
    }

private:
    template <typename Action>
    Outcome Try(Action action) {
        Outcome outcome;
        try {
            outcome.rows = action();
        } catch (const platform::DatabaseError& error) {
            outcome.refused = error.NativeCode();
            outcome.message = error.what();
        }
        return outcome;
    }

    std::vector<std::string> Rows(const std::string& query, bool anyOfEqualTexts) {
        std::vector<std::string> rows;
        const auto set = support::QueryText(*mConnection, query);
        for (; !set->EndOfFile(); set->MoveNext()) {
            std::string& row = rows.emplace_back();
            for (int i = 0; i < set->FieldCount(); ++i) {
                if (i > 0) row += '|';
                row += FieldText(set->Field(i), anyOfEqualTexts);
            }
        }
        return rows;
    }

    std::unique_ptr<support::TestPlace> mPlace;
    std::shared_ptr<platform::Connection> mConnection;
};

struct Engines {
    Account file{support::MakeFilePlace()};
    Account server{support::MakeTestPlace()};
};

// Everything the statements of one input did, for the report of a difference.
class Both {
public:
    explicit Both(Engines& engines) : mEngines(engines) {
        mEngines.file.Begin();
        mEngines.server.Begin();
    }
    ~Both() {
        mEngines.file.RollBack();
        mEngines.server.RollBack();
    }
    Both(const Both&) = delete;
    Both& operator=(const Both&) = delete;

    // What one of them does not know at all is not run on the other.
    void Run(const std::string& statement) {
        const Outcome file = mEngines.file.Run(statement);
        if (!IsUnknown(file)) Compare(statement, file, mEngines.server.Run(statement));
    }
    void Query(const fuzz::GeneratedQuery& query) {
        const Outcome server = mEngines.server.Query(query);
        if (!IsUnknown(server)) Compare(query.text, mEngines.file.Query(query), server);
    }

private:
    static bool IsUnknown(const Outcome& outcome) {
        return outcome.refused == tsql::error::kNotTranslated;
    }

    // A refusal is an outcome like another; but which of several values of a statement is refused
    // first is the engine's choice.
    void Compare(const std::string& statement, const Outcome& file, const Outcome& server) {
        mDone += statement + '\n';
        const bool same = (file.refused != 0) == (server.refused != 0) &&
                          (file.refused != 0 || file.rows == server.rows);
        Require(same, "both engines give the same",
                mDone + "file:\n" + file.Text() + "server:\n" + server.Text());
        for (const Outcome* outcome : {&file, &server}) {
            Require(outcome->refused == 0 || outcome->refused >= tsql::error::kSyntax,
                    "a refusal has one of the dialect's numbers", mDone + outcome->Text());
        }
    }

    Engines& mEngines;
    std::string mDone;
};

constexpr int kRows = 8;

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static Engines engines;
    Bytes input(bytes, size);
    Both both(engines);
    // What is refused leaves no more than that undone, on a file and on a server.
    for (int number = 1; number <= kRows; ++number) both.Run(fuzz::GenerateRow(input, number));
    constexpr int kMostStatements = 16;
    bool anyOfEqualTexts = false;
    for (int count = 0; count < kMostStatements && !input.AtEnd(); ++count) {
        if (input.Number(4) == 0) {
            const std::string change = fuzz::GenerateChange(input);
            anyOfEqualTexts = anyOfEqualTexts || fuzz::TakesOneOfMany(change);
            both.Run(change);
            both.Query({"select * from Probe order by id", true, anyOfEqualTexts});
            both.Query({"select * from Coded order by code", true, anyOfEqualTexts});
        } else {
            both.Query(fuzz::GenerateQuery(input));
        }
    }
    return 0;
}
