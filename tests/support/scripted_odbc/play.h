// What the scripted driver plays: a text that says, call by call, what a server would answer.
//
//   engine NAME            what the engine calls itself; "Microsoft SQL Server" unless said
//   pieces                 long texts come without their total length
//   always STATEMENT       succeeds whenever it comes, beside the sequence below
//   refuse STATE NATIVE TEXT        the next connecting fails
//   run STATEMENT          the next statement, to the blank; its results follow:
//     columns NAME TYPE [SIZE [DECIMALS]]|…    a result with rows
//     row VALUE|…          NULL is Null; "TEXT*9000" a long text
//     count N              a result without rows
//     warning STATE NATIVE TEXT    goes with the result before it
//     error STATE NATIVE TEXT      a result that fails
//     dies                 the connection is dead from now on
//   commit [STATE NATIVE TEXT]      the next commit, which fails when an error is given
//   rollback [STATE NATIVE TEXT]
//
// A commit or rollback that the script does not have as its next line succeeds.
#pragma once

#include <deque>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace kelvane::support {

struct PlayedError {
    std::string state;
    int native = 0;
    std::string text;
};

struct PlayedColumn {
    std::string name;
    std::string type;
    int size = 0;
    int decimals = 0;
};

struct PlayedResult {
    std::vector<PlayedColumn> columns;
    std::vector<std::vector<std::optional<std::string>>> rows;
    long count = -1;
    std::optional<PlayedError> warning;
    std::optional<PlayedError> error;
    bool dies = false;
};

struct PlayedCall {
    std::string kind;  // "run", "refuse", "commit", "rollback"
    std::string statement;
    std::optional<PlayedError> error;
    std::deque<PlayedResult> results;
};

struct Play {
    std::string engine = "Microsoft SQL Server";
    bool inPieces = false;
    std::set<std::string> always;
    std::deque<PlayedCall> calls;
};

Play ReadPlay(std::string_view script);

}  // namespace kelvane::support
