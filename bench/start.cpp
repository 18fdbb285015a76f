// How long the program takes to start: for an answer, and for the first rows on the screen.
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/accounts.h"
#include "bench/entry_windows.h"
#include "bench/samples.h"

namespace kelvane::bench {

namespace {

constexpr std::int64_t kEntries = 1000;

// What is built beside this program's folder.
std::string Built(const char* path) {
    const auto here = std::filesystem::read_symlink("/proc/self/exe").parent_path();
    return (here.parent_path() / path).string();
}

// A running program, whose standard input and output can be pipes of this one's.
class Started {
public:
    // `talks`: through the pipes; else it reads and writes nothing.
    Started(std::vector<std::string> words, bool talks) {
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        std::array<int, 2> in{}, out{};
        if (talks) {
            if (pipe2(in.data(), O_CLOEXEC) != 0 || pipe2(out.data(), O_CLOEXEC) != 0) {
                throw std::runtime_error("no pipe");
            }
            posix_spawn_file_actions_adddup2(&actions, in[0], STDIN_FILENO);
            posix_spawn_file_actions_adddup2(&actions, out[1], STDOUT_FILENO);
        } else {
            posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        }
        std::vector<char*> arguments;
        for (std::string& word : words) arguments.push_back(word.data());
        arguments.push_back(nullptr);
        const int refused =
            posix_spawn(&mProcess, arguments[0], &actions, nullptr, arguments.data(), environ);
        posix_spawn_file_actions_destroy(&actions);
        if (talks) {
            close(in[0]);
            close(out[1]);
            mInput.reset(fdopen(in[1], "w"));
            mOutput.reset(fdopen(out[0], "r"));
        }
        if (refused != 0) throw std::runtime_error("not started: " + words[0]);
    }
    ~Started() {
        if (mProcess != 0) End();
    }
    Started(const Started&) = delete;
    Started& operator=(const Started&) = delete;

    void Say(const char* text) {
        std::fputs(text, mInput.get());
        std::fflush(mInput.get());
    }
    void AwaitLine(const std::string& awaited) {
        std::array<char, 4096> line{};
        while (std::fgets(line.data(), line.size(), mOutput.get()) != nullptr) {
            if (awaited + '\n' == line.data()) return;
        }
        throw std::runtime_error("the program ended before: " + awaited);
    }
    // Waits for its end; the exit status, or -1 when it was killed.
    int End() {
        mInput.reset();
        while (mOutput != nullptr && std::fgetc(mOutput.get()) != EOF) {
        }
        int status = 0;
        waitpid(std::exchange(mProcess, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

    pid_t mProcess = 0;
    Stream mInput{nullptr, std::fclose};
    Stream mOutput{nullptr, std::fclose};
};

double TimeToEnd(const std::vector<std::string>& words) {
    const double start = Now();
    Started program(words, false);
    const int status = program.End();
    const double time = Now() - start;
    if (status != 0) throw std::runtime_error(words[0] + " failed");
    return time;
}

// The second command is read when the list can be seen.
double TimeToList(const std::string& account) {
    const double start = Now();
    Started program({Built("host/kelvane"), "drive", "--window", account}, true);
    program.Say("init\nshow\nskip sql\n");
    program.AwaitLine("> skip sql");
    const double time = Now() - start;
    if (program.End() != 0) throw std::runtime_error("the list did not close");
    return time;
}

void StartVersion(benchmark::State& state) {
    Samples samples;
    for (auto _ : state) {
        const double seconds = TimeToEnd({Built("host/kelvane"), "--version"});
        state.SetIterationTime(seconds);
        samples.Add(0.010, seconds);
    }
    samples.Report(state, "kelvane --version, ms", kMilliseconds, 1);
}

void StartVersionAgainstEmpty(benchmark::State& state) {
    Samples samples;
    for (auto _ : state) {
        const double empty = TimeToEnd({Built("bench/kelvane_bench_empty")});
        const double seconds = TimeToEnd({Built("host/kelvane"), "--version"});
        state.SetIterationTime(seconds);
        samples.Add(empty, seconds);
    }
    samples.Report(state, "kelvane --version (an empty program), ms", kMilliseconds, 15);
}

void StartList(benchmark::State& state) {
    if (std::getenv("DISPLAY") == nullptr) return state.SkipWithError("there is no screen");
    const std::string account = NewAccountWith(kEntries);
    Samples samples;
    for (auto _ : state) {
        const double seconds = TimeToList(account);
        state.SetIterationTime(seconds);
        samples.Add(0.400, seconds);
    }
    samples.Report(state, "1,000 entries: started to painted, ms", kMilliseconds, 1);
}

BENCHMARK(StartVersion)->UseManualTime()->Iterations(41);
BENCHMARK(StartVersionAgainstEmpty)->UseManualTime()->Iterations(41);
BENCHMARK(StartList)->UseManualTime()->Iterations(9);

}  // namespace

}  // namespace kelvane::bench
