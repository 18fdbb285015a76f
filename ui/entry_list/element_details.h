// ElementDetails: the element-detail flag of each entry's element, by the entry's identity. New
// rows share the identity 0 until they are saved.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "data/keyed_collection.h"

namespace kelvane::ui {

class ElementDetails {
public:
    // 0, no detail lines, for an entry that is not there.
    std::int16_t FlagOf(std::int32_t identity) const {
        const std::string key = std::to_string(identity);
        return data::CollectionHasKey(key, mFlags) ? mFlags.Item(key) : std::int16_t{0};
    }

    // Throws std::invalid_argument when the entry is there.
    void Add(std::int32_t identity, std::int16_t flag) {
        mFlags.Add(std::to_string(identity), flag);
    }
    void Replace(std::int32_t identity, std::int16_t flag) {
        mFlags.Replace(std::to_string(identity), flag);
    }
    // The new row's flag becomes that of the entry it was saved as.
    void GiveNewRow(std::int32_t identity) {
        const std::int16_t flag = FlagOf(kNewRow);
        if (data::CollectionHasKey(std::to_string(kNewRow), mFlags)) {
            mFlags.Remove(std::to_string(kNewRow));
        }
        Replace(identity, flag);
    }
    void Reserve(std::size_t count) { mFlags.Reserve(count); }

private:
    static constexpr std::int32_t kNewRow = 0;

    data::KeyedCollection<std::int16_t> mFlags;
};

}  // namespace kelvane::ui
