#include "controls/button.h"

#include "controls/form.h"

namespace kelvane::controls {

void Button::Press() {
    if (!Enabled() || !Visible() || !Click) return;
    Owner().RunEvent(Name() + "_Click", Click);
}

}  // namespace kelvane::controls
