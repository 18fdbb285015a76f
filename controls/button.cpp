#include "controls/button.h"

#include "controls/form.h"

namespace kelvane::controls {

platform::KeyStroke Button::Stroke() const {
    if (mStroke.key != platform::Key::None) return mStroke;
    if (mDefault) return {platform::Key::Enter};
    return {mCancel ? platform::Key::Escape : platform::Key::None};
}

void Button::Press() {
    if (!Enabled() || !Visible() || !Click) return;
    Owner().RunEvent(Name() + "_Click", Click);
}

}  // namespace kelvane::controls
