// The floor of an account on a server: a bare loop through the driver manager that runs the texts
// which the server is sent, each for itself, and takes every column of every row as characters.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bench/plain_statements.h"

namespace kelvane::bench {

struct ServerStatement {
    Path path = Path::Connection;
    std::string text;
    // A transaction begins before it, or ends with a commit after it.
    bool begins = false;
    bool commits = false;
};

// `noted`: lines of drive::StatementLog; each as its engine's dialect says it outside a
// transaction, without what a record set needs beyond its rows. Throws platform::DatabaseError.
std::vector<ServerStatement> ServerStatementsOf(const std::string& connectionString,
                                                const std::vector<std::string>& noted);

// The two connections that a login has.
class ServerFloor {
public:
    // Throws std::runtime_error, as everything here.
    explicit ServerFloor(const std::string& connectionString);
    ~ServerFloor();
    ServerFloor(const ServerFloor&) = delete;
    ServerFloor& operator=(const ServerFloor&) = delete;

    // Runs the statements in their order; returns the seconds it took.
    double Run(const std::vector<ServerStatement>& statements);

private:
    class Link;
    std::unique_ptr<Link> mConnection;
    std::unique_ptr<Link> mEnvironment;
};

}  // namespace kelvane::bench
