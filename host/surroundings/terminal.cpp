#include "host/surroundings/terminal.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <iostream>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <termios.h>
#endif

namespace kelvane::host {

namespace {

#ifdef _WIN32

bool IsTerminal(FILE* stream) {
    return _isatty(_fileno(stream)) != 0;
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

bool IsTerminal(FILE* stream) {
    return isatty(fileno(stream)) != 0;
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

// Byte by byte: a stream would keep what it has read. False at the end of input.
bool ReadLine(std::string& line) {
    char next = 0;
    for (;;) {
        const auto count = read(fileno(stdin), &next, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        if (next == '\n') return true;
        line += next;
    }
}

}  // namespace

bool ErrorsAreSeen() {
    return IsTerminal(stderr);
}

database::SharedSecret AskPassword(const std::string& prompt) {
    if (!IsTerminal(stdin)) return {};
    const Unseen unseen;
    std::cerr << prompt << std::flush;
    std::string line;
    constexpr std::size_t kLongest = 4096;  // of a terminal's lines: the text never moves
    line.reserve(kLongest);
    const database::WipedAfterwards wiped(line);
    const bool whole = ReadLine(line);
    std::cerr << '\n';
    if (!whole) return {};
    if (line.ends_with('\r')) line.pop_back();
    return std::make_shared<const database::Secret>(line);
}

}  // namespace kelvane::host
