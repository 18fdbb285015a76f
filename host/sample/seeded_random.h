// A small random number generator whose sequence is fixed by its seed on every compiler and
// library, which the standard distributions do not promise.
#pragma once

#include <cstddef>
#include <cstdint>

namespace kelvane::host {

class SeededRandom {
public:
    explicit constexpr SeededRandom(std::uint64_t seed) : mState(seed) {}

    constexpr std::uint64_t Next() {
        mState += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = mState;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return mixed ^ (mixed >> 31U);
    }

    // 0 to `count` - 1; `count` is not 0.
    constexpr std::size_t Below(std::size_t count) {
        return static_cast<std::size_t>(Next() % count);
    }

    // `low` to `high`, both included.
    constexpr std::int64_t Between(std::int64_t low, std::int64_t high) {
        return low + static_cast<std::int64_t>(Next() % static_cast<std::uint64_t>(high - low + 1));
    }

    // True in `percent` of a hundred cases.
    constexpr bool Chance(int percent) { return Between(1, 100) <= percent; }

    template <typename Range>
    constexpr auto& Pick(Range& range) {
        return range[Below(range.size())];
    }

private:
    std::uint64_t mState;
};

}  // namespace kelvane::host
