#include "adapters/sqlite/statement_cache.h"

#include <algorithm>
#include <utility>

namespace kelvane::sqlite {

namespace {
constexpr std::size_t kMostEntries = 128;
// A longer batch, which a script with many lines makes, would fill the memory and hardly return.
constexpr std::size_t kMostStatements = 64;
}  // namespace

bool PreparedBatch::IsLasting() const {
    if (translation->statements.size() > kMostStatements) return false;
    return std::none_of(translation->statements.begin(), translation->statements.end(),
                        [](const auto& statement) { return statement.error.has_value(); });
}

std::shared_ptr<PreparedBatch> StatementCache::Find(const tsql::LexedText& text, bool changeable) {
    const auto [first, last] = mByShape.equal_range(text.shape);
    for (auto at = first; at != last; ++at) {
        const Entries::iterator entry = at->second;
        if (entry->changeable != changeable || !entry->batch->translation->Serves(text)) continue;
        mEntries.splice(mEntries.begin(), mEntries, entry);
        return entry->batch;
    }
    return nullptr;
}

void StatementCache::Add(const tsql::LexedText& text, bool changeable,
                         std::shared_ptr<PreparedBatch> batch) {
    mEntries.push_front({text.shape, changeable, std::move(batch)});
    mByShape.emplace(mEntries.front().shape, mEntries.begin());
    if (mEntries.size() <= kMostEntries) return;
    const Entries::iterator oldest = std::prev(mEntries.end());
    const auto [first, last] = mByShape.equal_range(oldest->shape);
    mByShape.erase(std::find_if(first, last, [&](const auto& at) { return at.second == oldest; }));
    mEntries.erase(oldest);
}

void StatementCache::Clear() {
    mByShape.clear();
    mEntries.clear();
}

}  // namespace kelvane::sqlite
