// What the fuzz targets share: the promise that a run must keep, and taking random bytes apart.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <utility>

namespace kelvane::fuzz {

// A promise that does not hold ends the process, as libFuzzer expects of a finding. `what` says
// which promise, `about` what it was broken with.
inline void Require(bool holds, std::string_view what, std::string_view about = {}) {
    if (holds) return;
    std::cerr << "broken: " << what << "\n" << about << "\n";
    std::abort();
}

// The input as a sequence of decisions. Behind its end every number is 0 and every text empty.
class Bytes {
public:
    Bytes(const std::uint8_t* bytes, std::size_t size)
        : mRest(reinterpret_cast<const char*>(bytes), size) {}

    bool AtEnd() const { return mRest.empty(); }

    // From 0 to `below` - 1.
    int Number(int below) {
        if (mRest.empty()) return 0;
        const auto byte = static_cast<unsigned char>(mRest.front());
        mRest.remove_prefix(1);
        return byte % below;
    }

    // Up to the next line's end, which is taken, too.
    std::string Line() { return Until('\n'); }
    // Up to the next NUL.
    std::string Text() { return Until('\0'); }
    std::string Rest() { return std::string(std::exchange(mRest, {})); }

private:
    std::string Until(char end) {
        const std::size_t size = std::min(mRest.find(end), mRest.size());
        std::string text(mRest.substr(0, size));
        mRest.remove_prefix(std::min(size + 1, mRest.size()));
        return text;
    }

    std::string_view mRest;
};

}  // namespace kelvane::fuzz
