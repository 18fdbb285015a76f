// An operator's settings that are remembered as long as the test lasts.
#pragma once

#include <map>
#include <string>

#include "platform/user_settings.h"

namespace kelvane::support {

class RememberedSettings : public platform::UserSettings {
public:
    std::map<std::string, std::string> texts;
    int writes = 0;

    std::string Kept(const std::string& name) noexcept override {
        const auto found = texts.find(name);
        return found == texts.end() ? std::string() : found->second;
    }
    void Keep(const std::string& name, const std::string& text) noexcept override {
        ++writes;
        texts[name] = text;
    }
};

}  // namespace kelvane::support
