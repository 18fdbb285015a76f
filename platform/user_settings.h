// What an operator's windows keep for the next time: small texts by name, for the operator who is
// logged in and the account.
#pragma once

#include <string>

namespace kelvane::platform {

// Names and texts are UTF-8 on one line. Neither call throws: what cannot be read counts as not
// kept, and what cannot be written is not kept.
class UserSettings {
public:
    virtual ~UserSettings() = default;

    // The text that was kept under `name` the last time; empty when none was.
    virtual std::string Kept(const std::string& name) noexcept = 0;
    // Keeps `text` in its place; an empty one forgets it.
    virtual void Keep(const std::string& name, const std::string& text) noexcept = 0;
};

}  // namespace kelvane::platform
