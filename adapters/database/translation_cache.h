// Translated batches by the shape of their text, so that a statement that is run again with other
// values costs no more than reading its text once.
#pragma once

#include <algorithm>
#include <iterator>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "adapters/tsql/translation.h"

namespace kelvane::database {

// Whether a translation is worth keeping: a longer batch, which a script with many lines makes,
// would fill the memory and hardly come again; and a statement's error may be gone the next time.
bool IsLasting(const tsql::Translation& translation);

// The translation of `text`. A column that `catalog` does not know is looked for once more after
// `forget()`, which has to empty the catalog: the table may have got it since the catalog read it.
// Throws as tsql::Translate() does.
template <typename Catalog, typename Forget>
std::shared_ptr<const tsql::Translation> Translate(const tsql::LexedText& text, Catalog& catalog,
                                                   tsql::StatementWriter& writer, bool changeable,
                                                   const Forget& forget) {
    const bool mayBeStale = !catalog.IsEmpty();
    const auto translate = [&] {
        return std::make_shared<const tsql::Translation>(
            tsql::Translate(text, catalog, writer, changeable));
    };
    try {
        return translate();
    } catch (const platform::DatabaseError& error) {
        if (error.NativeCode() != tsql::error::kUnknownColumn || !mayBeStale) throw;
    }
    forget();
    return translate();
}

// A batch that is its translation alone.
struct TranslatedBatch {
    std::shared_ptr<const tsql::Translation> translation;
};

// `Batch` has a member `translation` as TranslatedBatch; `Key` is what decides about a translation
// beside the text.
template <typename Batch, typename Key>
class TranslationCache {
public:
    static constexpr std::size_t kMaxEntries = 128;

    // The batch that serves `text`, if there is one.
    std::shared_ptr<Batch> Find(const tsql::LexedText& text, const Key& key) {
        const auto [first, last] = mByShape.equal_range(text.shape);
        for (auto at = first; at != last; ++at) {
            const auto entry = at->second;
            if (!(entry->key == key) || !entry->batch->translation->Serves(text)) continue;
            mEntries.splice(mEntries.begin(), mEntries, entry);
            return entry->batch;
        }
        return nullptr;
    }

    // Keeps a lasting batch; the one that was used longest ago makes room for it.
    void Add(const tsql::LexedText& text, const Key& key, std::shared_ptr<Batch> batch) {
        if (!IsLasting(*batch->translation)) return;
        mEntries.push_front({text.shape, key, std::move(batch)});
        mByShape.emplace(mEntries.front().shape, mEntries.begin());
        if (mEntries.size() <= kMaxEntries) return;
        const auto oldest = std::prev(mEntries.end());
        const auto [first, last] = mByShape.equal_range(oldest->shape);
        mByShape.erase(
            std::find_if(first, last, [&](const auto& at) { return at.second == oldest; }));
        mEntries.erase(oldest);
    }

    void Clear() {
        mByShape.clear();
        mEntries.clear();
    }

private:
    struct Entry {
        std::string shape;
        Key key;
        std::shared_ptr<Batch> batch;
    };
    using Entries = std::list<Entry>;

    Entries mEntries;  // the most recently used first
    std::unordered_multimap<std::string_view, typename Entries::iterator> mByShape;
};

}  // namespace kelvane::database
