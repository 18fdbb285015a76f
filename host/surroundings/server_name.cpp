#include "host/surroundings/server_name.h"

#include <array>

#include "platform/connection_string.h"

namespace kelvane::host {

namespace {

constexpr std::array<std::string_view, 2> kServer = {"Server", "Servername"};
constexpr std::array<std::string_view, 1> kDatabase = {"Database"};
constexpr std::array<std::string_view, 1> kSourceName = {"DSN"};

}  // namespace

std::string ServerNameOf(std::string_view connectionString) {
    const auto database = platform::FindValue(connectionString, kDatabase);
    const auto server = platform::FindValue(connectionString, kServer);
    if (database && server) return *database + " on " + *server;
    if (database) return *database;
    if (server) return *server;
    return platform::FindValue(connectionString, kSourceName).value_or("database");
}

}  // namespace kelvane::host
