// What all PeriodItem objects of a loaded component share: the services it runs on and the host's
// objects of the last login. It lives as long as one of them does.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/drive/statement_log.h"
#include "adapters/windows/host_objects.h"
#include "adapters/windows/machine_registry.h"
#include "component/period_item.h"
#include "host/diagnostics_log.h"
#include "host/windows/host_login.h"
#include "platform/services.h"

namespace kelvane::host {

class ComSession {
public:
    ComSession();
    ~ComSession();
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

    // The session of this process, made when there is none.
    static std::shared_ptr<ComSession> Share();

    platform::Services& Services() { return mServices; }

    // Both throw what the component and the host's objects throw, and windows::CallOrderError while
    // Show is running.
    void Init(component::PeriodItem& item, windows::ComPointer<IDispatch> login,
              windows::ComPointer<IDispatch> environment, const std::string& appPath);
    void Show(component::PeriodItem& item);

private:
    std::shared_ptr<platform::Connection> CreateConnection();
    void ForgetOldLogins();

    windows::MachineRegistry mRegistry;
    DiagnosticsLog mLog;
    drive::StatementLog mStatements;
    bool mNotesStatements;
    bool mShown = false;
    platform::Services mServices;
    std::vector<std::unique_ptr<HostLoginObjects>> mLogins;
};

// When the process ends with objects that nobody released: lets go of what could not be closed any
// more, as other components may be gone already.
void AbandonLogin() noexcept;

}  // namespace kelvane::host
