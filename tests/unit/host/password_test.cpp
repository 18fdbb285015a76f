// Where passwords come from, and that nothing of them stays where others can see it.
#include "host/surroundings/password.h"

#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <optional>

#include "host/commands/command_line.h"
#include "tests/unit/host/program.h"
#include "tests/unit/host/temporary_folder.h"

namespace kelvane::host_test {
namespace {

using namespace host;

constexpr const char* kVariable = "KELVANE_DATABASE_PASSWORD";

TEST(Password, IsOverwrittenInTheArguments) {
    char program[] = "kelvane";
    char command[] = "init";
    char secret[] = "--database=Server=s;PWD=secret";
    char* argv[] = {program, command, secret, nullptr};
    EXPECT_EQ(TakeArguments(3, argv),
              (std::vector<std::string>{"init", "--database=Server=s;PWD=secret"}));
    EXPECT_STREQ(argv[1], "init");
    EXPECT_STREQ(argv[2], "***");
    for (const char left : std::string_view(secret + 3, sizeof secret - 3)) EXPECT_EQ(left, '\0');
}

// What is found for `connectionString` with the variable set to `password`.
std::optional<std::string> Found(const std::string& connectionString, const char* password) {
    setenv(kVariable, password, 1);
    TakePasswordVariable();
    EXPECT_EQ(std::getenv(kVariable), nullptr);
    const auto found = PasswordFor(connectionString);
    if (!found) return {};
    return std::string(found->Text());
}

TEST(Password, ComesFromTheEnvironment) {
    for (const std::string text : {"Server=s;UID=k", "uid = k ;Database={a;PWD=b};"}) {
        for (const char* password : {"secret", "a}b;c", ""}) {
            EXPECT_EQ(Found(text, password), password) << text;
        }
    }
}

TEST(Password, IsNotAskedForWhereNoneIsLacking) {
    for (const std::string text : {"Server=s;UID=k;PWD=own", "Driver=X;UID=kelvane;pwd = secret",
                                   "Driver=X;UID=kelvane;Password={}", "DSN=books", ""}) {
        EXPECT_EQ(Found(text, "secret"), std::nullopt) << text;
    }
}

// Runs a command in this process, with the variable where the test sees its bytes.
int RunWithVariable(std::vector<std::string> words, std::array<char, 64>& entry) {
    std::strcpy(entry.data(), "KELVANE_DATABASE_PASSWORD=geheim 1");
    EXPECT_EQ(putenv(entry.data()), 0);
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    return RunCommandLine(static_cast<int>(words.size()), argv.data());
}

TEST(Password, IsTakenOutOfTheEnvironmentWhateverTheCommand) {
    const TemporaryFolder folder;
    const std::string account = (folder / "a.kelvane").string();
    const std::string none = (folder / "none.kelvane").string();
    const std::vector<std::vector<std::string>> commands{
        {"kelvane", "--version"},
        {"kelvane"},
        {"kelvane", "--wrong"},
        {"kelvane", "init", account},
        {"kelvane", "init"},
        {"kelvane", "open"},
        {"kelvane", "export", none, "--to", "list.txt"},
    };
    for (const auto& words : commands) {
        std::array<char, 64> entry{};
        ASSERT_EQ(prctl(PR_SET_DUMPABLE, 1), 0);
        RunWithVariable(words, entry);
        EXPECT_EQ(std::getenv(kVariable), nullptr) << words.back();
        EXPECT_EQ(std::string(entry.data(), entry.size()).find("geheim"), std::string::npos);
        EXPECT_EQ(std::string(entry.data(), entry.size()).find('1'), std::string::npos);
        EXPECT_EQ(prctl(PR_GET_DUMPABLE), 0) << words.back();
    }
}

// The program with a password in its environment, waiting for the next line of its script.
class WaitingProgram {
public:
    explicit WaitingProgram(const std::string& account) {
        int input[2];
        int output[2];
        if (pipe(input) != 0 || pipe(output) != 0) throw std::runtime_error("pipe");
        mProcess = fork();
        if (mProcess == 0) {
            dup2(input[0], STDIN_FILENO);
            dup2(output[1], STDOUT_FILENO);
            for (const int end : {input[0], input[1], output[0], output[1]}) close(end);
            setenv(kVariable, "geheim-1", 1);
            execl(KELVANE_PROGRAM, KELVANE_PROGRAM, "drive", account.c_str(), nullptr);
            _exit(127);
        }
        close(input[0]);
        close(output[1]);
        mInput = input[1];
        mOutput = output[0];
    }
    ~WaitingProgram() {
        close(mInput);
        close(mOutput);
        waitpid(mProcess, nullptr, 0);
    }
    WaitingProgram(const WaitingProgram&) = delete;
    WaitingProgram& operator=(const WaitingProgram&) = delete;

    // Sends a line and waits for the program to have taken it.
    void Take(const std::string& line) {
        const std::string sent = line + "\n";
        if (write(mInput, sent.data(), sent.size()) != static_cast<ssize_t>(sent.size())) {
            throw std::runtime_error("write");
        }
        std::string answer;
        for (char next = 0; next != '\n';) {
            if (read(mOutput, &next, 1) != 1) throw std::runtime_error("the program ended");
            answer += next;
        }
        EXPECT_EQ(answer, "> " + sent);
    }
    std::string Seen(const std::string& name) const {
        return ReadText("/proc/" + std::to_string(mProcess) + "/" + name);
    }

private:
    pid_t mProcess = -1;
    int mInput = -1;
    int mOutput = -1;
};

TEST(Password, IsNotSeenInTheRunningProgramsEnvironment) {
    const TemporaryFolder folder;
    const std::string account = (folder / "a.kelvane").string();
    ASSERT_EQ(RunProgram("init " + ShellQuoted(account)).status, 0);
    WaitingProgram program(account);
    program.Take("answer yes");
    EXPECT_NE(program.Seen("cmdline").find("drive"), std::string::npos);
    const std::string seen = program.Seen("environ");
    // Others than an administrator do not even see that there is an environment.
    EXPECT_EQ(seen.empty(), geteuid() != 0);
    EXPECT_EQ(seen.find("geheim"), std::string::npos);
}

}  // namespace
}  // namespace kelvane::host_test
