// PeriodItem: the component's public object. A host creates it, hands it its login, its environment
// and the component's folder through Init, and opens the entry list with Show.
#pragma once

#include <string>

#include "platform/host.h"
#include "platform/services.h"

namespace kelvane::component {

class PeriodItem {
public:
    // `services`: what the component runs on; it outlives the object and every window.
    explicit PeriodItem(platform::Services& services);

    // Keeps the host's objects, opens the component's own connection with the login's connection
    // string (closing an open one first) and fills the login context. Returns true; traps nothing:
    // platform::DatabaseError and platform::HostError go to the host.
    bool Init(platform::HostLogin& objLogin, platform::HostEnvironment& objEnv,
              const std::string& AppPath);

    // Opens the entry list modally; returns when it has been closed. Throws std::logic_error before
    // a successful Init.
    void Show();

private:
    bool mInitialized = false;
};

}  // namespace kelvane::component
