#include "tests/support/test_place.h"

#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "tests/support/file_place.h"
#include "tests/support/server_place.h"

namespace kelvane::support {

namespace {

std::string Variable(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::string() : value;
}

}  // namespace

std::unique_ptr<TestPlace> MakeTestPlace(const std::string& file) {
    const std::string engine = Variable("KELVANE_TEST_DATABASE");
    if (engine.empty() || engine == "sqlite") {
        return file.empty() ? MakeFilePlace() : FindFilePlace(file);
    }
    if (engine != "postgresql") return MakeServerPlace(engine);
    const std::string server = Variable("KELVANE_TEST_POSTGRES");
    if (server.empty()) throw std::runtime_error("KELVANE_TEST_POSTGRES is not set");
    return MakePostgresPlace(server);
}

}  // namespace kelvane::support
