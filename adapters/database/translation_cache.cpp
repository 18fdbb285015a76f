#include "adapters/database/translation_cache.h"

namespace kelvane::database {

bool IsLasting(const tsql::Translation& translation) {
    constexpr std::size_t kMaxStatements = 64;
    return translation.statements.size() <= kMaxStatements &&
           std::none_of(translation.statements.begin(), translation.statements.end(),
                        [](const auto& statement) { return statement.error.has_value(); });
}

}  // namespace kelvane::database
