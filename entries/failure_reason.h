// Why something failed, in words that an operator can act on: what stands beside the sentence that
// names the failure.
#pragma once

#include <string_view>

namespace kelvane::entries {

// A sentence on the exception that is being handled; empty when none is, and for one that an
// operator can do nothing about. For use in a catch block or below it.
std::string_view ReasonOfFailure();

}  // namespace kelvane::entries
