#include "component/period_item.h"

#include <stdexcept>

#include "controls/control.h"
#include "data/login_context.h"
#include "ui/entry_list/entry_list.h"
#include "ui/windows.h"

namespace kelvane::component {

using namespace data;  // the g… values of the login context

PeriodItem::PeriodItem(platform::Services& services) {
    gServices = &services;
}

bool PeriodItem::Init(platform::HostLogin& objLogin, platform::HostEnvironment& objEnv,
                      const std::string& AppPath) {
    mInitialized = false;
    gLogin = &objLogin;
    if (!gConn) gConn = gServices->createConnection();
    if ((gConn->State() & platform::kStateOpen) != 0) gConn->Close();
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
    if (!mInitialized) throw std::logic_error("Show needs a successful Init before it");
    gToday = gServices->today().DateText('.');
    ui::ConnectWindows();
    gServices->windows->ShowModal(ui::GetPeriodItemForm());
}

}  // namespace kelvane::component
