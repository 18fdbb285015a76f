// Why the component refuses a call of its host's. Nothing of the call has been done then.
#pragma once

#include <stdexcept>

namespace kelvane::platform {

// A call at a time when it cannot be: before a successful Init, or while a window is shown.
class CallOrderError : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

// A call from a thread other than the one that the component belongs to.
class WrongThread : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

// A service that the component cannot do without is not there. what() names it.
class MissingService : public std::logic_error {
public:
    using std::logic_error::logic_error;
};

}  // namespace kelvane::platform
