// One run of the component on an account: the services it is given, the host's objects for each
// login, and the component itself.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "adapters/drive/statement_log.h"
#include "component/period_item.h"
#include "host/account/account_host.h"
#include "host/account/account_place.h"
#include "host/surroundings/diagnostics_log.h"
#include "host/surroundings/settings_file.h"
#include "host/surroundings/table_import.h"
#include "host/surroundings/user_settings_file.h"
#include "platform/print_surroundings.h"
#include "platform/services.h"

namespace kelvane::host {

class Session {
public:
    // All outlive the session. `statements` is null when nobody wants to know what reaches the
    // database, `printing` where nothing can be printed or written to files.
    Session(AccountPlace account, platform::Windows& windows, drive::StatementLog* statements,
            platform::PrintSurroundings* printing = nullptr);
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Logs in and initialises the component; a second call replaces the login. `today`: what the
    // component takes for today; without it the clock's date. Throws platform::DatabaseError and
    // platform::HostError.
    void LogIn(const LoginRequest& request, std::optional<platform::DateTime> today);

    // From the next login on the operator's windows open as he left them the last time.
    void KeepWindows() { mServices.userSettings = &mUserSettings; }

    // Lets the operator have the sheet that is signed; see platform::Services::writeSignOff.
    void OfferSignOff(std::function<bool(const std::string&, const std::string&)> write) {
        mServices.writeSignOff = std::move(write);
    }

    // Opens the entry list; returns when it is closed. Throws std::logic_error before a login.
    void Show() { mComponent.Show(); }

private:
    std::shared_ptr<platform::Connection> CreateConnection();

    AccountPlace mAccount;
    drive::StatementLog* mStatements;
    SettingsFile mSettings;
    UserSettingsFile mUserSettings;
    DiagnosticsLog mLog;
    std::optional<platform::DateTime> mToday;
    platform::Services mServices;
    std::optional<TableImport> mTableImport;
    // Every login so far: the component keeps pointers to the objects of the last one that it took.
    std::vector<std::unique_ptr<AccountHost>> mLogins;
    std::vector<std::unique_ptr<platform::HostDataAccess>> mObservers;
    // Closes itself before what it runs on goes.
    component::PeriodItem mComponent;
};

}  // namespace kelvane::host
