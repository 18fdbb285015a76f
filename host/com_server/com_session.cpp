#include "host/com_server/com_session.h"

#include <algorithm>
#include <utility>

#include "adapters/com/ado_connection.h"
#include "adapters/com/error_report.h"
#include "adapters/com/module.h"
#include "adapters/com/msxml_document.h"
#include "adapters/com/wide_text.h"
#include "adapters/reference/reference_list_service.h"
#include "data/login_context.h"
#include "host/com_server/show_windows.h"
#include "host/surroundings/batch_folder.h"
#include "host/surroundings/local_time.h"
#include "host/surroundings/printing.h"
#include "host/surroundings/table_import.h"

namespace kelvane::host {

namespace {

constexpr const wchar_t* kNamesFile = L"Kelvane.ini";
constexpr const wchar_t* kLogVariable = L"KELVANE_LOG";

// Services that exist only while windows do.
class ShownServices {
public:
    ShownServices(platform::Services& services, platform::Windows& windows,
                  platform::PrintSurroundings& printing)
        : mServices(services),
          mWindowsBefore(services.windows),
          mTableImport(
              printing, [] { return BatchFolderOfServer(data::gLogin->ConnectionString()); },
              [] { return MapFileAt(MapPlaceOfServer(data::gLogin->ConnectionString())); }) {
        mServices.windows = &windows;
        mServices.tableImport = &mTableImport;
        OfferPrinting(mServices, printing);
    }
    ~ShownServices() {
        WithdrawPrinting(mServices);
        mServices.tableImport = nullptr;
        mServices.windows = mWindowsBefore;
    }
    ShownServices(const ShownServices&) = delete;
    ShownServices& operator=(const ShownServices&) = delete;

private:
    platform::Services& mServices;
    platform::Windows* mWindowsBefore;
    TableImport mTableImport;
};

}  // namespace

std::shared_ptr<ComSession> ComSession::Share() {
    static std::weak_ptr<ComSession> current;
    auto session = current.lock();
    if (!session) current = session = std::make_shared<ComSession>();
    return session;
}

ComSession::ComSession()
    : mLog(com::EnvironmentText(kLogVariable)),
      mUserSettings(UserSettingsPath()),
      mNotesStatements(IsDriven()) {
    mServices.windows = &mAbsentWindows;
    mServices.registry = &mRegistry;
    mServices.diagnostics = &mLog;
    mServices.createConnection = [this] { return CreateConnection(); };
    mServices.today = LocalNow;
    mServices.createReferenceList = [this] {
        return std::make_unique<reference::ReferenceListService>(reference::ListSurroundings{
            *mServices.windows,
            []() -> platform::HostDataAccess& { return data::gEnv->DataAccess(); },
            [] { return data::gRefCenterCode; },
            mServices.userSettings,
        });
    };
    mServices.createXmlDocument = [] { return std::make_unique<com::MsxmlDocument>(); };
}

std::shared_ptr<platform::Connection> ComSession::CreateConnection() {
    auto connection = std::make_shared<com::AdoConnection>();
    if (!mNotesStatements) return connection;
    return std::make_shared<drive::RecordingConnection>(std::move(connection), mStatements);
}

void ComSession::Init(com::ComPointer<IDispatch> login, com::ComPointer<IDispatch> environment,
                      const std::string& appPath) {
    mItem.CheckInitCall();
    auto objects = std::make_unique<HostLoginObjects>(
        com::MemberNames::Load(com::ModulePath().parent_path() / kNamesFile), std::move(login),
        std::move(environment), mNotesStatements ? &mStatements : nullptr);
    objects->Login().CheckMembers();
    objects->Environment().CheckMembers();
    mLogins.push_back(std::move(objects));
    try {
        mItem.Init(mLogins.back()->Login(), mLogins.back()->Environment(), appPath);
    } catch (...) {
        ForgetOldLogins();
        throw;
    }
    ForgetOldLogins();
    TakeUserSettings();
}

// A script's windows open as they did the first time. A host that cannot say whose settings they
// are does without.
void ComSession::TakeUserSettings() noexcept {
    mServices.userSettings = nullptr;
    if (IsDriven()) return;
    try {
        mUserSettings.BelongTo(AccountOfConnection(data::gLogin->ConnectionString()),
                               data::gLogin->UserId());
        mServices.userSettings = &mUserSettings;
    } catch (...) {
        mServices.userSettings = nullptr;
    }
}

// After a login that failed half-way the component may have one object of it and one of an earlier
// login: both logins stay.
void ComSession::ForgetOldLogins() {
    std::erase_if(mLogins, [](const std::unique_ptr<HostLoginObjects>& each) {
        return &each->Login() != data::gLogin && &each->Environment() != data::gEnv;
    });
}

void ComSession::Show() {
    mItem.CheckShowCall();
    RunWindows(mNotesStatements ? &mStatements : nullptr,
               [&](platform::Windows& windows, platform::PrintSurroundings& printing) {
                   const ShownServices services(mServices, windows, printing);
                   mItem.Show();
               });
}

void AbandonLogin() noexcept try {
    // Never freed on purpose: closing it would call into a provider that may be gone.
    new std::shared_ptr<platform::Connection>(std::move(data::gConn));
} catch (...) {
    data::gConn.reset();
}

}  // namespace kelvane::host
