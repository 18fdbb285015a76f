// A statement sent to a server by the driver manager alone, in the engine's own language: what a
// test has to do that no account ever does.
#pragma once

#include <memory>
#include <string>

namespace kelvane::support {

// A connection that stays open.
class BareConnection {
public:
    // Throws std::runtime_error with the driver's text.
    explicit BareConnection(const std::string& connectionString);
    ~BareConnection();
    BareConnection(const BareConnection&) = delete;
    BareConnection& operator=(const BareConnection&) = delete;

    // Runs `statement`; returns the first field of its first row, empty when it has none. Throws
    // std::runtime_error with the driver's text.
    std::string Ask(const std::string& statement) const;

private:
    struct Handles;
    std::unique_ptr<Handles> mHandles;
};

// Connects, runs `statement` and leaves; returns the first field of its first row, empty when it
// has none. Throws std::runtime_error with the driver's text.
std::string RunBare(const std::string& connectionString, const std::string& statement);

}  // namespace kelvane::support
