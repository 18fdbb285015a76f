// EditBox: a one-line text field.
#pragma once

#include <functional>

#include "controls/control.h"
#include "controls/form.h"

namespace kelvane::controls {

class EditBox : public Control, public KeyTarget {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    const std::string& Text() const { return mText; }
    void SetText(const std::string& text);
    // Raised after every change of the text, the operator's and the code's.
    std::function<void()> Change;

    // Typing, without a screen: characters are appended, Backspace takes the last one away.
    bool KeyDown(platform::Key key, int shift) override;
    bool KeyPress(char32_t character) override;

private:
    std::string mText;
};

}  // namespace kelvane::controls
