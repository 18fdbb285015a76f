// The component's entries in the system's registry, for the whole machine or for the present user.
#pragma once

#include "adapters/com/com_headers.h"

namespace kelvane::host {

enum class RegistrationScope { Machine, User };

// Both return the system's code. Registering writes what is missing and replaces what is there;
// unregistering is no error when nothing is there.
HRESULT Register(RegistrationScope scope) noexcept;
HRESULT Unregister(RegistrationScope scope) noexcept;

}  // namespace kelvane::host
