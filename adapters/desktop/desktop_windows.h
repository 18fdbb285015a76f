// DesktopWindows: the windows on a real screen. It draws every form from its controls' state and
// shows real message boxes; with a scripted operator it does what the script says and shows it.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "adapters/drive/operator.h"
#include "platform/print_surroundings.h"
#include "platform/windows.h"

namespace kelvane::desktop {

class DesktopPrinting;
class Stage;

class DesktopWindows : public platform::Windows {
public:
    // Only RunDesktop creates one.
    DesktopWindows();
    ~DesktopWindows() override;

    // Lets `scripted`, which must outlive the windows, act in the operator's place from the next
    // shown window on; null lets the person at the screen act.
    void SetOperator(drive::Operator* scripted);

    // `window` must be a controls::Form.
    void ShowModal(platform::Window& window) override;
    platform::MessageAnswer ShowMessage(const platform::Message& message) override;
    void SendKeys(std::string_view keys) override;
    void Beep() override;
    void SetHelpFile(std::string_view path) override;
    void SetClipboardText(std::string_view text) override;
    std::string ClipboardText() const override;
    int TwipsPerPixelX() const override;
    int TwipsPerPixelY() const override;
    int ScreenWidth() const override;
    int ScreenHeight() const override;

    // The file dialog, the printers and the progress window of a person at the screen.
    platform::PrintSurroundings& Printing();

    // Writes what the topmost window shows to `path` as PNG; false when no window is shown or the
    // file cannot be written.
    bool SaveScreenshot(const std::string& path) const;

    // Runs `task` on the windows' thread as soon as it waits for events. May be called from any
    // thread.
    void Post(const std::function<void()>& task);

    // Throws again what a scripted operator's Act() threw, if it did and was not told yet.
    void RethrowFailure();

private:
    std::unique_ptr<Stage> mStage;
    std::unique_ptr<DesktopPrinting> mPrinting;
};

// Opens the screen, runs `body` with the windows on it and returns what `body` returns; what it
// throws, or a scripted operator threw, is thrown again. The toolkit's own fields and dialogs are
// light from then on. Throws std::runtime_error when there is no screen. On Windows it can be
// called again, and leaves nothing of the toolkit behind; elsewhere once in a program.
int RunDesktop(const std::function<int(DesktopWindows&)>& body);

}  // namespace kelvane::desktop
