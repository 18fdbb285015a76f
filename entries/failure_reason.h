// Why something failed, in words that an operator can act on: what stands beside the sentence that
// names the failure.
#pragma once

#include <stdexcept>
#include <string>

namespace kelvane::entries {

// A failure whose text is a sentence that an operator can act on.
class ToldFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A sentence on the exception that is being handled; empty when none is, and for one that an
// operator can do nothing about. For use in a catch block or below it.
std::string ReasonOfFailure();

}  // namespace kelvane::entries
