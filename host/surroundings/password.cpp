#include "host/surroundings/password.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "host/surroundings/environment.h"
#include "host/surroundings/server_name.h"
#include "host/surroundings/terminal.h"
#include "host/surroundings/translation.h"
#include "platform/connection_string.h"

namespace kelvane::host {

namespace {

constexpr const char* kPasswordVariable = "KELVANE_DATABASE_PASSWORD";

// Until somebody asks for it.
database::SharedSecret gTakenPassword;

// Whether the string names an operator of the server but no password.
bool LacksPassword(const std::string& connectionString) {
    return platform::FindValue(connectionString, platform::kUserNames) &&
           !platform::FindValue(connectionString, platform::kPasswordNames);
}

}  // namespace

std::vector<std::string> TakeArguments(int argc, char** argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.emplace_back(argv[i]);
        if (!platform::HoldsPassword(arguments.back())) continue;
        char* const end = argv[i] + std::strlen(argv[i]);
        std::fill(argv[i], end, '\0');
        std::fill_n(argv[i], std::min<std::ptrdiff_t>(3, end - argv[i]), '*');
    }
    return arguments;
}

void TakePasswordVariable() {
    gTakenPassword = TakeVariable(kPasswordVariable);
    if (gTakenPassword) KeepMemoryPrivate();
}

database::SharedSecret PasswordFor(const std::string& connectionString) {
    auto taken = std::exchange(gTakenPassword, nullptr);
    if (!LacksPassword(connectionString)) return {};
    if (taken) return taken;
    auto typed = AskPassword(Told("%1 password: ", {ServerNameOf(connectionString)}));
    if (typed) KeepMemoryPrivate();
    return typed;
}

}  // namespace kelvane::host
