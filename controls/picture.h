// Picture: a coloured strip of a window that other controls stand on.
#pragma once

#include "controls/control.h"

namespace kelvane::controls {

class Picture : public Control {
public:
    using Control::Control;
    void Accept(ControlVisitor& visitor) override { visitor.Visit(*this); }

    Color BackColor() const { return mBackColor; }
    void SetBackColor(Color color) { Assign(mBackColor, color); }

private:
    Color mBackColor = Rgb(255, 255, 255);
};

}  // namespace kelvane::controls
