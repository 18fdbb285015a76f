// For tests: the environment variable KELVANE_DRIVE names a script that acts in the person's place.
// What happens is appended to the file KELVANE_TRANSCRIPT, and the window at the script's end is
// saved to KELVANE_SCREENSHOT.

#include <filesystem>
#include <fstream>
#include <stdexcept>

#include "adapters/com/wide_text.h"
#include "adapters/drive/script_operator.h"
#include "adapters/headless/headless_windows.h"
#include "adapters/output/formats/file_printing.h"
#include "host/com_server/host_windows.h"
#include "host/com_server/show_windows.h"
#include "host/surroundings/ending_script.h"
#include "host/surroundings/screen.h"

namespace kelvane::host {

namespace {

constexpr const wchar_t* kScript = L"KELVANE_DRIVE";
constexpr const wchar_t* kTranscript = L"KELVANE_TRANSCRIPT";
constexpr const wchar_t* kScreenshot = L"KELVANE_SCREENSHOT";

// Opens the file that environment variable `variable` names.
template <typename Stream>
void OpenNamed(Stream& stream, const wchar_t* variable, std::ios::openmode mode) {
    const std::wstring path = com::EnvironmentText(variable);
    stream.open(std::filesystem::path(path), mode);
    if (!stream) {
        throw std::runtime_error(com::NarrowText(variable) + "：不能打开 " + com::NarrowText(path));
    }
}

void RunDriven(drive::StatementLog* statements, const WindowsWork& work) {
    std::ifstream lines;
    std::ofstream transcript;
    OpenNamed(lines, kScript, std::ios::in);
    OpenNamed(transcript, kTranscript, std::ios::app | std::ios::binary);
    EndingScript script(lines, transcript);
    output::FilePrinting printing(
        [&script](const platform::FileQuestion& /*question*/) { return script.ChooseFile(); });
    const auto run = [&](platform::Windows& windows) {
        script.SetHost({.init = {},
                        .show = {},
                        .sendKeys = [&windows](std::string_view keys) { windows.SendKeys(keys); },
                        .statements = statements,
                        .clipboard = [&windows] { return windows.ClipboardText(); },
                        .setClipboard =
                            [&windows](std::string_view text) { windows.SetClipboardText(text); }});
        work(windows, printing);
        return 0;
    };
    if (!HasScreen()) {
        headless::HeadlessWindows windows(script);
        run(windows);
        return;
    }
    RunOnScreen(&script, [&](const Screen& screen) {
        const std::wstring picture = com::EnvironmentText(kScreenshot);
        bool photographed = picture.empty();
        if (!photographed) {
            script.SetAtEnd(
                [&] { photographed = screen.saveScreenshot(com::NarrowText(picture)); });
        }
        const int status = run(screen.windows);
        if (!photographed) transcript << "error: no screenshot\n" << std::flush;
        return status;
    });
}

}  // namespace

bool IsDriven() {
    return !com::EnvironmentText(kScript).empty();
}

void RunWindows(drive::StatementLog* statements, const WindowsWork& work) {
    if (!IsDriven()) return RunForPerson(work);
    const DisabledHostWindows disabled;
    RunDriven(statements, work);
}

}  // namespace kelvane::host
