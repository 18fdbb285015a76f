#include "host/surroundings/terminal.h"

#include <cstdlib>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <termios.h>
#include <unistd.h>
#endif

namespace kelvane::host {

namespace {

#ifdef _WIN32

bool IsTerminal() {
    return _isatty(_fileno(stdin)) != 0;
}

// While it lives, the terminal does not show what is typed.
class Unseen {
public:
    Unseen() : mInput(GetStdHandle(STD_INPUT_HANDLE)) {
        mChanged = GetConsoleMode(mInput, &mBefore) != 0 &&
                   SetConsoleMode(mInput, mBefore & ~static_cast<DWORD>(ENABLE_ECHO_INPUT)) != 0;
    }
    ~Unseen() {
        if (mChanged) SetConsoleMode(mInput, mBefore);
    }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

private:
    HANDLE mInput;
    DWORD mBefore = 0;
    bool mChanged = false;
};

#else

bool IsTerminal() {
    return isatty(STDIN_FILENO) != 0;
}

// While it lives, the terminal does not show what is typed.
class Unseen {
public:
    Unseen() {
        if (tcgetattr(STDIN_FILENO, &mBefore) != 0) return;
        termios unseen = mBefore;
        unseen.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        mChanged = tcsetattr(STDIN_FILENO, TCSAFLUSH, &unseen) == 0;
    }
    ~Unseen() {
        if (mChanged) tcsetattr(STDIN_FILENO, TCSAFLUSH, &mBefore);
    }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

private:
    termios mBefore{};
    bool mChanged = false;
};

#endif

}  // namespace

std::optional<std::string> AskPassword(const std::string& prompt) {
    if (!IsTerminal()) return {};
    const Unseen unseen;
    std::cerr << prompt << std::flush;
    std::string line;
    const bool ended = !std::getline(std::cin, line);
    std::cerr << '\n';
    if (ended) return {};
    return line;
}

void ForgetVariable(const char* name) {
#ifdef _WIN32
    _putenv_s(name, "");
#else
    unsetenv(name);
#endif
}

}  // namespace kelvane::host
