// The machine's settings, read only. On Windows the registry's machine branch, elsewhere a file
// that stands for it.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace kelvane::platform {

class Registry {
public:
    virtual ~Registry() = default;

    enum class Outcome { NoKey, NoValue, Found };
    struct Answer {
        Outcome outcome = Outcome::NoKey;
        std::string text;
    };

    // The text value `name` under machine key `key` ("SOFTWARE\..."), of at most `bufferLength`
    // characters with its end; a longer one, or one that is not text, counts as NoValue. Reports
    // every failure in the answer and throws nothing.
    virtual Answer ReadMachineText(std::string_view key, std::string_view name,
                                   std::size_t bufferLength) = 0;
};

}  // namespace kelvane::platform
