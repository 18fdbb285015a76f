// Label: a line of text in a window.
#pragma once

#include "controls/control.h"

namespace kelvane::controls {

class Label : public Control {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    const std::string& Caption() const { return mCaption; }
    void SetCaption(const std::string& caption) { Assign(mCaption, caption); }
    bool IsTitle() const { return mTitle; }
    // A title is drawn larger and bold.
    void SetTitle(bool title) { Assign(mTitle, title); }

private:
    std::string mCaption;
    bool mTitle = false;
};

}  // namespace kelvane::controls
