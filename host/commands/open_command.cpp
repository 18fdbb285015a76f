// kelvane open

#include "host/account/session.h"
#include "host/commands/commands.h"
#include "host/ledger/tied_account.h"
#include "host/surroundings/screen.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

constexpr const char* kCaption = "项目管理";

int Open(const OpenArguments& arguments, const Screen& screen) {
    platform::Windows& windows = screen.windows;
    try {
        Session session(arguments.account, windows, nullptr, screen.printing);
        session.KeepWindows();
        if (screen.printing != nullptr) {
            session.OfferSignOff(SignOffService(arguments.account, *screen.printing));
        }
        session.LogIn(arguments.login, arguments.today);
        session.Show();
        return 0;
    } catch (const std::exception& error) {
        const int status = Fail(error.what());
        windows.ShowMessage({.text = error.what(),
                             .caption = kCaption,
                             .icon = platform::MessageIcon::Exclamation});
        return status;
    }
}

}  // namespace

int RunOpen(const OpenArguments& arguments) {
    if (!HasScreen()) return Fail(Translated(kNoScreen));
    if (!DiagnosticsLog(LogPath()).IsWritable()) {
        return Fail(Told("the log %1 cannot be written", {LogPath().string()}));
    }
    return RunOnScreen(nullptr, [&](const Screen& screen) { return Open(arguments, screen); });
}

}  // namespace kelvane::host
