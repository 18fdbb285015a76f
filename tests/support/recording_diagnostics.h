// Keeps what the component reports as trapped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/diagnostics.h"

namespace kelvane::support {

class RecordingDiagnostics : public platform::Diagnostics {
public:
    std::vector<std::string> places;
    std::vector<std::string> details;

    void Trapped(std::string_view place, std::string_view detail) noexcept override {
        places.emplace_back(place);
        details.emplace_back(detail);
    }
};

}  // namespace kelvane::support
