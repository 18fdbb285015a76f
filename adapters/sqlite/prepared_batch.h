// A batch ready to be run.
#pragma once

#include <vector>

#include "adapters/database/translation_cache.h"
#include "adapters/sqlite/statement.h"

namespace kelvane::sqlite {

struct PreparedBatch : database::TranslatedBatch {
    // One for each statement of the translation, prepared when its turn comes.
    std::vector<Statement> prepared;
};

// By whether the rows are opened to be changed.
using PreparedBatches = database::TranslationCache<PreparedBatch, bool>;

}  // namespace kelvane::sqlite
