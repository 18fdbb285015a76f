// The floor that the component's speed is compared with: a bare loop that runs statements through
// the engine's C interface and looks at every column of every row.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <vector>

#include "bench/plain_statements.h"

namespace kelvane::bench {

enum class Preparing {
    Each,  // every statement is prepared, stepped and finalized
    Once,  // statements that differ in their values alone are prepared once and bound again
};

// What a metric's name says of it.
inline std::string Against(Preparing preparing) {
    return preparing == Preparing::Once ? " (prepared once)" : "";
}

// The two connections that a login has, with an account's usual settings.
class Floor {
public:
    // Throws std::runtime_error, as everything here.
    explicit Floor(const std::string& account, Preparing preparing = Preparing::Each);
    ~Floor();
    Floor(const Floor&) = delete;
    Floor& operator=(const Floor&) = delete;

    // Runs the statements in their order; returns the seconds it took.
    double Run(const std::vector<PlainStatement>& statements);

private:
    void RunEach(sqlite3* handle, const PlainStatement& statement);
    void RunKept(sqlite3* handle, const PlainStatement& statement);
    void StepAll(sqlite3* handle, sqlite3_stmt* prepared);

    sqlite3* mConnection = nullptr;
    sqlite3* mEnvironment = nullptr;
    Preparing mPreparing;
    std::vector<sqlite3_stmt*> mKept;  // by shape number
    std::uint64_t mSum = 0;            // depends on every value read
};

}  // namespace kelvane::bench
