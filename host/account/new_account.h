// What a new account is to hold.
#pragma once

#include <cstdint>

namespace kelvane::host {

struct NewAccount {
    bool sample = false;
    int keyFields = 1;          // of the project item class: 0, 1 or 2
    std::int64_t entries = 25;  // of the sample
    std::uint64_t seed = 1;     // of the sample
    bool replaceExisting = false;
};

}  // namespace kelvane::host
