// Form: a window's state and the order in which its events reach the window's code. A view (the
// desktop's, or the one without a screen) shows it and forwards what the operator does.
//
// Life: Load() runs Form_Load, the view then shows the form and calls Activate(). Unload() asks
// Form_QueryUnload, runs Form_Unload and marks the form unloaded; the view then takes it down and
// its modal call returns. An unloaded form can be loaded again; its public members survive.
//
// Keys: a key that stands for an action that is possible runs it. Otherwise KeyDown, KeyPress and
// KeyUp reach the form's handler first. What the handler sets to Key::None or to 0 is consumed; the
// rest goes to the active control.
//
// An exception that leaves a handler is reported to Trapped() and goes no further.
#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "controls/pick_window.h"
#include "controls/window_action.h"
#include "platform/keys.h"
#include "platform/windows.h"

namespace kelvane::controls {

// Why a form is unloaded: by its close box or by code.
enum class UnloadMode { CloseBox = 0, Code = 1 };

class Form : public platform::Window {
public:
    // What lies between a form's outer size and its inner (scale) size, in twips.
    static constexpr int kFrameWidth = 90;
    static constexpr int kFrameHeight = 500;

    explicit Form(std::string name);
    ~Form() override = default;
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const override { return mName; }
    Form& AsForm() override { return *this; }
    // The list that the form is there to choose from; null for any other form.
    virtual PickWindow* AsPickWindow() { return nullptr; }
    const std::string& Caption() const { return mCaption; }
    void SetCaption(std::string caption);
    // Number of the picture in the component's resources.
    int IconPicture() const { return mIconPicture; }
    void SetIconPicture(int picture);

    // Outer place and size on the screen in twips; SetSize runs Form_Resize when the size changed.
    int Left() const { return mLeft; }
    int Top() const { return mTop; }
    int Width() const { return mWidth; }
    int Height() const { return mHeight; }
    int ScaleWidth() const { return mWidth - kFrameWidth; }
    int ScaleHeight() const { return mHeight - kFrameHeight; }
    void SetPosition(int left, int top);
    void SetSize(int width, int height);
    // Smallest size the operator can give the form; 0 by 0 is no limit.
    int MinWidth() const { return mMinWidth; }
    int MinHeight() const { return mMinHeight; }
    void SetMinSize(int width, int height);
    bool Resizable() const { return mResizable; }
    void SetResizable(bool resizable) { mResizable = resizable; }

    // One line at the window's lower edge that needs no answer; empty when there is nothing to say.
    const std::string& Notice() const { return mNotice; }
    void SetNotice(std::string notice);
    // What the line says besides, as long as it is true: at its left, while there is no notice,
    // what can be done in the current place; at its right figures of what the window shows. A view
    // asks whenever something that can be seen has changed.
    virtual std::string Hint() const { return {}; }
    virtual std::string Figures() const { return {}; }

    // All controls in the order they joined, and one by its name (null when there is none).
    const std::vector<Control*>& Controls() const { return mControls; }
    Control* Find(std::string_view name) const;

    // The control that takes the keys; the first that can when nothing else was given the focus.
    Control* ActiveControl() const { return mActive; }
    void SetFocus(Control& control);

    // What the operator can do here beside the controls, in the order in which the context menu and
    // the page of keys show it.
    const std::vector<WindowAction>& Actions() const { return mActions; }
    void AddAction(WindowAction action) { mActions.push_back(std::move(action)); }
    // Those of the context menu, in its order; null stands for a line between two groups.
    std::vector<const WindowAction*> MenuActions() const;
    // Whether `action` is possible now; asked as one of this form's events.
    bool CanRun(const WindowAction& action);
    // Runs `action` when it is possible, as one of this form's events.
    bool Run(const WindowAction& action);
    // The keys of the window's own rules that neither its toolbar nor its actions name.
    virtual std::vector<KeyLine> OwnKeys() const { return {}; }

    bool IsLoaded() const { return mLoaded; }

    // For the view and for the window's own code. A loaded form has an active control, the first
    // that takes keys unless Form_Load chose another one.
    void Load();
    void Activate();
    // Unloads unless Form_QueryUnload cancels; returns true when the form was unloaded.
    bool Unload(UnloadMode mode = UnloadMode::Code);

    // What the operator does, forwarded by the view. KeyDown and KeyPress return true when the key
    // was used by the form or by the active control.
    bool KeyDown(platform::Key key, int shift);
    bool KeyPress(char32_t character);
    bool KeyUp(platform::Key key, int shift);
    // The first half of KeyDown and KeyPress, for a view whose own field does the typing: only the
    // actions and the form's handler see the key, which the handler may change; true when one of
    // them used it.
    bool OfferKeyDown(platform::Key& key, int shift);
    bool OfferKeyPress(char32_t& character);

    // Runs `handler` as one of this form's events: what it throws is reported to Trapped().
    template <typename Handler>
    void RunEvent(std::string_view place, const Handler& handler) noexcept {
        RunGuarded(place, &handler,
                   [](const void* given) { (*static_cast<const Handler*>(given))(); });
    }

    // Set by the view. ViewChanged: something that can be seen has changed. FocusMoved: code has
    // moved the focus. Refused: a grid has refused a change or a move in that cell.
    std::function<void()> ViewChanged;
    std::function<void(Control&)> FocusMoved;
    std::function<void(Control&, int row, int column)> Refused;

    std::uint64_t Revision() const { return mRevision; }

protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Resize() {}
    virtual void Form_QueryUnload(bool& cancel, UnloadMode mode);
    virtual void Form_Unload() {}
    virtual void Form_KeyDown(platform::Key& key, int shift);
    virtual void Form_KeyPress(char32_t& character);
    virtual void Form_KeyUp(platform::Key& key, int shift);
    // Told of an exception that left the handler `place`; `detail` is the exception's text.
    virtual void Trapped(std::string_view place, std::string_view detail) noexcept;

private:
    friend class Control;
    // What an event needs is on the stack: it begins, and is trapped, without any memory.
    void RunGuarded(std::string_view place, const void* handler,
                    void (*run)(const void* handler)) noexcept;
    void Join(Control& control) { mControls.push_back(&control); }
    void Touch();

    std::string mName;
    std::string mCaption;
    std::string mNotice;
    int mIconPicture = 0;
    int mLeft = 0;
    int mTop = 0;
    int mWidth = 9195;
    int mHeight = 6190;
    int mMinWidth = 0;
    int mMinHeight = 0;
    bool mResizable = true;
    bool mLoaded = false;
    bool mUnloading = false;
    std::vector<Control*> mControls;
    std::vector<WindowAction> mActions;
    Control* mActive = nullptr;
    std::uint64_t mRevision = 1;
};

// A control that takes keys when it is its form's active control.
class KeyTarget {
public:
    virtual ~KeyTarget() = default;
    // Each returns true when the key was used.
    virtual bool KeyDown(platform::Key key, int shift) = 0;
    virtual bool KeyPress(char32_t character) = 0;
};

}  // namespace kelvane::controls
