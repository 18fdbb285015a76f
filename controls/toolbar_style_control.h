// ToolbarStyleControl: takes over a toolbar's buttons, draws them in the suite's look and relays
// the clicks. It shows the buttons as they were at the last Refresh().
#pragma once

#include <functional>
#include <vector>

#include "controls/toolbar.h"

namespace kelvane::controls {

class ToolbarStyleControl : public Control {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    struct Item {
        std::string key;
        std::string caption;
        int picture = 0;
        bool separator = false;
        bool enabled = true;
        bool visible = true;
        platform::KeyStroke stroke = {};
    };

    // 1 when the control hosts a toolbar's buttons, 0 before.
    int GetToolbarStyle() const { return mToolbar != nullptr && mDisplayStyle == 1 ? 1 : 0; }
    // Takes over the buttons of `toolbar`, which must outlive the control.
    void SetToolbar(Toolbar& toolbar);
    bool SpecialEffect() const { return mSpecialEffect; }
    void SetSpecialEffect(bool effect) { Assign(mSpecialEffect, effect); }
    // 1: the suite's look; 2: the plain toolbar is used instead.
    int DisplayStyle() const { return mDisplayStyle; }
    void SetDisplayStyle(int style) { Assign(mDisplayStyle, style); }

    // Takes the buttons' present captions, images and states from the toolbar.
    void Refresh();
    const std::vector<Item>& Items() const { return mItems; }

    // Clicks a button as the operator does; nothing happens when it is disabled or missing.
    void Click(std::string_view key);
    // Raised with the button's key and caption.
    std::function<void(const std::string&, const std::string&)> ButtonClick;

private:
    Toolbar* mToolbar = nullptr;
    std::vector<Item> mItems;
    bool mSpecialEffect = false;
    int mDisplayStyle = 0;
};

}  // namespace kelvane::controls
