#include "component/period_item.h"

#include "controls/control.h"
#include "data/login_context.h"
#include "ui/entry_list/entry_list.h"
#include "ui/windows.h"

namespace kelvane::component {

using namespace data;  // the g… values of the login context
using platform::CallOrderError;
using platform::WrongThread;

namespace {

// Whose Init filled the login context, and whose window is shown.
const PeriodItem* gHolder = nullptr;
const PeriodItem* gShown = nullptr;

void CloseConnection() {
    if (gConn && (gConn->State() & platform::kStateOpen) != 0) gConn->Close();
}

void RefuseWhileShown(const char* call) {
    if (gShown != nullptr) {
        throw CallOrderError(std::string(call) + " cannot be called while a window is shown");
    }
}

}  // namespace

// While a window is shown the context's services are those of the object that shows it.
class PeriodItem::ShownScope {
public:
    explicit ShownScope(const PeriodItem& item) {
        gShown = &item;
        gServices = &item.mServices;
    }
    ~ShownScope() {
        gShown = nullptr;
        gServices = gHolder == nullptr ? nullptr : &gHolder->mServices;
    }
    ShownScope(const ShownScope&) = delete;
    ShownScope& operator=(const ShownScope&) = delete;
};

PeriodItem::PeriodItem(platform::Services& services)
    : mServices(services), mThread(std::this_thread::get_id()) {}

PeriodItem::~PeriodItem() {
    LetGo();
}

bool PeriodItem::Init(platform::HostLogin& objLogin, platform::HostEnvironment& objEnv,
                      const std::string& AppPath) {
    CheckInitCall();
    platform::RequireServices(mServices);
    mInitialized = false;
    // Another object's connection may need that object's services.
    if (gHolder != nullptr && &gHolder->mServices != &mServices) {
        CloseConnection();
        gConn.reset();
    }
    gHolder = this;
    gServices = &mServices;
    gLogin = &objLogin;
    if (!gConn) gConn = mServices.createConnection();
    if (!gConn) throw platform::MissingService("Services::createConnection gave no connection");
    CloseConnection();
    gConn->SetConnectionString(objLogin.ConnectionString());
    gConn->SetCursorLocation(platform::CursorLocation::Client);
    gConn->Open("", "", -1);
    LoadNumPoints();
    gEnv = &objEnv;
    gUnitName = objEnv.Unit().Name();
    gOperatorName = objEnv.Operator().Name();
    gAccountYear = std::to_string(objEnv.Account().Year());
    gPrintStylePath = AppPath + "\\printStyle\\";
    gColorWhite = 0xFFFFFF;
    gColorLocked = controls::Rgb(205, 208, 215);
    gColorPink = controls::Rgb(247, 237, 236);
    gColorCream = controls::Rgb(238, 238, 214);
    mInitialized = true;
    return true;
}

void PeriodItem::Show() {
    CheckShowCall();
    platform::RequireServices(mServices);
    const ShownScope scope(*this);
    gToday = mServices.today().DateText('.');
    ui::ConnectWindows();
    mServices.windows->ShowModal(ui::GetPeriodItemForm());
}

void PeriodItem::Close() {
    CheckThread("Close");
    RefuseWhileShown("Close");
    LetGo();
}

void PeriodItem::CheckInitCall() const {
    CheckThread("Init");
    RefuseWhileShown("Init");
    if (gHolder != nullptr) gHolder->CheckThread("Init");
}

void PeriodItem::CheckShowCall() const {
    CheckThread("Show");
    RefuseWhileShown("Show");
    if (!mInitialized || gHolder == nullptr || !gHolder->mInitialized) {
        throw CallOrderError("Show needs a successful Init before it");
    }
}

void PeriodItem::CheckThread(const char* call) const {
    if (std::this_thread::get_id() == mThread) return;
    throw WrongThread(std::string(call) +
                      " has to be called on the thread that the component belongs to");
}

void PeriodItem::LetGo() noexcept {
    mInitialized = false;
    if (gHolder != this) return;
    try {
        CloseConnection();
    } catch (...) {
        ReportTrapped("Close");
    }
    gHolder = nullptr;
    gConn.reset();
    gLogin = nullptr;
    gEnv = nullptr;
    gServices = nullptr;
}

}  // namespace kelvane::component
