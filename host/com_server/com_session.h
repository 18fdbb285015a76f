// What all PeriodItem objects of a loaded component share: the component and the services it runs
// on, and the host's objects of the last login. It lives as long as one of them does.
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
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/diagnostics_log.h"
#include "host/surroundings/user_settings_file.h"
#include "platform/services.h"

namespace kelvane::host {

class ComSession {
public:
    ComSession();
    ComSession(const ComSession&) = delete;
    ComSession& operator=(const ComSession&) = delete;

    // The session of this process, made when there is none.
    static std::shared_ptr<ComSession> Share();

    // Throws what Init would throw at a wrong time or on a wrong thread.
    void CheckInitCall() const { mItem.CheckInitCall(); }

    // Both throw what the component and the host's objects throw. An Init that finds at once that
    // the host's objects lack something leaves the login before as it is.
    void Init(com::ComPointer<IDispatch> login, com::ComPointer<IDispatch> environment,
              const std::string& appPath);
    void Show();

private:
    std::shared_ptr<platform::Connection> CreateConnection();
    void ForgetOldLogins();
    void TakeUserSettings() noexcept;

    com::MachineRegistry mRegistry;
    DiagnosticsLog mLog;
    UserSettingsFile mUserSettings;
    drive::StatementLog mStatements;
    bool mNotesStatements;
    AbsentWindows mAbsentWindows;
    platform::Services mServices;
    std::vector<std::unique_ptr<HostLoginObjects>> mLogins;
    // Closes itself before what it runs on goes.
    component::PeriodItem mItem{mServices};
};

// When the process ends with objects that nobody released: lets go of what could not be closed any
// more, as other components may be gone already.
void AbandonLogin() noexcept;

}  // namespace kelvane::host
