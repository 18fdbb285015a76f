// Where trapped errors go. The component's routines that trap their errors report each here, so
// that a failure without a message box is not a failure without a trace.
#pragma once

#include <exception>
#include <string>
#include <string_view>

namespace kelvane::platform {

class Diagnostics {
public:
    virtual ~Diagnostics() = default;
    // `place`: the routine that trapped the error; `detail`: the error's own text. Neither contains
    // a connection string. Throws nothing.
    virtual void Trapped(std::string_view place, std::string_view detail) noexcept = 0;
};

}  // namespace kelvane::platform
