// Aside: while one exists, the account is read for the lower line alone. What is read then is no
// part of what the operator does: transcripts leave it out, and nobody is told when it fails.
#pragma once

namespace kelvane::platform {

class Aside {
public:
    Aside() { ++sDepth; }
    ~Aside() { --sDepth; }
    Aside(const Aside&) = delete;
    Aside& operator=(const Aside&) = delete;

    static bool IsActive() { return sDepth > 0; }

private:
    // Everything is read on the user-interface thread.
    static inline int sDepth = 0;
};

}  // namespace kelvane::platform
