// Interruption: while one exists, Ctrl+C in the terminal asks the work to end where it can end
// well, and a second one ends the program at once.
#pragma once

#include <csignal>

namespace kelvane::host {

class Interruption {
public:
    Interruption() : mFormer(std::signal(SIGINT, &Ask)) { sAsked = 0; }
    ~Interruption() { std::signal(SIGINT, mFormer); }
    Interruption(const Interruption&) = delete;
    Interruption& operator=(const Interruption&) = delete;

    static bool IsAsked() { return sAsked != 0; }

private:
    static void Ask(int /*signal*/) {
        sAsked = 1;
        std::signal(SIGINT, SIG_DFL);
    }

    static inline volatile std::sig_atomic_t sAsked = 0;
    void (*mFormer)(int);
};

}  // namespace kelvane::host
