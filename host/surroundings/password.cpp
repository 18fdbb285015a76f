#include "host/surroundings/password.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <optional>

#include "host/account/connection_text.h"
#include "host/surroundings/terminal.h"

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

}  // namespace

std::vector<std::string> TakeArguments(int argc, char** argv) {
    std::vector<std::string> arguments;
    for (int i = 1; i < argc; ++i) {
        arguments.emplace_back(argv[i]);
        if (!HoldsPassword(arguments.back())) continue;
        char* const end = argv[i] + std::strlen(argv[i]);
        std::fill(argv[i], end, '\0');
        std::fill_n(argv[i], std::min<std::ptrdiff_t>(3, end - argv[i]), '*');
    }
    return arguments;
}

std::string WithKnownPassword(const std::string& connectionString) {
    const auto known = PasswordOfEnvironment();
    if (!LacksPassword(connectionString)) return connectionString;
    if (known) return WithPassword(connectionString, *known);
    const auto typed = AskPassword(ServerNameOf(connectionString) + " password: ");
    return typed ? WithPassword(connectionString, *typed) : connectionString;
}

}  // namespace kelvane::host
