// The component's statements as somebody who knows the account file would write them for the engine
// itself: the same rows, by the same indexes, without a dialect in between.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::bench {

enum class Path { Connection, Environment };

struct PlainValue {
    std::string text;
    bool isNumber = false;
};

struct PlainStatement {
    Path path = Path::Connection;
    // With its values in it, and with ?1, ?2 … in their places. Statements of one number differ in
    // their values alone; numbers are small.
    std::string text;
    std::string shape = text;
    std::size_t shapeNumber = 0;
    std::vector<PlainValue> values = {};
};

// `noted`: a line of drive::StatementLog, "gConn …" or "gEnv …". A statement that a transaction
// belongs to comes with that transaction. Throws std::runtime_error for an unknown statement.
std::vector<PlainStatement> PlainStatementsOf(const std::vector<std::string>& noted);

// The same for statements of which a batch consists: new entries have the identities that they say,
// and no transaction belongs to any of them.
std::vector<PlainStatement> PlainBatchOf(const std::vector<std::string>& noted);

// A statement of the engine's own, with a number that PlainBatchOf() gives to none.
PlainStatement EngineStatement(std::string text, std::size_t number);

// How saving the fields of an entry's record set and committing is noted, which is no statement of
// the component's. `fields`: date, centre, item, two keywords, element code, digest and amount.
std::string SavingNote(std::int64_t identity, const std::vector<std::string>& fields);

}  // namespace kelvane::bench
