// ElementDetails: the element-detail flag of each entry's element, by the entry's identity, and the
// names under which elements were shown. New rows share the identity 0 until they are saved.
#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "data/keyed_collection.h"
#include "platform/blanks.h"

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

    // An entry whose element has this code was shown, or saved, under this name of it. Blanks at
    // the code's end do not count: columns of different tables may fill it up to different lengths.
    void AddName(std::string_view code, std::string_view name) {
        if (!IsNameOf(code, name)) mNames.emplace(platform::WithoutEndBlanks(code), name);
    }
    bool IsNameOf(std::string_view code, std::string_view name) const {
        return mNames.find(NameView(platform::WithoutEndBlanks(code), name)) != mNames.end();
    }

private:
    static constexpr std::int32_t kNewRow = 0;

    using Name = std::pair<std::string, std::string>;
    using NameView = std::pair<std::string_view, std::string_view>;
    // Looks names up where they stand: loading does so for every row.
    struct NameOrder {
        using is_transparent = void;
        template <typename Left, typename Right>
        bool operator()(const Left& left, const Right& right) const {
            return NameView(left) < NameView(right);
        }
    };

    data::KeyedCollection<std::int16_t> mFlags;
    std::set<Name, NameOrder> mNames;
};

}  // namespace kelvane::ui
