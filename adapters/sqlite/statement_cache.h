// Translated and prepared batches by the shape of their text, so that a statement that is run again
// with other values costs no more than reading its text once.
#pragma once

#include <list>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "adapters/sqlite/statement.h"
#include "adapters/tsql/translation.h"

namespace kelvane::sqlite {

// A batch ready to be run; its statements are prepared when their turn comes.
struct PreparedBatch {
    std::shared_ptr<const tsql::Translation> translation;
    std::vector<Statement> prepared;  // one for each statement of the translation

    // Whether it is worth keeping and running it again may find it: a missing table may exist then.
    bool IsLasting() const;
};

class StatementCache {
public:
    // The batch for `text`, if there is one. `changeable`: as tsql::Translate() takes it.
    std::shared_ptr<PreparedBatch> Find(const tsql::LexedText& text, bool changeable);
    void Add(const tsql::LexedText& text, bool changeable, std::shared_ptr<PreparedBatch> batch);
    void Clear();

private:
    struct Entry {
        std::string shape;
        bool changeable;
        std::shared_ptr<PreparedBatch> batch;
    };
    using Entries = std::list<Entry>;

    Entries mEntries;  // the most recently used first
    std::unordered_multimap<std::string_view, Entries::iterator> mByShape;
};

}  // namespace kelvane::sqlite
