// PeriodItem: the component's public object. A host creates it, hands it its login, its environment
// and the component's folder through Init, opens the entry list with Show and ends with Close or by
// destroying it.
#pragma once

#include <string>
#include <thread>

#include "platform/call_errors.h"
#include "platform/host.h"
#include "platform/services.h"

namespace kelvane::component {

// The login context is one for the whole process: the Init that came last fills it, whichever
// object it was called on, and every object's Show uses it. Each object keeps its own services, and
// one object's window is shown at a time.
//
// Every call is made on the thread that created the object, and all objects of a process that are
// initialised belong to one thread: platform::WrongThread otherwise. While a window is shown Init,
// Show and Close of every object throw platform::CallOrderError, and no object is destroyed.
class PeriodItem {
public:
    // `services`: what the component runs on; it outlives the object.
    explicit PeriodItem(platform::Services& services);
    // Does what Close does.
    ~PeriodItem();
    PeriodItem(const PeriodItem&) = delete;
    PeriodItem& operator=(const PeriodItem&) = delete;

    // Keeps the host's objects, opens the component's own connection (gConn) with the login's
    // connection string (closing an open one first) and fills the login context. Returns true;
    // traps nothing: platform::MissingService, platform::DatabaseError and platform::HostError go
    // to the host. `objLogin` and `objEnv` stay the host's and live until the object is closed or
    // another Init has succeeded.
    bool Init(platform::HostLogin& objLogin, platform::HostEnvironment& objEnv,
              const std::string& AppPath);

    // Opens the entry list modally; returns when it has been closed. Throws CallOrderError before a
    // successful Init, also when a later one, of whichever object, failed or was closed.
    void Show();

    // Closes the connection and lets go of the host's objects, if the Init that came last was this
    // object's; the values that were taken from them stay. Init can be called again. Throws nothing
    // but what is said above; closing twice does nothing.
    void Close();

    // Throw what Init and Show throw when they are called at a wrong time or on a wrong thread, for
    // a host that has work of its own to do before the call.
    void CheckInitCall() const;
    void CheckShowCall() const;

private:
    class ShownScope;

    void CheckThread(const char* call) const;
    void LetGo() noexcept;

    platform::Services& mServices;
    std::thread::id mThread;
    bool mInitialized = false;
};

}  // namespace kelvane::component
