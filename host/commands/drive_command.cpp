// kelvane drive

#include <iostream>

#include "adapters/headless/headless_windows.h"
#include "adapters/output/formats/file_printing.h"
#include "host/account/session.h"
#include "host/commands/commands.h"
#include "host/ledger/tied_account.h"
#include "host/surroundings/ending_script.h"
#include "host/surroundings/screen.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

int Drive(const AccountPlace& account, drive::ScriptOperator& script, platform::Windows& windows) {
    drive::StatementLog statements;
    output::FilePrinting printing(
        [&script](const platform::FileQuestion& /*question*/) { return script.ChooseFile(); });
    Session session(account, windows, &statements, &printing);
    session.OfferSignOff(SignOffService(account, printing));
    script.SetHost({
        .init =
            [&session](const drive::InitOptions& options) {
                session.LogIn({options.user, options.exempt, options.year}, options.today);
            },
        .show = [&session] { session.Show(); },
        .sendKeys = [&windows](std::string_view keys) { windows.SendKeys(keys); },
        .statements = &statements,
        .clipboard = [&windows] { return windows.ClipboardText(); },
        .setClipboard = [&windows](std::string_view text) { windows.SetClipboardText(text); },
    });
    return script.Run();
}

int DriveOnScreen(const DriveArguments& arguments) {
    EndingScript script(std::cin, std::cout);
    return RunOnScreen(&script, [&](const Screen& screen) {
        bool photographed = arguments.screenshot.empty();
        if (!photographed) {
            script.SetAtEnd([&] { photographed = screen.saveScreenshot(arguments.screenshot); });
        }
        const int status = Drive(arguments.account, script, screen.windows);
        return photographed ? status : Fail(Told("no screenshot in %1", {arguments.screenshot}));
    });
}

}  // namespace

int RunDrive(const DriveArguments& arguments) {
    if (arguments.window)
        return HasScreen() ? DriveOnScreen(arguments) : Fail(Translated(kNoScreen));
    drive::ScriptOperator script(std::cin, std::cout);
    headless::HeadlessWindows windows(script);
    return Drive(arguments.account, script, windows);
}

}  // namespace kelvane::host
