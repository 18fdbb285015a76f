// What all PeriodItem objects of a loaded component share: the services it runs on and the host's
// objects of the last login. It lives as long as one of them does.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "adapters/com/host_objects.h"
#include "adapters/com/machine_registry.h"
#include "adapters/drive/statement_log.h"
#include "component/period_item.h"
#include "host/com_server/host_login.h"
#include "host/surroundings/diagnostics_log.h"
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

    // Both throw what the component and the host's objects throw, and com::CallOrderError while
    // Show is running.
    void Init(component::PeriodItem& item, com::ComPointer<IDispatch> login,
              com::ComPointer<IDispatch> environment, const std::string& appPath);
    void Show(component::PeriodItem& item);

private:
    std::shared_ptr<platform::Connection> CreateConnection();
    void ForgetOldLogins();

    com::MachineRegistry mRegistry;
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
