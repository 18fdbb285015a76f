#include "adapters/desktop/desktop_windows.h"

#include <wx/app.h>
#include <wx/dcmemory.h>
#include <wx/dcscreen.h>
#include <wx/display.h>

#include <cmath>
#include <stdexcept>
#include <utility>

#include "adapters/desktop/clipboard.h"
#include "adapters/desktop/desktop_printing.h"
#include "adapters/desktop/look.h"
#include "adapters/desktop/stage.h"
#include "adapters/desktop/system.h"

namespace kelvane::desktop {

namespace {

int TwipsOf(int pixels) {
    return static_cast<int>(std::lround(pixels * kTwipsPerPixel / TextScale(nullptr)));
}

wxSize ScreenSize() {
    return wxDisplay(0U).GetGeometry().GetSize();
}

}  // namespace

DesktopWindows::DesktopWindows()
    : mStage(std::make_unique<Stage>()), mPrinting(std::make_unique<DesktopPrinting>(*mStage)) {}

// What was copied can still be pasted when the windows are gone.
DesktopWindows::~DesktopWindows() {
    KeepClipboard();
}

void DesktopWindows::SetOperator(drive::Operator* scripted) {
    mStage->SetOperator(scripted);
}

void DesktopWindows::ShowModal(platform::Window& window) {
    mStage->ShowForm(window.AsForm());
}

platform::MessageAnswer DesktopWindows::ShowMessage(const platform::Message& message) {
    return mStage->Ask(message);
}

void DesktopWindows::SendKeys(std::string_view keys) {
    mStage->SendKeys(keys);
}

void DesktopWindows::Beep() {
    mStage->Beep();
}

void DesktopWindows::SetHelpFile(std::string_view path) {
    mStage->SetHelpFile(path);
}

void DesktopWindows::SetClipboardText(std::string_view text) {
    WriteClipboard(std::string(text));
}

std::string DesktopWindows::ClipboardText() const {
    return ReadClipboard();
}

int DesktopWindows::TwipsPerPixelX() const {
    return TwipsOf(1);
}

int DesktopWindows::TwipsPerPixelY() const {
    return TwipsOf(1);
}

int DesktopWindows::ScreenWidth() const {
    return TwipsOf(ScreenSize().x);
}

int DesktopWindows::ScreenHeight() const {
    return TwipsOf(ScreenSize().y);
}

platform::PrintSurroundings& DesktopWindows::Printing() {
    return *mPrinting;
}

bool DesktopWindows::SaveScreenshot(const std::string& path) const {
    mStage->Settle();
    const wxWindow* window = mStage->TopWindow();
    if (window == nullptr) return false;
    const wxRect place = window->GetScreenRect();
    wxScreenDC screen;
    ForgetPicture(screen);
    wxBitmap bitmap;
    bitmap.CreateWithDIPSize(place.GetSize(), window->GetContentScaleFactor());
    wxMemoryDC memory(bitmap);
    if (!memory.Blit(wxPoint(0, 0), place.GetSize(), &screen, place.GetTopLeft())) return false;
    memory.SelectObject(wxNullBitmap);
    return SavePng(bitmap, path);
}

void DesktopWindows::Post(const std::function<void()>& task) {
    mStage->CallAfter(task);
}

void DesktopWindows::RethrowFailure() {
    if (const std::exception_ptr failure = mStage->TakeFailure()) std::rethrow_exception(failure);
}

namespace {

class DesktopApp : public wxApp {
public:
    explicit DesktopApp(const std::function<int(DesktopWindows&)>& body) : mBody(body) {}

    bool OnInit() override {
        wxLog::EnableLogging(true);
        SetExitOnFrameDelete(false);
        KeepLight();
        return true;
    }

    int OnRun() override {
        started = true;
        try {
            DesktopWindows windows;
            result = mBody(windows);
            windows.RethrowFailure();
        } catch (...) {
            failure = std::current_exception();
        }
        return 0;
    }

    // The application object is gone when its results are asked for.
    static inline bool started = false;
    static inline int result = 0;
    static inline std::exception_ptr failure;

private:
    std::function<int(DesktopWindows&)> mBody;
};

}  // namespace

int RunDesktop(const std::function<int(DesktopWindows&)>& body) {
    BelongToModule();
    SpeakChinese();
    DesktopApp::started = false;
    DesktopApp::failure = nullptr;
    wxApp::SetInstance(new DesktopApp(body));
    int count = 1;
    char name[] = "kelvane";
    char* arguments[] = {name, nullptr};
    // When there is no screen a toolkit that logs would try to show a window that says so.
    wxLog::EnableLogging(false);
    wxEntry(count, arguments);
    if (!DesktopApp::started) throw std::runtime_error("the screen cannot be opened");
    if (DesktopApp::failure) std::rethrow_exception(std::exchange(DesktopApp::failure, nullptr));
    return DesktopApp::result;
}

}  // namespace kelvane::desktop
