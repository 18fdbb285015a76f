#include "host/surroundings/password.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <optional>

#include "host/surroundings/server_name.h"
#include "host/surroundings/terminal.h"
#include "platform/connection_string.h"

namespace kelvane::host {

namespace {

constexpr const char* kPasswordVariable = "KELVANE_DATABASE_PASSWORD";

std::optional<std::string> PasswordOfEnvironment() {
    const char* value = std::getenv(kPasswordVariable);
    if (value == nullptr) return {};
    std::string password = value;
    ForgetVariable(kPasswordVariable);
    return password;
}

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

std::string WithKnownPassword(const std::string& connectionString) {
    const auto known = PasswordOfEnvironment();
    if (!LacksPassword(connectionString)) return connectionString;
    const auto password =
        known ? known : AskPassword(ServerNameOf(connectionString) + " password: ");
    if (!password) return connectionString;
    return platform::WithValue(connectionString, platform::kPasswordNames, *password);
}

}  // namespace kelvane::host
