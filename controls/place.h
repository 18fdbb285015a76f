// Where a control lies in its form, said in one line.
#pragma once

#include <algorithm>

#include "controls/control.h"

namespace kelvane::controls {

// Twips from the form's inner left upper corner; a size below 0 is none.
inline void PlaceControl(Control& control, int left, int top, int width, int height) {
    control.SetLeft(left);
    control.SetTop(top);
    control.SetWidth(std::max(0, width));
    control.SetHeight(std::max(0, height));
}

}  // namespace kelvane::controls
