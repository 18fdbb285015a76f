// Stage: the stack of modal windows and message boxes that are shown, the keystrokes on their way
// to the topmost one, and the scripted operator in front of them, when there is one.
#pragma once

#include <wx/event.h>
#include <wx/timer.h>

#include <deque>
#include <exception>
#include <string>
#include <utility>

#include "adapters/desktop/key_stroke.h"
#include "adapters/drive/operator.h"
#include "controls/form.h"
#include "platform/windows.h"

namespace kelvane::desktop {

class FormWindow;
class MessageDialog;

class Stage : public wxEvtHandler {
public:
    // While it lives a dialog of the system lies over the windows, and none of them is topmost.
    class SystemDialog {
    public:
        explicit SystemDialog(Stage& stage) : mStage(stage) { ++mStage.mSystemDialogs; }
        ~SystemDialog();
        SystemDialog(const SystemDialog&) = delete;
        SystemDialog& operator=(const SystemDialog&) = delete;

    private:
        Stage& mStage;
    };

    Stage();
    ~Stage() override;

    void SetOperator(drive::Operator* scripted) {
        mOperator = scripted;
        mOperatorLeft = false;
    }
    void ShowForm(controls::Form& form);
    platform::MessageAnswer Ask(const platform::Message& message);
    void SendKeys(std::string_view keys);
    void Beep();
    void SetHelpFile(std::string_view path) { mHelpFile = path; }
    // Opens the help file or, where there is none, the topmost window's page of keys.
    void ShowHelp();

    bool IsTopmost(const FormWindow& window) const;
    // Whether another form's window is shown above it.
    bool IsCovered(const FormWindow& window) const;
    // The topmost window; null when none is shown.
    wxWindow* TopWindow() const;
    // Waits until the topmost window is painted as it is.
    void Settle();
    // Hands out what stopped the operator, if anything did.
    std::exception_ptr TakeFailure() { return std::exchange(mFailure, nullptr); }

private:
    // One shown window: a form's or a message box.
    struct Level {
        FormWindow* form = nullptr;
        MessageDialog* message = nullptr;
        bool acting = false;
        int closeAttempts = 0;
        int waits = 0;
    };

    void Wake(int milliseconds = 1);
    void OnTimer();
    void ScheduleKeys();
    void DeliverKeys();
    void LetOperatorAct();
    void CloseTopmost();

    std::deque<Level> mLevels;  // a level stays where it is while others come and go above it
    std::deque<KeyStroke> mStrokes;
    int mSystemDialogs = 0;
    std::string mHelpFile;
    drive::Operator* mOperator = nullptr;
    bool mOperatorLeft = false;
    std::exception_ptr mFailure;
    wxTimer mTimer;
};

}  // namespace kelvane::desktop
