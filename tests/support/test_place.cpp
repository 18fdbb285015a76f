#include "tests/support/test_place.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include "tests/support/file_place.h"
#include "tests/support/server_place.h"

namespace kelvane::support {

namespace {

constexpr std::string_view kPostgresFile = "postgresql@";

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

std::string FirstLine(const std::string& file) {
    std::ifstream input(file);
    std::string line;
    if (!std::getline(input, line)) throw std::runtime_error("no server is named in " + file);
    return line;
}

}  // namespace

std::unique_ptr<TestPlace> MakeTestPlace(const std::string& file) {
    const std::string engine = Variable("KELVANE_TEST_DATABASE");
    if (engine.empty() || engine == "sqlite") {
        return file.empty() ? MakeFilePlace() : FindFilePlace(file);
    }
    if (engine == "postgresql") return MakePostgresPlace(Variable("KELVANE_TEST_POSTGRES"));
    if (engine.starts_with(kPostgresFile)) {
        return MakePostgresPlace(FirstLine(engine.substr(kPostgresFile.size())));
    }
    return MakeServerPlace(engine);
}

}  // namespace kelvane::support
