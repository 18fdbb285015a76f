// FormWindow: the window of one shown form. It draws any form from its controls and keeps up with
// their state; it reads the state once per event, however often an event changes it.
#pragma once

#include <wx/dialog.h>

#include <memory>
#include <optional>
#include <vector>

#include "adapters/desktop/form_keys.h"
#include "adapters/desktop/lower_line.h"
#include "adapters/desktop/surface.h"
#include "adapters/desktop/view.h"
#include "adapters/desktop/view_host.h"
#include "controls/form.h"

namespace kelvane::desktop {

class Stage;
class ToolbarView;

class FormWindow final : public wxDialog, public ViewHost {
public:
    FormWindow(Stage& stage, controls::Form& form, wxWindow* parent);
    ~FormWindow() override;

    controls::Form& Form() override { return mForm; }
    FormKeys& Keys() override { return mKeys; }
    void OperatorFocused(controls::Control& control) override;
    void FocusActive() override;
    void CatchUp() override;
    wxWindow& ParentOf(const controls::Control& control, wxPoint& offset) override;

    // Gives the active control the keyboard if no window has it: after a message box was answered
    // or the window above was closed.
    void TakeKeyboard();
    // Brings the window up to the form's state at once; ends its modal loop when the form is
    // unloaded and the window is the topmost one.
    void Sync();
    // Waits until the screen shows the form's present state, but not for long.
    void Settle();
    // True when the window was painted and shows the form's present state.
    bool IsSettled() const { return mPainted && !mSyncPending; }

private:
    std::unique_ptr<View> CreateView(controls::Control& control);
    void CreateViews();
    View* FindView(const controls::Control* control) const;
    View* ActiveView() const { return FindView(mForm.ActiveControl()); }
    bool EnterToolbar();
    bool OpenDropDown();
    bool OpenMenu();
    void ScheduleSync();
    void SyncFrame();
    void SyncLine();
    // The part of the screen that windows may take.
    wxRect Screen() const;
    void OnClose(wxCloseEvent& event);
    void OnSize();

    Stage& mStage;
    controls::Form& mForm;
    FormKeys mKeys;
    Surface* mSurface;
    LowerLine* mLine;
    std::vector<std::unique_ptr<View>> mViews;
    // How many of the form's controls have been asked for a view.
    std::size_t mKnownControls = 0;
    const controls::Control* mFocused = nullptr;
    wxSize mFormSize;  // the form's outer size, place and least size last seen, in twips
    wxSize mTooSmall;
    wxPoint mFormPlace;
    wxSize mLeastSize;
    int mIconPicture = 0;
    bool mSyncPending = false;
    bool mPainted = false;
};

}  // namespace kelvane::desktop
