#include "host/account/session.h"

#include <filesystem>
#include <utility>

#include "adapters/reference/reference_lists.h"
#include "component/current_center.h"
#include "data/login_context.h"
#include "host/account/account_place.h"
#include "host/surroundings/local_time.h"
#include "host/surroundings/printing.h"
#include "host/surroundings/user_folders.h"

namespace kelvane::host {

namespace {

// The component's own folder, for what it keeps of its users.
std::filesystem::path ComponentFolder() {
    return UserFolder("XDG_DATA_HOME", ".local/share") / "kelvane";
}

}  // namespace

Session::Session(AccountPlace account, platform::Windows& windows, drive::StatementLog* statements,
                 platform::PrintSurroundings* printing)
    : mAccount(std::move(account)),
      mStatements(statements),
      mSettings(SettingsPath()),
      mUserSettings(UserSettingsPath()),
      mLog(LogPath()),
      mComponent(mServices) {
    mServices.windows = &windows;
    mServices.registry = &mSettings;
    mServices.diagnostics = &mLog;
    mServices.createConnection = [this] { return CreateConnection(); };
    mServices.today = [this] { return mToday ? *mToday : LocalNow(); };
    mServices.createReferenceList = [this, &windows] {
        return reference::MakeReferenceLists({
            windows,
            []() -> platform::HostDataAccess& { return data::gEnv->DataAccess(); },
            component::CurrentCenter,
            mServices.userSettings,
        });
    };
    if (printing == nullptr) return;
    OfferPrinting(mServices, *printing);
    mTableImport.emplace(
        *printing, [this] { return BatchFolderOf(mAccount); },
        [this] { return MapFileOf(mAccount); });
    mServices.tableImport = &*mTableImport;
}

std::shared_ptr<platform::Connection> Session::CreateConnection() {
    auto connection = mAccount.NewConnection();
    if (mStatements == nullptr) return connection;
    return std::make_shared<drive::RecordingConnection>(std::move(connection), *mStatements);
}

void Session::LogIn(const LoginRequest& request, std::optional<platform::DateTime> today) {
    const LoginPlace place{[this] { return mAccount.NewConnection(); }, mAccount.ConnectionString(),
                           ProgramFolder().string()};
    auto login = std::make_unique<AccountHost>(place, request);
    if (mStatements != nullptr) {
        auto& environment = login->Environment();
        mObservers.push_back(
            std::make_unique<drive::RecordingDataAccess>(environment.DataAccess(), *mStatements));
        environment.SetDataAccess(*mObservers.back());
    }
    mUserSettings.BelongTo(mAccount.IsOnServer() ? AccountOfConnection(mAccount.ConnectionString())
                                                 : AccountOfFile(mAccount.Name()),
                           login->Login().UserId());
    mLogins.push_back(std::move(login));
    mToday = today;
    mComponent.Init(mLogins.back()->Login(), mLogins.back()->Environment(),
                    ComponentFolder().string());
}

}  // namespace kelvane::host
