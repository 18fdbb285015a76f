// kelvane check

#include <iostream>

#include "data/login_context.h"
#include "entries/check/check.h"
#include "host/account/session.h"
#include "host/bulk/check_report.h"
#include "host/commands/bulk_output.h"
#include "host/commands/commands.h"
#include "host/surroundings/absent_windows.h"
#include "host/surroundings/local_time.h"
#include "host/surroundings/translation.h"

namespace kelvane::host {

namespace {

void WriteText(const entries::CheckResult& result) {
    for (const entries::CheckFinding& each : result.findings) {
        WriteFinding(PlaceOf(each), each.finding);
    }
    std::cout << "entries " << result.entries << ": errors " << result.errors << ", warnings "
              << result.warnings << '\n';
}

int Check(const CheckArguments& arguments, const AccountPlace& account) {
    BulkTerminal terminal(Translated("Reading the account"));
    AbsentWindows windows;
    Session session(account, windows, nullptr);
    session.LogIn(arguments.login, {});
    LoadContext();
    CheckReport report;
    report.account = account.Name();
    report.time = LocalNow();
    report.operatorName = data::gOperatorName;
    report.result = entries::CheckAccount();
    terminal.End();
    if (!arguments.file.empty()) WriteCheck(arguments.file, report);
    if (arguments.json) {
        std::cout << JsonOf(report) << '\n';
    } else {
        WriteText(report.result);
    }
    return report.result.findings.empty() ? 0 : kRefused;
}

}  // namespace

int RunCheck(const CheckArguments& arguments) {
    const AccountPlace account = arguments.account.ForReading();
    try {
        CheckWritten({arguments.file}, {account.Name()});
        return Check(arguments, account);
    } catch (const std::exception& failed) {
        return FailFor(account, failed);
    }
}

}  // namespace kelvane::host
