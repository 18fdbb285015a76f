#include "adapters/desktop/stage.h"

#include <wx/filefn.h>
#include <wx/utils.h>

#include <algorithm>
#include <vector>

#include "adapters/desktop/form_window.h"
#include "adapters/desktop/look.h"
#include "adapters/desktop/message_dialog.h"
#include "controls/grid.h"
#include "controls/key_page.h"
#include "controls/pick_window.h"
#include "platform/key_names.h"
#include "platform/native_path.h"

namespace kelvane::desktop {

namespace {

// How often a scripted operator waits a moment for a window to be painted before he acts all the
// same: a window behind others may never be painted.
constexpr int kMaxWaits = 200;
constexpr int kWaitMilliseconds = 5;
constexpr int kCloseAttempts = 2;

// While a form is shown: beeps for its grids that have no Beep of their own, and tells the scripted
// operator, when there is one, where code moves the focus and what a control refuses.
class FormWatch {
public:
    FormWatch(controls::Form& form, Stage& stage, drive::Operator* who) : mForm(form) {
        for (controls::Control* control : form.Controls()) {
            auto* grid = dynamic_cast<controls::Grid*>(control);
            if (grid == nullptr || grid->Beep) continue;
            grid->Beep = [&stage] { stage.Beep(); };
            mBeeping.push_back(grid);
        }
        if (who == nullptr) return;
        form.FocusMoved = [who](controls::Control& control) { who->Focused(control.Name()); };
        form.Refused = [who](controls::Control&, int row, int column) {
            who->Refused(row, column);
        };
    }
    ~FormWatch() {
        mForm.FocusMoved = nullptr;
        mForm.Refused = nullptr;
        for (controls::Grid* grid : mBeeping) grid->Beep = nullptr;
    }
    FormWatch(const FormWatch&) = delete;
    FormWatch& operator=(const FormWatch&) = delete;

private:
    controls::Form& mForm;
    std::vector<controls::Grid*> mBeeping;
};

}  // namespace

Stage::Stage() : mTimer(this) {
    Bind(wxEVT_TIMER, [this](wxTimerEvent&) { OnTimer(); });
}

Stage::~Stage() = default;

Stage::SystemDialog::~SystemDialog() {
    --mStage.mSystemDialogs;
    if (mStage.mLevels.empty() || mStage.mLevels.back().form == nullptr) return;
    FormWindow* below = mStage.mLevels.back().form;
    below->CallAfter([below] {
        below->Sync();
        below->TakeKeyboard();
    });
}

wxWindow* Stage::TopWindow() const {
    if (mLevels.empty()) return nullptr;
    const Level& top = mLevels.back();
    if (top.message != nullptr) return top.message;
    return top.form;
}

void Stage::Settle() {
    if (!mLevels.empty() && mLevels.back().form != nullptr) mLevels.back().form->Settle();
}

bool Stage::IsTopmost(const FormWindow& window) const {
    return mSystemDialogs == 0 && !mLevels.empty() && mLevels.back().form == &window;
}

bool Stage::IsCovered(const FormWindow& window) const {
    const auto own = std::find_if(mLevels.begin(), mLevels.end(),
                                  [&](const Level& level) { return level.form == &window; });
    if (own == mLevels.end()) return false;
    return std::any_of(own + 1, mLevels.end(),
                       [](const Level& level) { return level.form != nullptr; });
}

void Stage::ShowForm(controls::Form& form) {
    form.Load();
    if (!form.IsLoaded()) return;
    // Of a pick list the scripted operator is told only what is chosen in it.
    const bool told = mOperator != nullptr && form.AsPickWindow() == nullptr;
    if (told) mOperator->Opened(form.Name());
    {
        FormWindow window(*this, form, TopWindow());
        mLevels.push_back({&window});
        const FormWatch watch(form, *this, told ? mOperator : nullptr);
        window.Show();
        form.Activate();
        ScheduleKeys();
        Wake();
        if (form.IsLoaded()) {
            window.Sync();
            window.ShowModal();
        }
        mLevels.pop_back();
    }
    if (mLevels.empty()) mStrokes.clear();
    if (told) mOperator->Closed(form.Name());
    // The window below may have been unloaded meanwhile.
    if (!mLevels.empty() && mLevels.back().form != nullptr) {
        FormWindow* below = mLevels.back().form;
        below->CallAfter([below] {
            below->Sync();
            below->TakeKeyboard();
        });
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
    // The field that had the keyboard may have gone while the box was shown.
    if (!mLevels.empty() && mLevels.back().form != nullptr) {
        FormWindow* below = mLevels.back().form;
        below->CallAfter([below] { below->TakeKeyboard(); });
    }
    ScheduleKeys();
    Wake();
    return answer;
}

void Stage::SendKeys(std::string_view keys) {
    for (const KeyStroke& stroke : platform::ParseSentKeys(keys)) mStrokes.push_back(stroke);
    ScheduleKeys();
}

void Stage::ScheduleKeys() {
    if (!mStrokes.empty()) CallAfter([this] { DeliverKeys(); });
}

// A stroke may open a window, and sending it returns only when that is closed: the strokes behind
// it are delivered to that window. A message box takes no sent keys; they wait until it is
// answered.
void Stage::DeliverKeys() {
    while (!mStrokes.empty() && !mLevels.empty() && mLevels.back().form != nullptr) {
        const KeyStroke stroke = mStrokes.front();
        mStrokes.pop_front();
        mLevels.back().form->Keys().Send(stroke);
    }
    Wake();
}

void Stage::Beep() {
    if (mOperator != nullptr) mOperator->Beeped();
    wxBell();
}

void Stage::ShowHelp() {
    // The windows' code writes a backslash between folders on every system.
    const wxString path = Text(platform::NativePath(mHelpFile));
    if (wxFileExists(path)) {
        if (mOperator != nullptr) return mOperator->HelpShown(mHelpFile);
        if (wxLaunchDefaultApplication(path)) return;
    }
    if (mLevels.empty() || mLevels.back().form == nullptr) return;
    controls::KeyPage page(mLevels.back().form->Form());
    ShowForm(page);
}

void Stage::Wake(int milliseconds) {
    if (mOperator != nullptr && !mLevels.empty()) mTimer.StartOnce(milliseconds);
}

void Stage::OnTimer() {
    if (mLevels.empty() || mOperator == nullptr) return;
    Level& top = mLevels.back();
    const bool modal = top.message != nullptr ? top.message->IsModal() : top.form->IsModal();
    const bool painted = top.message != nullptr ? top.message->IsPainted() : top.form->IsSettled();
    if (!modal || (!painted && ++top.waits < kMaxWaits)) {
        Wake(kWaitMilliseconds);
        return;
    }
    top.waits = 0;
    if (top.message != nullptr) {
        top.message->Press(mOperator->Answer(top.message->Shown()));
        return;
    }
    if (top.acting || !top.form->Form().IsLoaded()) return;
    if (!mStrokes.empty()) {
        DeliverKeys();
    } else if (mOperatorLeft) {
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
    if (++level.closeAttempts > kCloseAttempts) {
        level.form->EndModal(wxID_CLOSE);
        return;
    }
    level.acting = true;
    if (!form.Unload(controls::UnloadMode::CloseBox)) form.Unload(controls::UnloadMode::Code);
    level.acting = false;
}

}  // namespace kelvane::desktop
