// Sha256: the system's own SHA-256, fed piece by piece.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace kelvane::journal {

class Sha256 {
public:
    // Throws std::runtime_error when the system has none.
    Sha256();
    ~Sha256();
    Sha256(const Sha256&) = delete;
    Sha256& operator=(const Sha256&) = delete;

    void Add(std::string_view bytes);

    // Of all that was added, in 64 lower-case hexadecimal digits. To be called once, as the last.
    std::string Finish();

private:
    struct State;
    std::unique_ptr<State> mState;
};

}  // namespace kelvane::journal
