#include "adapters/desktop/stage.h"

#include <wx/filename.h>
#include <wx/utils.h>

#include "adapters/desktop/form_window.h"
#include "adapters/desktop/look.h"
#include "adapters/desktop/message_dialog.h"
#include "controls/pick_window.h"

namespace kelvane::desktop {

namespace {

// How often the operator waits a moment for a window to be painted before he acts unseen: a window
// behind others may never be painted.
constexpr int kMostWaits = 200;
constexpr int kWaitMilliseconds = 5;
constexpr int kPoliteCloseAttempts = 2;
constexpr int kForcedCloseAttempts = 4;

}  // namespace

Stage::Stage() : mTimer(this) {
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
}

Stage::~Stage() = default;

wxWindow* Stage::TopWindow() const {
    if (mLevels.empty()) return nullptr;
    const Level& top = mLevels.back();
    if (top.message != nullptr) return top.message;
    return top.form;
}

bool Stage::IsTopmost(const FormWindow& window) const {
    return !mLevels.empty() && mLevels.back().form == &window;
}

void Stage::ShowForm(controls::Form& form) {
    form.Load();
    if (!form.IsLoaded()) return;
    // What happens in a pick list is told by its choice alone.
    const bool told = mOperator != nullptr && dynamic_cast<controls::PickWindow*>(&form) == nullptr;
    if (told) mOperator->Opened(form.Name());
    {
        FormWindow window(*this, form, TopWindow());
        mLevels.push_back({&window});
        if (told) {
            form.FocusMoved = [this](controls::Control& control) {
                mOperator->Focused(control.Name());
            };
            form.Refused = [this](controls::Control&, int row, int column) {
                mOperator->Refused(row, column);
            };
        }
        window.Show();
        form.Activate();
        Wake();
        if (form.IsLoaded()) {
            window.Sync();
            window.ShowModal();
        }
        form.FocusMoved = nullptr;
        form.Refused = nullptr;
        mLevels.pop_back();
    }
    if (told) mOperator->Closed(form.Name());
    // The window below may have been unloaded meanwhile.
    if (!mLevels.empty() && mLevels.back().form != nullptr) {
        FormWindow* below = mLevels.back().form;
        below->CallAfter([below] { below->Sync(); });
    }
    Wake();
}

platform::MessageAnswer Stage::Ask(const platform::Message& message) {
    MessageDialog box(TopWindow(), message);
    Level level;
    level.message = &box;
    mLevels.push_back(level);
    Wake();
    const platform::MessageAnswer answer = box.Ask();
    mLevels.pop_back();
    Wake();
    return answer;
}

void Stage::SendKeys(std::string_view keys) {
    for (const KeyStroke& stroke : ParseKeys(keys)) mStrokes.push_back(stroke);
    CallAfter([this] { DeliverKeys(); });
}

void Stage::DeliverKeys() {
    if (mDelivering) return;
    mDelivering = true;
    while (!mStrokes.empty() && !mLevels.empty()) {
        const KeyStroke stroke = mStrokes.front();
        mStrokes.pop_front();
        // A message box takes no sent keys; the next form below it does.
        for (auto level = mLevels.rbegin(); level != mLevels.rend(); ++level) {
            if (level->form == nullptr) continue;
            level->form->Keys().Send(stroke);
            break;
        }
    }
    mDelivering = false;
    Wake();
}

void Stage::Beep() {
    if (mOperator != nullptr) mOperator->Beeped();
    wxBell();
}

void Stage::ShowHelp() {
    const wxFileName file(Text(mHelpFile));
    if (mOperator != nullptr) {
        mOperator->HelpShown(Utf8(file.GetFullName()));
        return;
    }
    if (file.FileExists() && wxLaunchDefaultApplication(file.GetFullPath())) return;
    if (!mLevels.empty() && mLevels.back().form != nullptr) {
        mLevels.back().form->Form().SetNotice("没有找到帮助文件：" + mHelpFile);
    }
}

void Stage::Wake(int milliseconds) {
    if (mOperator != nullptr && !mLevels.empty()) mTimer.StartOnce(milliseconds);
}

void Stage::OnTimer() {
    if (mLevels.empty() || mOperator == nullptr) return;
    Level& top = mLevels.back();
    const bool modal = top.message != nullptr ? top.message->IsModal() : top.form->IsModal();
    const bool painted = top.message != nullptr ? top.message->IsPainted() : top.form->IsSettled();
    if (!modal || !mStrokes.empty() || (!painted && ++top.waits < kMostWaits)) {
        Wake(kWaitMilliseconds);
        return;
    }
    top.waits = 0;
    if (top.message != nullptr) {
        top.message->Press(mOperator->Answer(top.message->Shown()));
        return;
    }
    if (top.acting || !top.form->Form().IsLoaded()) return;
    if (mOperatorLeft) {
        CloseTopmost();
    } else {
        LetOperatorAct();
    }
    Wake();
}

void Stage::LetOperatorAct() {
    Level& level = mLevels.back();
    level.acting = true;
    try {
        mOperatorLeft = !mOperator->Act(level.form->Form());
    } catch (...) {
        mFailure = std::current_exception();
        mOperatorLeft = true;
    }
    level.acting = false;
}

void Stage::CloseTopmost() {
    Level& level = mLevels.back();
    controls::Form& form = level.form->Form();
    const int attempt = ++level.closeAttempts;
    if (attempt > kForcedCloseAttempts) {
        level.form->EndModal(wxID_CLOSE);
        return;
    }
    level.acting = true;
    form.Unload(attempt <= kPoliteCloseAttempts ? controls::UnloadMode::CloseBox
                                                : controls::UnloadMode::Code);
    level.acting = false;
}

}  // namespace kelvane::desktop
