// A machine's settings as a test wants them; keeps what it was asked for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/registry.h"

namespace kelvane::support {

class RecordingRegistry : public platform::Registry {
public:
    Answer answer;
    // One line a question: key, value name and buffer length.
    std::vector<std::string> asked;

    Answer ReadMachineText(std::string_view key, std::string_view name,
                           std::size_t bufferLength) override {
        asked.push_back(std::string(key) + " | " + std::string(name) + " | " +
                        std::to_string(bufferLength));
        return answer;
    }
};

}  // namespace kelvane::support
