// kelvane drive

#include <iostream>

#include "adapters/drive/script_operator.h"
#include "adapters/headless/headless_windows.h"
#include "host/commands.h"
#include "host/screen.h"
#include "host/session.h"

namespace kelvane::host {

namespace {

int Drive(const std::string& account, drive::ScriptOperator& script, platform::Windows& windows) {
    drive::StatementLog statements;
    Session session(account, windows, &statements);
    script.SetHost({
        .init =
            [&session](const drive::InitOptions& options) {
                session.LogIn({options.user, options.exempt, options.year}, options.today);
            },
        .show = [&session] { session.Show(); },
        .sendKeys = [&windows](std::string_view keys) { windows.SendKeys(keys); },
        .statements = &statements,
    });
    return script.Run();
}

}  // namespace

int RunDrive(const DriveArguments& arguments) {
    if (arguments.window && !HasScreen()) return Fail(kNoScreen);
    drive::ScriptOperator script(std::cin, std::cout);
    if (arguments.window) {
        return RunOnScreen(&script, [&](platform::Windows& windows) {
            return Drive(arguments.account, script, windows);
        });
    }
    headless::HeadlessWindows windows(script);
    return Drive(arguments.account, script, windows);
}

}  // namespace kelvane::host
