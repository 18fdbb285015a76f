// Secret: a password for as long as it is needed. It lies in memory of its own that no core file
// takes in, and nothing of it is left there afterwards. What has to be an ordinary text for a
// moment is wiped behind it.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>

namespace kelvane::database {

class Secret {
public:
    // Throws std::bad_alloc.
    explicit Secret(std::string_view text);
    ~Secret();
    Secret(const Secret&) = delete;
    Secret& operator=(const Secret&) = delete;

    // Valid as long as the secret.
    std::string_view Text() const { return {mPages, mSize}; }

private:
    char* mPages;  // the memory begins with a page and takes whole ones
    std::size_t mSize;
};

using SharedSecret = std::shared_ptr<const Secret>;

// Overwrites memory, which the compiler does not take for needless.
void WipeBytes(void* bytes, std::size_t count) noexcept;

// Overwrites all that `text` has room for, and empties it.
template <typename Character>
void Wipe(std::basic_string<Character>& text) noexcept {
    text.resize(text.capacity());
    WipeBytes(text.data(), text.size() * sizeof(Character));
    text.clear();
}

// Wipes a text at the end of a block. The text outlives it.
template <typename Text>
class WipedAfterwards {
public:
    explicit WipedAfterwards(Text& text) : mText(text) {}
    ~WipedAfterwards() { Wipe(mText); }
    WipedAfterwards(const WipedAfterwards&) = delete;
    WipedAfterwards& operator=(const WipedAfterwards&) = delete;

private:
    Text& mText;
};

}  // namespace kelvane::database
