// Button: a command button, with a caption or a picture.
#pragma once

#include <functional>

#include "controls/control.h"
#include "platform/keys.h"

namespace kelvane::controls {

class Button : public Control {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    const std::string& Caption() const { return mCaption; }
    void SetCaption(const std::string& caption) { Assign(mCaption, caption); }
    // Number of a picture of the component's resources; 0 is none.
    int Picture() const { return mPicture; }
    void SetPicture(int picture) { Assign(mPicture, picture); }
    // Whether Enter presses the button (default) or Escape does (cancel), wherever the focus is.
    bool IsDefault() const { return mDefault; }
    void SetDefault(bool value) { mDefault = value; }
    bool IsCancel() const { return mCancel; }
    void SetCancel(bool value) { mCancel = value; }

    // The key that does the same as a press, for the operator to read; none with Key::None.
    platform::KeyStroke Stroke() const;
    void SetStroke(const platform::KeyStroke& stroke) { mStroke = stroke; }

    // Presses the button as the operator does; nothing happens when it is disabled or hidden.
    void Press();

    std::function<void()> Click;

private:
    std::string mCaption;
    int mPicture = 0;
    platform::KeyStroke mStroke;
    bool mDefault = false;
    bool mCancel = false;
};

}  // namespace kelvane::controls
