// A collection of values under text keys, as the windows keep one value per entry. Keys are
// compared without regard to ASCII letter case.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/ascii.h"

namespace kelvane::data {

template <typename T>
class KeyedCollection {
public:
    // Throws std::invalid_argument when `key` exists.
    void Add(std::string_view key, T value) {
        if (!mItems.try_emplace(platform::LowerAscii(key), std::move(value)).second)
            throw std::invalid_argument("the key exists: " + std::string(key));
    }

    // Item and Remove throw std::out_of_range when there is no `key`.
    const T& Item(std::string_view key) const { return mItems.at(platform::LowerAscii(key)); }
    void Remove(std::string_view key) {
        if (mItems.erase(platform::LowerAscii(key)) == 0)
            throw std::out_of_range("no such key: " + std::string(key));
    }

    // Adds the value, or puts it in the place of the one under `key`.
    void Replace(std::string_view key, T value) {
        mItems.insert_or_assign(platform::LowerAscii(key), std::move(value));
    }

    void Clear() { mItems.clear(); }
    void Reserve(std::size_t count) { mItems.reserve(count); }
    std::size_t Count() const { return mItems.size(); }
    bool HasKey(std::string_view key) const { return mItems.contains(platform::LowerAscii(key)); }

private:
    std::unordered_map<std::string, T> mItems;
};

// Whether the collection holds a value under `key`.
template <typename T>
bool CollectionHasKey(std::string_view key, const KeyedCollection<T>& collection) {
    return collection.HasKey(key);
}

}  // namespace kelvane::data
